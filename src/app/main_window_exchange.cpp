#include "app/main_window.h"

#include "core/session.h"
#include "exchange/texts.h"
#include "exchange/word_export.h"
#include "exchange/word_import.h"
#include "widgets/list_box.h"

#include <QFileDialog>
#include <QProgressDialog>

namespace quorvane {

namespace {

// The progress of an import in a dialog with a Cancel button; it shows itself only when the
// import lasts long enough to need it.
class DialogProgress : public ImportProgress
{
public:
    DialogProgress(QWidget* parent, const QString& path)
        : m_dialog(exchange_texts::progressLabel(path), QObject::tr("Cancel"), 0, 0, parent)
    {
        m_dialog.setWindowTitle(exchange_texts::kImportTitle);
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(500);
        m_dialog.setAutoClose(false);
        m_dialog.setAutoReset(false);
    }
    bool advance(qsizetype done, qsizetype total) override
    {
        m_dialog.setMaximum(static_cast<int>(total));
        m_dialog.setValue(static_cast<int>(done));
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog m_dialog;
};

} // namespace

void MainWindow::import_word_list(const QString& path)
{
    guarded([this, path] {
        DialogProgress progress(this, path);
        const auto list = quorvane::import_word_list(*m_session, path, &progress);
        if (!list)
            return;
        // The language is chosen again, which lists the new list; then the list is shown.
        lang_list_click();
        const auto found = lists_list->findItems(*list, Qt::MatchExactly);
        if (!found.isEmpty())
            select_row(lists_list, lists_list->row(found.first()));
    });
}

void MainWindow::export_word_list(const QString& path)
{
    guarded([this, path] { quorvane::export_word_list(*m_session, path); });
}

void MainWindow::import_list_click()
{
    const QString path =
        QFileDialog::getOpenFileName(this, exchange_texts::kImportTitle, QString(), exchange_texts::kImportFilter);
    if (!path.isEmpty())
        import_word_list(path);
}

void MainWindow::export_list_click()
{
    const QString path =
        QFileDialog::getSaveFileName(this, exchange_texts::kExportTitle,
                                     m_session->current_list + QStringLiteral(".csv"), exchange_texts::kExportFilter);
    if (!path.isEmpty())
        export_word_list(path);
}

} // namespace quorvane
