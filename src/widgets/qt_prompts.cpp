#include "widgets/qt_prompts.h"

#include "core/product.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

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

QWidget* parentWindow()
{
    QWidget* active = QApplication::activeWindow();
    return active && active->isVisible() ? active : nullptr;
}

} // namespace

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
