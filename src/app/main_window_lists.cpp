#include "app/main_window.h"

#include "app/list_box.h"
#include "app/session.h"

namespace quorvane {

void MainWindow::lang_list_click()
{
    if (QListWidgetItem* item = lang_list->currentItem())
        m_session->current_language = item->text();
}

void MainWindow::lists_list_click() {}
void MainWindow::known_lists_click() {}
void MainWindow::words_list_click() {}
void MainWindow::words_liste_click() {}
void MainWindow::words_list_dblclick() {}
void MainWindow::display_words() {}
void MainWindow::refresh_known_list() {}
void MainWindow::showList(ListBox*, bool) {}

} // namespace quorvane
