#include "app/main_window.h"

namespace quorvane {

void MainWindow::flash_cards_click() {}
void MainWindow::small_flash_click() {}
void MainWindow::known_lists_dblclick() {}

} // namespace quorvane
