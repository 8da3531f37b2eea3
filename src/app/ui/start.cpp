#include "app/ui/start.h"

#include "app/quit_signals.h"
#include "app/ui/main_window.h"
#include "core/clock.h"
#include "core/session.h"
#include "sound/espeak_speech.h"
#include "sound/sdl_sound.h"
#include "sound/speech_cache.h"
#include "widgets/controls.h"
#include "widgets/qt_prompts.h"

#include <QApplication>
#include <QDir>

#include <memory>
#include <stdexcept>

namespace quorvane {

namespace {

// Keeps the real services alive exactly as long as the main window.
class OwnedServices : public QObject
{
public:
    using QObject::QObject;
    std::unique_ptr<Prompts> prompts;
    std::unique_ptr<SoundLibrary> sound;
    std::unique_ptr<Clock> clock;
    std::unique_ptr<SpeechSynthesizer> speech;
    std::unique_ptr<CachedSpeech> cachedSpeech;
};

void ensureApplication()
{
    if (QCoreApplication::instance())
        return;
    static int argc = 1;
    static char name[] = "quorvane";
    static char* argv[] = {name, nullptr};
    new QApplication(argc, argv); // lives until the process ends
}

} // namespace

QWidget* start(const QString& programFolder, Prompts* prompts, SoundLibrary* sound, Clock* clock,
               SpeechSynthesizer* speech)
{
    ensureApplication();
    if (!programFolder.isEmpty())
        QDir::setCurrent(programFolder);

    auto owned = std::make_unique<OwnedServices>();
    if (!prompts) {
        owned->prompts = std::make_unique<QtPrompts>();
        prompts = owned->prompts.get();
    }
    if (!sound) {
        owned->sound = std::make_unique<SdlSound>();
        sound = owned->sound.get();
    }
    if (!clock) {
        owned->clock = std::make_unique<QtClock>();
        clock = owned->clock.get();
    }
    if (!speech) {
        owned->speech = std::make_unique<EspeakSpeech>();
        owned->cachedSpeech = std::make_unique<CachedSpeech>(*owned->speech);
        speech = owned->cachedSpeech.get();
    }
    controls::installFontSubstitutions();
    auto* window = new MainWindow(*prompts, *sound, *clock);
    window->session().attachSpeech(speech);
    owned.release()->setParent(window);
    // Only the main window (closed, or Exit) and SIGINT or SIGTERM end the program, never a box;
    // when the event loop ends the window goes, and with it the student's lock and the sound.
    QApplication::setQuitOnLastWindowClosed(false);
    install_quit_signals(window, [window] { window->Exit_click(); });
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, window, [window] { delete window; });
    window->form_load();
    window->show();
    return window;
}

Session& sessionOf(QWidget* window)
{
    // Every window of the program is made with the main window as its Qt parent.
    for (QObject* object = window; object; object = object->parent()) {
        if (auto* main = qobject_cast<MainWindow*>(object))
            return main->session();
    }
    throw std::logic_error("sessionOf: the window belongs to no Quorvane session");
}

} // namespace quorvane
