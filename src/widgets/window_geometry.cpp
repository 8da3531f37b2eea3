#include "widgets/window_geometry.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include <algorithm>

namespace quorvane {

namespace {

QString& settingsFile()
{
    static QString file;
    return file;
}

QString key(const QWidget* window)
{
    return QStringLiteral("windows/") + window->objectName();
}

// Saves the window's place when it hides (a close hides it too).
class GeometryKeeper : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* window = static_cast<QWidget*>(watched);
        if (event->type() == QEvent::Hide && !settingsFile().isEmpty() && !window->isMinimized()) {
            QSettings settings(settingsFile(), QSettings::IniFormat);
            settings.setValue(key(window), window->normalGeometry());
            settings.setValue(key(window) + QStringLiteral("_maximized"), window->isMaximized());
        }
        return false;
    }
};

} // namespace

void rememberWindowGeometry(const QString& file)
{
    settingsFile() = file;
}

QRect fitOnScreen(const QRect& saved, const QRect& available)
{
    QRect fitted(saved.topLeft(), saved.size().boundedTo(available.size()));
    fitted.moveLeft(std::clamp(fitted.left(), available.left(), available.right() - fitted.width() + 1));
    fitted.moveTop(std::clamp(fitted.top(), available.top(), available.bottom() - fitted.height() + 1));
    return fitted;
}

void keepWindowGeometry(QWidget* window)
{
    if (settingsFile().isEmpty())
        return;
    window->installEventFilter(new GeometryKeeper(window));
    const QSettings settings(settingsFile(), QSettings::IniFormat);
    const QRect saved = settings.value(key(window)).toRect();
    if (!saved.isValid())
        return;
    const QScreen* screen = QGuiApplication::screenAt(saved.center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    // A window cannot be smaller than its contents allow; fitted at its real size, it stays whole.
    const QRect wanted(saved.topLeft(), saved.size().expandedTo(window->minimumSizeHint()));
    if (screen)
        window->setGeometry(fitOnScreen(wanted, screen->availableGeometry()));
    if (settings.value(key(window) + QStringLiteral("_maximized")).toBool())
        window->setWindowState(window->windowState() | Qt::WindowMaximized);
}

} // namespace quorvane
