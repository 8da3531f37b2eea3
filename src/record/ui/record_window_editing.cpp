// The record window's editing, list-editor and packing buttons: each reads the two edit boxes and
// the entry clicked last, and calls the core.
#include "record/ui/record_window.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "editor/ui/edit_list_window.h"
#include "record/editing.h"
#include "record/packing.h"
#include "record/texts.h"

#include <QLabel>
#include <QLineEdit>

namespace quorvane {

namespace {

EditedEntry editedEntry(const RecordWindow& window)
{
    return {window.left_word->text(), window.right_word->text(), window.state.current_sound_number};
}

} // namespace

void RecordWindow::add_word_click()
{
    guarded([this] {
        QString error;
        if (!quorvane::add_word(m_session, editedEntry(*this), &error))
            m_session.prompts.message(record_texts::addFailed(error));
    });
}

void RecordWindow::save_text_click()
{
    guarded([this] {
        const QString kind = state.selected_list_kind;
        QString error;
        if (const auto next = quorvane::save_text(m_session, editedEntry(*this), selectedRow(kind), flags::kNo, &error))
            selectRow(kind, *next);
        else
            m_session.prompts.message(record_texts::saveFailed(error));
    });
}

void RecordWindow::delete_word_click()
{
    guarded([this] {
        const QString kind = state.selected_list_kind;
        QString error;
        if (const auto next = quorvane::delete_word(m_session, editedEntry(*this), selectedRow(kind), &error))
            selectRow(kind, *next);
        else
            m_session.prompts.message(record_texts::deleteFailed(error));
    });
}

void RecordWindow::Command1_click()
{
    guarded([this] { open_edit_list(m_session, parentWidget()); });
}

void RecordWindow::zip_click()
{
    guarded([this] { pack_recordings(m_session, this); });
}

void RecordWindow::show_packing_progress(const QString& text)
{
    countdown->setText(text);
}

} // namespace quorvane
