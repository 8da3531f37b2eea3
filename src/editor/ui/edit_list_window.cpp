#include "editor/ui/edit_list_window.h"

#include "core/prompts.h"
#include "core/session.h"
#include "editor/list_editor.h"
#include "editor/texts.h"
#include "widgets/announce_texts.h"
#include "widgets/controls.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextDocument>
#include <QVBoxLayout>

namespace quorvane {

EditListWindow::EditListWindow(Session& session, QWidget* parent)
    : ActivityWindow(session, parent, MainWindowOnClose::leave)
{
    setObjectName(QStringLiteral("edit_list"));
    setWindowTitle(editor_texts::title());
    const QFont buttonFont = controls::font(controls::kSansSerif, 8, true);
    save_and_exit = controls::button(this, QStringLiteral("save_and_exit"), editor_texts::saveCaption(), buttonFont);
    save_and_exit_unicode =
        controls::button(this, QStringLiteral("save_and_exit_unicode"), editor_texts::saveUnicodeCaption(), buttonFont);
    start_new_list =
        controls::button(this, QStringLiteral("start_new_list"), editor_texts::startNewListCaption(), buttonFont);
    exit_without_save =
        controls::button(this, QStringLiteral("exit_without_save"), editor_texts::exitWithoutSaveCaption(), buttonFont);
    Label1 = controls::label(this, QStringLiteral("Label1"), editor_texts::instructions(),
                             controls::font(controls::kSansSerif, 8));
    Label1->setWordWrap(true);
    list_name = controls::label(this, QStringLiteral("list_name"), QString(), controls::font(controls::kSansSerif, 8));
    TextBox1 = controls::textBox(this, QStringLiteral("TextBox1"), controls::font(controls::kArial, 10));
    controls::announceAs(TextBox1, announce_texts::kListText);
    TextBox1->setLineWrapMode(QPlainTextEdit::NoWrap);

    connect(save_and_exit, &QPushButton::clicked, this, &EditListWindow::save_and_exit_click);
    connect(save_and_exit_unicode, &QPushButton::clicked, this, &EditListWindow::save_and_exit_unicode_click);
    connect(start_new_list, &QPushButton::clicked, this, &EditListWindow::start_new_list_click);
    connect(exit_without_save, &QPushButton::clicked, this, &EditListWindow::exit_without_save_click);
    buildLayout();
}

void EditListWindow::buildLayout()
{
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {save_and_exit, exit_without_save, save_and_exit_unicode, start_new_list}) {
        button->setMinimumHeight(30);
        buttons->addWidget(button);
    }
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(10, 10, 10, 10);
    page->setSpacing(8);
    page->addWidget(Label1);
    page->addWidget(list_name);
    page->addWidget(TextBox1, 1);
    page->addLayout(buttons);
    list_name->hide();
    resize(820, 600);
}

void EditListWindow::form_load()
{
    guarded([this] {
        const ListEditorOpening opening = open_list_editor(m_session);
        m_listPath = opening.list_path;
        TextBox1->setPlainText(opening.text);
    });
    show();
}

void EditListWindow::save_and_exit_click()
{
    guarded([this] {
        QString error;
        // The raw text keeps every character as the file had it (a plain-text copy would turn
        // no-break spaces into blanks).
        if (save_list_text(m_listPath, TextBox1->document()->toRawText(), &error))
            close();
        else
            m_session.prompts.message(editor_texts::notSaved(m_listPath, error));
    });
}

void EditListWindow::save_and_exit_unicode_click()
{
    // Kept: this button has no action.
}

void EditListWindow::start_new_list_click()
{
    guarded([this] {
        const auto outcome = quorvane::start_new_list(m_session);
        if (!outcome)
            return;
        m_listPath = outcome->list_path;
        if (outcome->clear_text)
            TextBox1->clear();
        list_name->setText(outcome->caption.trimmed().replace(u'\r', u'\n'));
        list_name->show();
    });
}

void EditListWindow::exit_without_save_click()
{
    close();
}

EditListWindow* open_edit_list(Session& session, QWidget* mainWindow)
{
    auto* window = new EditListWindow(session, mainWindow);
    window->form_load();
    return window;
}

} // namespace quorvane
