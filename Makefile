# The two commands a newcomer needs: `make run` and `make test`. Both set up what is missing.

BUILD ?= build
JOBS ?= $(shell nproc 2>/dev/null || echo 2)

# Debian packages the build, the tests and a real window need. Each feature adds its own line.
PACKAGES := cmake ninja-build g++ pkg-config qt6-base-dev libqt6opengl6-dev libgl1-mesa-dev \
	libsdl2-dev libsdl2-mixer-dev libssl-dev openssl libzip-dev libgtest-dev libbenchmark-dev \
	ffmpeg sox libsox-fmt-mp3 lame xvfb xauth poppler-utils unzip clang-format fonts-dejavu-core fonts-liberation
PACKAGES += qt6-charts-dev   # spaced review: the progress window's charts
PACKAGES += desktop-file-utils appstream lintian librsvg2-bin dpkg-dev fakeroot file gzip   # package
PACKAGES += libtag1-dev dbus dbus-daemon   # hands-free drills: MP3 tags, media keys
PACKAGES += libespeak-ng-dev espeak-ng-data espeak-ng libmp3lame-dev   # speech for words without a recording
PACKAGES += libqt6sql6-sqlite   # importing Anki packages (Qt SQL's SQLite driver)

.PHONY: all setup configure build run test bench lint format clean screenshots package

all: build

setup:
	@missing=""; \
	for p in $(PACKAGES); do \
		dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
		if [ "$$(id -u)" = "0" ]; then \
			echo "Installing:$$missing"; \
			apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing; \
		else \
			echo "Quorvane needs these Debian packages. Please run:"; \
			echo "  sudo apt-get install -y$$missing"; \
			exit 1; \
		fi; \
	fi

configure: setup
	@test -f $(BUILD)/build.ninja || cmake -S . -B $(BUILD) -G Ninja -DCMAKE_EXPORT_COMPILE_COMMANDS=ON

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	./$(BUILD)/quorvane-demo

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy ctest --output-on-failure -j $(JOBS)

bench: build
	QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy ./$(BUILD)/quorvane_bench

lint:
	@git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD)

screenshots: configure
	cmake --build $(BUILD) --target quorvane_screenshots
	xvfb-run -a -s "-screen 0 1280x800x24" ./$(BUILD)/quorvane_screenshots docs

# The Debian package build/quorvane_<version>_amd64.deb, checked by lintian.
package: build
	cd $(BUILD) && cpack -G DEB
	lintian --tag-display-limit 0 $(BUILD)/quorvane_*_amd64.deb
