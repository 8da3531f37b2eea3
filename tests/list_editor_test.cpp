#include "editor/ui/edit_list_window.h"
#include "test_support.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>

#include <gtest/gtest.h>

using namespace quorvane;

namespace {

struct ListEditor : quorvane::test::CoreTest
{
    QPointer<EditListWindow> editor;

    ListEditor()
    {
        session.current_language = "spanish";
        folder.mkdir("languages/spanish");
    }
    ~ListEditor() override { delete editor; }
    EditListWindow* open() { return editor = open_edit_list(session, nullptr); }
    static void press(const char* button) { quorvane::test::Program::press("edit_list", button); }
    // The bytes of a list file of the language.
    QByteArray list(const QString& name) const { return folder.read("languages/spanish/" + name + ".txt"); }
};

} // namespace

TEST_F(ListEditor, SavingKeepsEveryByteNoListOpensATemporaryListAndStartNewListMakesOrWarns)
{
    QByteArray every; // each byte but the line ends, on lines of 16
    for (int byte = 1; byte < 256; ++byte)
        every += (byte == '\r' || byte == '\n' ? QByteArray() : QByteArray(1, char(byte))) + (byte % 16 ? "" : "\r\n");
    const QByteArray text = "comer|to eat|01436\r\nni\xF1o|child\xA0\x80|01500\r\n" + every + "\r\n";
    folder.write("languages/spanish/most_common_words.txt", text);
    session.current_list = "most_common_words";

    open();
    ASSERT_EQ(window("edit_list"), editor.data());
    EXPECT_EQ(editor->windowTitle(), "Edit Word List");
    EXPECT_TRUE(editor->Label1->text().contains("stored in the high_num.dat file."));
    EXPECT_TRUE(editor->TextBox1->toPlainText().startsWith("comer|to eat|01436\nni\u00F1o|child"));

    press("save_and_exit_unicode"); // does nothing
    EXPECT_EQ(window("edit_list"), editor.data());
    EXPECT_EQ(list("most_common_words"), text);
    press("save_and_exit");
    EXPECT_EQ(window("edit_list"), nullptr);
    EXPECT_EQ(list("most_common_words"), text + "\r\n");

    // Other line ends come back as CR LF.
    folder.write("languages/spanish/most_common_words.txt", "a|b|00001\nc|d|00002\re|f|00003");
    open();
    press("save_and_exit");
    EXPECT_EQ(list("most_common_words"), "a|b|00001\r\nc|d|00002\r\ne|f|00003\r\n");

    // No list chosen: a blank temporary list, that exit without save leaves unmade.
    session.current_list.clear();
    EXPECT_EQ(open()->TextBox1->toPlainText(), "");
    EXPECT_EQ(prompts.boxes(), QStringList({"message||A list was not chosen. A blank form will be opened in case you "
                                            "want to start a new list."}));
    EXPECT_EQ(session.current_list, "temporary");
    press("exit_without_save");
    EXPECT_EQ(window("edit_list"), nullptr);
    EXPECT_FALSE(folder.exists("languages/spanish/temporary.txt"));

    session.current_list.clear();
    open()->TextBox1->setPlainText("gato|cat|70000");
    press("save_and_exit");
    EXPECT_EQ(list("temporary"), "gato|cat|70000\r\n");

    // Start New List makes an empty file, or warns of an existing one that the save then overwrites.
    prompts.shown.clear();
    folder.write("languages/spanish/food.txt", "casa|house|01234\r\n");
    folder.write("languages/spanish/animals.txt", "gato|cat|01111\r\n");
    session.current_list = "food";
    open();

    prompts.push(QString()); // no name: nothing happens
    press("start_new_list");
    EXPECT_EQ(editor->TextBox1->toPlainText(), "casa|house|01234\n");

    prompts.push("verbs");
    press("start_new_list");
    EXPECT_EQ(folder.snapshot().value("languages/spanish/verbs.txt", "(none)"), "");
    // The list in use is not changed.
    EXPECT_EQ(QStringList({editor->TextBox1->toPlainText(), editor->list_name->text(), session.current_list}),
              QStringList({"", "spanish\n\nList Name\nfood", "food"}));

    prompts.push("animals");
    editor->TextBox1->setPlainText("perro|dog|01112");
    press("start_new_list");
    EXPECT_EQ(editor->TextBox1->toPlainText(), "perro|dog|01112");
    press("save_and_exit");
    EXPECT_EQ(list("animals"), "perro|dog|01112\r\n");
    EXPECT_EQ(list("food"), "casa|house|01234\r\n");
    const QString ask = "input||What should be the name of the new word list?";
    EXPECT_EQ(prompts.boxes(), QStringList({ask, ask, ask, "message||That file already exits."}));
}
