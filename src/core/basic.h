#pragma once

#include <QString>

#include <optional>

// Conversions between text and numbers with the semantics the data files and the boxes of the
// program were designed around: 16-bit whole numbers, rounding halves to even, leading-number
// parsing and the shortest general form of a single-precision number.
namespace quorvane::basic {

// Rounds to the nearest whole number, halves to even (2.5 gives 2, 3.5 gives 4).
double roundHalfEven(double value);

// A 16-bit whole number from a number: nothing when it lies outside -32768..32767.
std::optional<qint16> toInteger(double value);
// A 16-bit whole number from text (blanks around it allowed, halves to even); nothing when the
// text is empty, not a number, or out of range.
std::optional<qint16> toInteger(const QString& text);
// A 32-bit whole number from text, likewise.
std::optional<qint32> toLong(const QString& text);
// A single-precision number from text; nothing when the text is not a number.
std::optional<float> toSingle(const QString& text);
// The leading number of a text: blanks skipped, then digits with an optional sign, decimal
// point and exponent; the rest ignored. A text without a leading number gives 0.
double leadingNumber(const QString& text);
// The whole part, towards minus infinity.
double wholePart(double value);
// A single-precision number in its shortest general form: 0.8 gives "0.8", 2 gives "2".
QString general(float value);

} // namespace quorvane::basic
