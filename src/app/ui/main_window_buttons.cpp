#include "app/ui/main_window.h"

#include "core/prompts.h"
#include "core/session.h"
#include "flash/texts.h"
#include "flash/ui/flash_window.h"
#include "flash/ui/small_flash_window.h"

#include <QPointer>

namespace quorvane {

FlashWindow* MainWindow::flashWindow()
{
    // A window closed while its loop unwinds is on its way out: the next run gets a fresh one.
    if (!m_flashWindow || m_flashWindow->unloaded())
        m_flashWindow = new FlashWindow(*m_session, this);
    return m_flashWindow;
}

SmallFlashWindow* MainWindow::smallFlashWindow()
{
    if (!m_smallFlashWindow || m_smallFlashWindow->unloaded())
        m_smallFlashWindow = new SmallFlashWindow(*m_session, this);
    return m_smallFlashWindow;
}

void MainWindow::flash_cards_click()
{
    guarded([this] {
        if (m_session->shown_file.isEmpty()) {
            m_session->prompts.message(flash_texts::kSelectListFirst);
            return;
        }
        hide();
        flashWindow()->playwords();
    });
}

void MainWindow::small_flash_click()
{
    guarded([this] {
        if (m_session->shown_file.isEmpty()) {
            m_session->prompts.message(flash_texts::kSelectListFirst);
            return;
        }
        hide();
        // The small card is made to stay above every other window before it plays.
        smallFlashWindow()->playwords();
    });
}

void MainWindow::known_lists_dblclick()
{
    guarded([this] {
        // A list refused (a table limit throws through this guard) or not read starts nothing.
        if (!showList(known_lists, true))
            return;
        // Neither checked nor hidden behind the cards: the main window stays in view, and the
        // cards' window goes as soon as they stop, by pause included.
        QPointer<FlashWindow> flash = flashWindow();
        flash->playwords();
        if (flash && !flash->unloaded())
            flash->close();
    });
}

} // namespace quorvane
