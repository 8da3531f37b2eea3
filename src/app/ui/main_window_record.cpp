#include "app/ui/main_window.h"

#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "record/texts.h"
#include "record/ui/record_window.h"
#include "widgets/list_box.h"

namespace quorvane {

void MainWindow::record_word_word_click()
{
    guarded([this] {
        Session& s = *m_session;
        s.one_word_index = QString::number(words_list->currentRow());
        if (s.one_word_index == QStringLiteral("-1")) {
            s.prompts.message(record_texts::kSelectWordToRecord);
            return;
        }
        hide();
        s.one_word_mode = flags::kYes;
        (new RecordWindow(s, this))->form_load();
    });
}

void MainWindow::record_word_list_click()
{
    guarded([this] {
        Session& s = *m_session;
        s.one_word_mode = flags::kNo;
        // list_file stays set after a language click has cleared the shown list.
        if (s.list_file.isEmpty()) {
            s.prompts.message(record_texts::kSelectListToRecord);
            return;
        }
        hide();
        s.one_word_index.clear();
        (new RecordWindow(s, this))->form_load();
    });
}

} // namespace quorvane
