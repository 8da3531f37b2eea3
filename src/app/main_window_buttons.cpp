#include "app/main_window.h"

namespace quorvane {

void MainWindow::flash_cards_click() {}
void MainWindow::small_flash_click() {}

} // namespace quorvane
