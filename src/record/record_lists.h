#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quorvane {

class Session;

// Which pair of lists of the record window a row belongs to, as selected_list_kind says it.
inline const QString kWithSounds = QStringLiteral("with sounds");
inline const QString kWithoutSounds = QStringLiteral("without sounds");

// The entries of one pair of lists: fields 1 to 3, parallel, the index being the row. The arrays
// hold at least one slot more than there are rows; the extra slots are empty.
struct RecordArrays
{
    QStringList words;
    QStringList translations;
    QStringList sound_numbers;
    int count = 0; // rows
};

// The record window's two pairs of lists and the captions of their count labels.
struct RecordLists
{
    RecordArrays with;
    RecordArrays without;
    QString withCaption;
    QString withoutCaption;

    const RecordArrays& of(const QString& kind) const { return kind == kWithSounds ? with : without; }
};

// Whether a sound number has a recording in the current language: a new ".str" one or an
// installed ".mp3" one.
bool has_sound_file(const Session& session, const QString& soundNumber);

// The entries of list_file split by whether they have a recording; entries without a sound number
// are in neither. The labels count the rows. When no entry has a recording the with-arrays are
// still sized for one row, and so are the without-arrays if they are empty too (the without-arrays
// are never raised on their own). Nothing, with error naming the list file and the cause, when it
// cannot be read. Throws TableLimitError for more than 20001 entries of one kind.
std::optional<RecordLists> create_arrays(const Session& session, QString* error);

// The single entry at one_word_index of the main window's word arrays, in the list it belongs
// to; the labels carry no counts.
RecordLists create_word(const Session& session);

// The font of the edit boxes for a word: 8 points from 61 characters up, otherwise 10 points bold.
struct EditBoxFont
{
    int points;
    bool bold;
};
EditBoxFont edit_box_font(const QString& word);

} // namespace quorvane
