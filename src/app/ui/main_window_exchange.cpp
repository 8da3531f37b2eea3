#include "app/ui/main_window.h"

#include "core/session.h"
#include "exchange/texts.h"
#include "exchange/word_export.h"
#include "exchange/word_import.h"
#include "widgets/list_box.h"

#include <QFileDialog>
#include <QProgressDialog>

#include <memory>

namespace quorvane {

namespace {

// The progress of an import in a dialog with a Cancel button. The dialog is made at the first step
// still to come (its own timer would otherwise show it over the boxes that follow the import), shows
// itself when the import lasts long enough to need it, and goes at the last step.
class DialogProgress : public ImportProgress
{
public:
    DialogProgress(QWidget* parent, const QString& path) : m_parent(parent), m_path(path) {}
    bool advance(qsizetype done, qsizetype total) override
    {
        if (done >= total) {
            m_dialog.reset();
            return true;
        }
        if (!m_dialog) {
            m_dialog = std::make_unique<QProgressDialog>(exchange_texts::progressLabel(m_path), QObject::tr("Cancel"),
                                                         0, static_cast<int>(total), m_parent);
            m_dialog->setWindowTitle(exchange_texts::kImportTitle);
            m_dialog->setWindowModality(Qt::WindowModal);
            m_dialog->setMinimumDuration(500);
        }
        m_dialog->setValue(static_cast<int>(done));
        return !m_dialog->wasCanceled();
    }

private:
    QWidget* m_parent;
    QString m_path;
    std::unique_ptr<QProgressDialog> m_dialog;
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
