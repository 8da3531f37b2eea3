#include "app/ui/main_window.h"

#include "app/selection.h"
#include "app/texts.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "sound/playback.h"
#include "store/paths.h"
#include "store/texts.h"
#include "store/word_files.h"
#include "store/word_moves.h"
#include "widgets/list_box.h"

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QSignalBlocker>

namespace quorvane {

namespace {

// The colours of the design are given as Windows BGR values (0x00BBGGRR).
QColor fromBgr(unsigned bgr)
{
    return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
}

constexpr unsigned kUnknownWordsBgr = 0x600000;
constexpr unsigned kKnownLabelBgr = 0xC00000;
constexpr unsigned kKnownWordsBgr = 0xA00000;

// A double-click selects this many rows further first, so that the word stays in view with the
// words after it.
constexpr int kRowsShownAfter = 17;

using flags::kNo;
using flags::kYes;

QString selectedText(const ListBox* box)
{
    const QListWidgetItem* item = box->currentItem();
    return item ? item->text() : QString();
}

void setTextColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour)
{
    QPalette palette = widget->palette();
    palette.setColor(role, colour);
    widget->setPalette(palette);
}

// Makes a box show texts, as if cleared and filled again: nothing selected afterwards, and no
// click handler run. Only the rows between the unchanged first and last rows are replaced, so a
// move, which takes one row out of tens of thousands, costs one row; anything else is refilled
// with painting held back.
void showTexts(ListBox* box, const QStringList& texts)
{
    const int before = box->count();
    const int after = static_cast<int>(texts.size());
    int first = 0;
    while (first < before && first < after && box->item(first)->text() == texts.at(first))
        ++first;
    int last = 0;
    while (last < before - first && last < after - first &&
           box->item(before - 1 - last)->text() == texts.at(after - 1 - last))
        ++last;

    box->setUpdatesEnabled(false);
    box->setUniformItemSizes(true);
    if (first == 0 && last == 0) {
        // The rows there are take the new texts, quietly, and the box is then reset as a cleared
        // one is: tens of thousands of rows deleted and made again cost more than the texts.
        const int kept = std::min(before, after);
        {
            const QSignalBlocker quietModel(box->model());
            for (int row = 0; row < kept; ++row)
                box->item(row)->setText(texts.at(row));
        }
        for (int row = before - 1; row >= kept; --row)
            delete box->takeItem(row);
        box->addItems(texts.mid(kept));
        box->reset();
        box->scrollToTop();
    } else {
        // Rows shifting under the current one must not look like a selection to the box.
        const QSignalBlocker quiet(box);
        for (int row = before - last - 1; row >= first; --row)
            delete box->takeItem(row);
        box->insertItems(first, texts.mid(first, after - first - last));
        box->selectionModel()->clear();
    }
    box->setUpdatesEnabled(true);
}

} // namespace

void MainWindow::lang_list_click()
{
    guarded([this] {
        const LanguageLists lists = choose_language(*m_session, selectedText(lang_list));
        for (ListBox* box : {words_list, words_liste, lists_list, known_lists})
            box->clear();
        txt_word_search->setVisible(true);
        txt_word_search2->setVisible(true);
        Label9->setVisible(true);
        lists_list->addItems(lists.lists);
        known_lists->addItems(lists.known_lists);
        if (!lists.error.isEmpty())
            m_session->prompts.message(lists.error);
        // The search boxes just shown are typed into next: their master is made ready meanwhile.
        if (QFileInfo::exists(m_session->master_file))
            m_masterCache.prepareAhead(m_session->master_file);
    });
}

void MainWindow::refresh_known_list()
{
    known_lists->clear();
    known_lists->addItems(known_lists_of(*m_session));
}

void MainWindow::create_array_of_words(const QString& path)
{
    guarded([this, &path] {
        if (QString error; !quorvane::create_array_of_words(*m_session, path, &error))
            m_session->prompts.message(error);
    });
}

void MainWindow::generate_unknowns_file()
{
    guarded([this] {
        if (QString error; !quorvane::generate_unknowns_file(*m_session, &error))
            m_session->prompts.message(error);
    });
}

void MainWindow::lists_list_click()
{
    guarded([this] { showList(lists_list, false); });
}

void MainWindow::known_lists_click()
{
    guarded([this] { showList(known_lists, true); });
}

bool MainWindow::showList(ListBox* box, bool known)
{
    Session& s = *m_session;
    // Opening a known list makes the list's unknown file too when it is missing.
    QString told;
    const bool shown = choose_list(s, selectedText(box), known, &told);
    if (!told.isEmpty())
        s.prompts.message(told);
    // The boxes show the list from its top with nothing selected, as if cleared and filled; rows
    // whose text stays are kept.
    display_words();
    for (ListBox* words : {words_list, words_liste}) {
        words->selectionModel()->reset();
        words->scrollToTop();
    }

    const int count = s.wordCount();
    Label8->setText(known ? store_texts::knownWordsCaption(count) : store_texts::unknownWordsCaption(count));
    const QColor labelColour =
        known ? fromBgr(kKnownLabelBgr) : QApplication::palette(Label8).color(QPalette::ButtonText);
    setTextColour(Label8, QPalette::WindowText, labelColour);
    const QColor wordsColour = fromBgr(known ? kKnownWordsBgr : kUnknownWordsBgr);
    setTextColour(words_list, QPalette::Text, wordsColour);
    setTextColour(words_liste, QPalette::Text, wordsColour);
    showDueCount(true);
    return shown;
}

void MainWindow::display_words()
{
    const Session& s = *m_session;
    QStringList shownWords;
    QStringList shownTranslations;
    shownWords.reserve(s.words.size());
    shownTranslations.reserve(s.words.size());
    // Entries without a sound number stay in the arrays but get no row, so every later row is
    // one less than its index in the arrays; the handlers use rows as indexes all the same.
    for (qsizetype i = 0; i < s.words.size(); ++i) {
        if (!s.sound_numbers.at(i).isEmpty()) {
            shownWords.append(s.words.at(i));
            shownTranslations.append(s.translations.at(i));
        }
    }
    showTexts(words_list, shownWords);
    showTexts(words_liste, shownTranslations);
}

void MainWindow::words_list_click()
{
    guarded([this] {
        // "yes": this selection was made by a click on the translation, which says it itself.
        if (m_syncFlag == kYes)
            return;
        const int row = words_list->currentRow();
        m_syncFlag = kNo;
        select_row(words_liste, row);
        m_syncFlag.clear();
        Session& s = *m_session;
        say_word(s, s.sound_numbers.value(row), s.current_language, s.words.value(row));
    });
}

void MainWindow::words_liste_click()
{
    guarded([this] {
        // "no": this selection was made by a click on the word, which says it itself.
        if (m_syncFlag == kNo)
            return;
        const int row = words_liste->currentRow();
        m_syncFlag = kYes;
        select_row(words_list, row);
        m_syncFlag.clear();
        Session& s = *m_session;
        // A sound number that names no slot of the pairing table has no translation recording.
        if (const auto translation = translation_sound_number(s, s.sound_numbers.value(row)))
            say_word(s, *translation, s.target_language, s.translations.value(row));
    });
}

void MainWindow::words_list_dblclick()
{
    guarded([this] {
        Session& s = *m_session;
        const int row = words_list->currentRow();
        QString error;
        const bool fresh = s.shown_file.endsWith(paths::kKnownSuffix) ? move_to_unknown(s, row, &error)
                                                                      : move_to_known(s, row, &error);
        if (!error.isEmpty())
            s.prompts.message(error);
        // A known file just made is listed now, one just emptied is removed.
        refresh_known_list();
        // Arrays of anything but the shown file (search results) stay, as do the rows showing them;
        // those of the shown file are read again unless the move has just done so.
        if (!fresh && s.words_file == s.shown_file && !s.shown_file.isEmpty() &&
            !quorvane::create_array_of_words(s, s.shown_file, &error))
            s.prompts.message(error);

        // Selecting rows from code runs the word click, which says nothing while the recording
        // flag is "yes". Selecting further down first keeps the rows after the word in view; a
        // row past the end selects nothing.
        s.recording_active = kYes;
        select_row(words_list, row + kRowsShownAfter);
        select_row(words_list, row);
        // Kept as designed: the flag is left at "on", which counts as not set.
        s.recording_active = QStringLiteral("on");
        // The word click has already put the translation box on the same row; selecting it again
        // would say the translation, so only a box that differs is moved.
        if (words_liste->currentRow() != words_list->currentRow())
            select_row(words_liste, words_list->currentRow());
        Label8->setText(store_texts::wordsCaption(s.wordCount()));
        showDueCount(true);
    });
}

} // namespace quorvane
