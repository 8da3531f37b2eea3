#include "widgets/controls.h"

#include "widgets/list_box.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

namespace quorvane::controls {

namespace {

template <typename Control> Control* named(Control* control, const QString& name, const QFont& font)
{
    control->setObjectName(name);
    control->setFont(font);
    return control;
}

} // namespace

void installFontSubstitutions()
{
    QFont::insertSubstitutions(kArial, {QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans")});
    QFont::insertSubstitutions(kSansSerif, {QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans")});
}

QFont font(const QString& family, int points, bool bold)
{
    QFont result(family);
    result.setPointSize(points);
    result.setBold(bold);
    return result;
}

QLabel* label(QWidget* parent, const QString& name, const QString& caption, const QFont& font)
{
    return named(new QLabel(caption, parent), name, font);
}

QPushButton* button(QWidget* parent, const QString& name, const QString& caption, const QFont& font)
{
    return named(new QPushButton(caption, parent), name, font);
}

QLineEdit* lineEdit(QWidget* parent, const QString& name, const QFont& font)
{
    return named(new QLineEdit(parent), name, font);
}

QPlainTextEdit* textBox(QWidget* parent, const QString& name, const QFont& font)
{
    return named(new QPlainTextEdit(parent), name, font);
}

QRadioButton* optionButton(QWidget* parent, const QString& name, const QString& caption, const QFont& font)
{
    return named(new QRadioButton(caption, parent), name, font);
}

QCheckBox* checkBox(QWidget* parent, const QString& name, const QString& caption, const QFont& font)
{
    return named(new QCheckBox(caption, parent), name, font);
}

ListBox* listBox(QWidget* parent, const QString& name, const QFont& font)
{
    auto* box = new ListBox(name, parent);
    box->setFont(font);
    return box;
}

void labelFor(QLabel* label, QWidget* control)
{
    label->setBuddy(control);
    QString text = label->text();
    text.remove(u'&');
    announceAs(control, text.simplified());
}

void tabOrder(const QList<QWidget*>& controls)
{
    QWidget* previous = nullptr;
    for (QWidget* control : controls) {
        if (previous)
            QWidget::setTabOrder(previous, control);
        previous = control;
    }
}

void announceAs(QWidget* control, const QString& accessibleName)
{
    control->setAccessibleName(accessibleName);
}

} // namespace quorvane::controls
