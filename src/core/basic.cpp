#include "core/basic.h"

#include <cmath>
#include <limits>

namespace quorvane::basic {

namespace {

std::optional<double> toNumber(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    bool ok = false;
    const double value = trimmed.toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace

double roundHalfEven(double value)
{
    return std::nearbyint(value); // the default floating-point rounding mode rounds halves to even
}

std::optional<qint16> toInteger(double value)
{
    const double rounded = roundHalfEven(value);
    if (!std::isfinite(rounded) || rounded < std::numeric_limits<qint16>::min() ||
        rounded > std::numeric_limits<qint16>::max())
        return std::nullopt;
    return static_cast<qint16>(rounded);
}

std::optional<qint16> toInteger(const QString& text)
{
    const auto value = toNumber(text);
    return value ? toInteger(*value) : std::nullopt;
}

std::optional<qint32> toLong(const QString& text)
{
    const auto value = toNumber(text);
    if (!value)
        return std::nullopt;
    const double rounded = roundHalfEven(*value);
    if (rounded < std::numeric_limits<qint32>::min() || rounded > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return static_cast<qint32>(rounded);
}

std::optional<float> toSingle(const QString& text)
{
    const auto value = toNumber(text);
    if (!value || std::fabs(*value) > std::numeric_limits<float>::max())
        return std::nullopt;
    return static_cast<float>(*value);
}

double leadingNumber(const QString& text)
{
    qsizetype i = 0;
    while (i < text.size() && (text.at(i) == u' ' || text.at(i) == u'\t'))
        ++i;
    const qsizetype start = i;
    if (i < text.size() && (text.at(i) == u'+' || text.at(i) == u'-'))
        ++i;
    bool digits = false;
    while (i < text.size() && text.at(i).isDigit()) {
        ++i;
        digits = true;
    }
    if (i < text.size() && text.at(i) == u'.') {
        ++i;
        while (i < text.size() && text.at(i).isDigit()) {
            ++i;
            digits = true;
        }
    }
    if (!digits)
        return 0.0;
    qsizetype end = i;
    if (i < text.size() && (text.at(i) == u'e' || text.at(i) == u'E')) {
        qsizetype j = i + 1;
        if (j < text.size() && (text.at(j) == u'+' || text.at(j) == u'-'))
            ++j;
        if (j < text.size() && text.at(j).isDigit()) {
            while (j < text.size() && text.at(j).isDigit())
                ++j;
            end = j;
        }
    }
    return text.mid(start, end - start).toDouble();
}

double wholePart(double value)
{
    return std::floor(value);
}

QString general(float value)
{
    return QString::number(static_cast<double>(value), 'g', 7);
}

} // namespace quorvane::basic
