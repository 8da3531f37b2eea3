#include "widgets/qt_prompts.h"

#include "core/product.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

namespace quorvane {

namespace {

QString titleOr(const QString& title)
{
    return title.isEmpty() ? QString::fromLatin1(product::kName) : title;
}

// Texts of the program break lines with CR alone at times; Qt boxes want LF.
QString shown(const QString& text)
{
    QString result = text;
    result.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    result.replace(u'\r', u'\n');
    return result;
}

// Remembers the window the user last clicked or typed in, or that last opened: the window that asks when a
// box is shown from its handler or its loop, also while the window manager moves the focus and
// no window of the program is active.
class AskingWindow : public QObject
{
public:
    AskingWindow() : QObject(QCoreApplication::instance()) { parent()->installEventFilter(this); }
    QPointer<QWidget> last;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QEvent::Type type = event->type();
        if (type != QEvent::MouseButtonPress && type != QEvent::KeyPress && type != QEvent::Show)
            return false;
        auto* widget = qobject_cast<QWidget*>(watched);
        if (!widget || !widget->isVisible())
            return false;
        // Working in a box is working for the window behind it.
        QWidget* window = widget->window();
        while (qobject_cast<QDialog*>(window) && window->isModal() && window->parentWidget())
            window = window->parentWidget()->window();
        last = window;
        return false;
    }
};

AskingWindow& asking()
{
    static QPointer<AskingWindow> tracker;
    if (!tracker)
        tracker = new AskingWindow; // as long as the application, its parent
    return *tracker;
}

bool canCarry(const QWidget* window)
{
    return window && window->isVisible() && window->windowType() != Qt::Popup && window->windowType() != Qt::ToolTip;
}

// The window a box belongs to: the box already open above the program, the window the user last
// worked in, the active window, else any open window of the program. A box with a parent never
// counts as the program's last window.
QWidget* parentWindow()
{
    for (QWidget* candidate : {QApplication::activeModalWidget(), asking().last.data(), QApplication::activeWindow()}) {
        if (canCarry(candidate))
            return candidate;
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (canCarry(window))
            return window;
    }
    return nullptr;
}

} // namespace

QtPrompts::QtPrompts()
{
    asking(); // from now on, the window the user works in is known
}

void QtPrompts::message(const QString& text, const QString& title)
{
    QMessageBox::information(parentWindow(), titleOr(title), shown(text));
}

bool QtPrompts::okCancel(const QString& text, const QString& title)
{
    return QMessageBox::information(parentWindow(), titleOr(title), shown(text), QMessageBox::Ok | QMessageBox::Cancel,
                                    QMessageBox::Ok) == QMessageBox::Ok;
}

bool QtPrompts::yesNo(const QString& text, const QString& title)
{
    return QMessageBox::question(parentWindow(), titleOr(title), shown(text), QMessageBox::Yes | QMessageBox::No,
                                 QMessageBox::Yes) == QMessageBox::Yes;
}

QString QtPrompts::input(const QString& prompt, const QString& title, const QString& defaultText)
{
    QInputDialog dialog(parentWindow());
    dialog.setWindowTitle(titleOr(title));
    dialog.setLabelText(shown(prompt));
    dialog.setTextValue(defaultText);
    dialog.setMinimumWidth(420);
    // Long prompts wrap instead of making the box as wide as the screen.
    for (QLabel* label : dialog.findChildren<QLabel*>()) {
        label->setWordWrap(true);
    }
    return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

} // namespace quorvane
