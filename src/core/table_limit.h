#pragma once

#include <QString>

#include <stdexcept>

namespace quorvane {

// Fixed table sizes of the data files.
constexpr int kMaxWordEntries = 30001;
constexpr int kMaxKnownLines = 20001;
constexpr int kMaxSoundNumber = 99999;

// A data file goes past a fixed table, or a line cannot be read at all. Thrown before anything
// is written; the window that ran the operation shows the text and stays up.
class TableLimitError : public std::runtime_error
{
public:
    explicit TableLimitError(const QString& text) : std::runtime_error(text.toStdString()), m_text(text) {}
    const QString& text() const { return m_text; }

private:
    QString m_text;
};

} // namespace quorvane
