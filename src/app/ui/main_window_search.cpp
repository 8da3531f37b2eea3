#include "app/ui/main_window.h"

#include "app/start_up.h"
#include "core/prompts.h"
#include "core/session.h"
#include "store/new_language.h"
#include "store/search.h"
#include "store/texts.h"
#include "widgets/list_box.h"

#include <QLineEdit>

namespace quorvane {

void MainWindow::search_master_list(int field)
{
    guarded([this, field] {
        const QString text = (field == 0 ? txt_word_search : txt_word_search2)->text();
        QString error;
        if (quorvane::search_master_list(*m_session, field, text, m_masterCache, &error))
            display_words();
        else if (!error.isEmpty())
            m_session->prompts.message(error);
    });
}

void MainWindow::txt_word_search_change()
{
    search_master_list(0);
}

void MainWindow::txt_word_search2_change()
{
    search_master_list(1);
}

void MainWindow::create_trans_index()
{
    guarded([this] {
        if (QString error; !quorvane::create_trans_index(*m_session, &error))
            m_session->prompts.message(error);
    });
}

void MainWindow::pair_recordings_click()
{
    guarded([this] {
        Session& s = *m_session;
        QString error;
        if (const auto pairs = quorvane::pair_recordings(s, &error))
            s.prompts.message(
                store_texts::pairingWritten(*pairs, s.current_language, s.target_language, s.trans_index_file));
        else
            s.prompts.message(error);
    });
}

void MainWindow::new_language_click()
{
    guarded([this] {
        if (QString error; !quorvane::new_language(*m_session, &error)) {
            if (!error.isEmpty())
                m_session->prompts.message(error);
            return;
        }
        // Kept as designed: the languages are added without clearing the box, so each one is listed
        // twice until the next start.
        lang_list->addItems(installed_languages(*m_session));
        words_list->clear();
        words_liste->clear();
        select_row(lang_list, 0);
    });
}

void MainWindow::add_list_click()
{
    guarded([this] {
        QString error;
        if (quorvane::add_list(*m_session, &error))
            lang_list_click();
        else if (!error.isEmpty())
            m_session->prompts.message(error);
    });
}

} // namespace quorvane
