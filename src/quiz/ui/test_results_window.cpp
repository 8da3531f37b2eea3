#include "quiz/ui/test_results_window.h"

#include "core/prompts.h"
#include "core/session.h"
#include "quiz/texts.h"
#include "store/text_files.h"
#include "widgets/announce_texts.h"
#include "widgets/controls.h"

#include <QAbstractTextDocumentLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTextDocument>
#include <QVBoxLayout>

namespace quorvane {

namespace {

constexpr int kTextPoints = 10;
const QString kLineEnd = QStringLiteral("\r\n");

} // namespace

TestResultsWindow::TestResultsWindow(Session& session, QWidget* parent) : ActivityWindow(session, parent)
{
    setObjectName(QStringLiteral("test_results"));
    setWindowTitle(quiz_texts::resultsTitle());
    const QFont text = controls::font(controls::kArial, kTextPoints);
    setFont(text);

    TextBox1 = controls::textBox(this, QStringLiteral("TextBox1"), QFont(QStringLiteral("Courier New"), kTextPoints));
    controls::announceAs(TextBox1, announce_texts::kResults);
    TextBox1->setLineWrapMode(QPlainTextEdit::NoWrap);
    Label1 = controls::label(this, QStringLiteral("Label1"), quiz_texts::resultsNote(), text);
    Label1->setWordWrap(true);
    save_and_exit = controls::button(this, QStringLiteral("save_and_exit"), quiz_texts::saveCaption(), text);
    print_test_results = controls::button(this, QStringLiteral("print_test_results"), quiz_texts::printCaption(), text);
    exit_without_save = controls::button(this, QStringLiteral("exit_without_save"), quiz_texts::exitCaption(), text);

    connect(save_and_exit, &QPushButton::clicked, this, &TestResultsWindow::save_and_exit_click);
    connect(print_test_results, &QPushButton::clicked, this, &TestResultsWindow::print_test_results_click);
    connect(exit_without_save, &QPushButton::clicked, this, &TestResultsWindow::exit_without_save_click);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(save_and_exit);
    buttons->addWidget(print_test_results, 1);
    buttons->addWidget(exit_without_save);
    auto* page = new QVBoxLayout(this);
    page->addWidget(TextBox1, 1);
    page->addWidget(Label1);
    page->addLayout(buttons);
    resize(900, 480);
}

void TestResultsWindow::form_load()
{
    // The box shows lines; the files it came from and goes to end them with CR LF.
    QString text = m_session.report_text;
    text.replace(kLineEnd, QStringLiteral("\n"));
    TextBox1->setPlainText(text);
}

void TestResultsWindow::save_and_exit_click()
{
    guarded([this] {
        // The path is taken as typed: relative to the program folder, no extension added, an
        // existing file replaced without asking.
        const QString path = m_session.prompts.input(quiz_texts::savePrompt(), quiz_texts::saveTitle());
        QString text = TextBox1->toPlainText();
        text.replace(u'\n', kLineEnd);
        QString error;
        if (!writeBytes(path, encodeWindows1252(text + kLineEnd), &error)) {
            m_session.prompts.message(quiz_texts::saveFailed(path, error));
            return;
        }
        close();
    });
}

void TestResultsWindow::print_test_results_click()
{
    guarded([this] {
        const QPrinterInfo info = QPrinterInfo::defaultPrinter();
        if (info.isNull()) {
            m_session.prompts.message(quiz_texts::noPrinter());
            return;
        }
        QPrinter printer(info);
        if (!printTo(printer))
            m_session.prompts.message(quiz_texts::printFailed());
    });
}

bool TestResultsWindow::printTo(QPrinter& printer)
{
    QTextDocument document;
    document.setDefaultFont(TextBox1->font());
    document.setPlainText(TextBox1->toPlainText());
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    document.documentLayout()->setPaintDevice(&printer);
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    document.setPageSize(page.size());
    const int pages = document.pageCount();
    for (int i = 0; i < pages; ++i) {
        if (i > 0)
            printer.newPage();
        painter.save();
        painter.translate(0, -i * page.height());
        document.drawContents(&painter, QRectF(0, i * page.height(), page.width(), page.height()));
        painter.restore();
    }
    // Ending the painter hands the job to the printing system, which may finish it later.
    return painter.end();
}

void TestResultsWindow::exit_without_save_click()
{
    close();
}

} // namespace quorvane
