#include "app/start.h"

#include "app/clock.h"
#include "app/main_window.h"
#include "app/qt_prompts.h"
#include "app/session.h"
#include "sound/sdl_sound.h"

#include <QApplication>
#include <QDir>

#include <memory>
#include <stdexcept>

namespace quorvane {

namespace {

constexpr const char* kSessionProperty = "quorvane.session";

// Keeps the real services alive exactly as long as the main window.
class OwnedServices : public QObject
{
public:
    using QObject::QObject;
    std::unique_ptr<Prompts> prompts;
    std::unique_ptr<SoundLibrary> sound;
    std::unique_ptr<Clock> clock;
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

QWidget* start(const QString& programFolder, Prompts* prompts, SoundLibrary* sound, Clock* clock)
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
    auto* window = new MainWindow(*prompts, *sound, *clock);
    owned.release()->setParent(window);
    attachSession(window, window->session());
    window->form_load();
    window->show();
    return window;
}

void attachSession(QWidget* window, Session& session)
{
    window->setProperty(kSessionProperty, QVariant::fromValue(static_cast<void*>(&session)));
}

Session& sessionOf(QWidget* window)
{
    for (QObject* object = window; object; object = object->parent()) {
        const QVariant value = object->property(kSessionProperty);
        if (value.isValid())
            return *static_cast<Session*>(value.value<void*>());
    }
    for (QWidget* topLevel : QApplication::topLevelWidgets()) {
        if (auto* main = qobject_cast<MainWindow*>(topLevel))
            return main->session();
    }
    throw std::logic_error("sessionOf: the window belongs to no Quorvane session");
}

} // namespace quorvane
