#pragma once

#include <QFont>
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

} // namespace controls

} // namespace quorvane
