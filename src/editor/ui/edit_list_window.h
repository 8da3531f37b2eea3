#pragma once

#include "widgets/activity_window.h"

#include <QString>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace quorvane {

// The list editor, edit_list: one word-list file of the current language as plain text in
// TextBox1, written back by save_and_exit. Closing it leaves the main window as it is.
class EditListWindow : public ActivityWindow
{
    Q_OBJECT
public:
    // parent is the main window, so that sessionOf finds the session.
    explicit EditListWindow(Session& session, QWidget* parent = nullptr);

    // The file a save writes.
    const QString& listPath() const { return m_listPath; }

    QPushButton* save_and_exit;
    QPushButton* save_and_exit_unicode;
    QPushButton* start_new_list;
    QPushButton* exit_without_save;
    QLabel* Label1;
    QLabel* list_name; // the language and list, once start_new_list was given a name
    QPlainTextEdit* TextBox1;

public slots:
    void form_load();
    void save_and_exit_click();
    void save_and_exit_unicode_click();
    void start_new_list_click();
    void exit_without_save_click();

private:
    void buildLayout();

    QString m_listPath;
};

// Opens the list editor on the session's current language and list, as the record window's
// Command1 does: made with mainWindow as its parent, loaded and shown. Gives the window.
EditListWindow* open_edit_list(Session& session, QWidget* mainWindow);

} // namespace quorvane
