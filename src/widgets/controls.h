#pragma once

#include <QFont>
#include <QList>
#include <QString>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QWidget;

namespace quorvane {

class ListBox;

// The one place where controls are made: each gets its documented name as objectName, its
// caption and its font. Every window of the program builds its controls through these.
namespace controls {

// The two font families of the design. Where they are not installed they are drawn with
// metric-compatible fonts, set once at start by installFontSubstitutions().
inline const QString kSansSerif = QStringLiteral("MS Sans Serif");
inline const QString kArial = QStringLiteral("Arial");
void installFontSubstitutions();

QFont font(const QString& family, int points, bool bold = false);

QLabel* label(QWidget* parent, const QString& name, const QString& caption, const QFont& font);
QPushButton* button(QWidget* parent, const QString& name, const QString& caption, const QFont& font);
QLineEdit* lineEdit(QWidget* parent, const QString& name, const QFont& font);
QPlainTextEdit* textBox(QWidget* parent, const QString& name, const QFont& font);
QRadioButton* optionButton(QWidget* parent, const QString& name, const QString& caption, const QFont& font);
QCheckBox* checkBox(QWidget* parent, const QString& name, const QString& caption, const QFont& font);
ListBox* listBox(QWidget* parent, const QString& name, const QFont& font);

// A list or text box takes the label beside it as its buddy and as the name a screen reader
// announces (captioned controls are announced by their captions already).
void labelFor(QLabel* label, QWidget* control);
// Tab moves through controls in this order (the order the eye reads the window).
void tabOrder(const QList<QWidget*>& controls);
// The name a screen reader announces for a box with no label beside it.
void announceAs(QWidget* control, const QString& accessibleName);

} // namespace controls

} // namespace quorvane
