#include "core/session.h"
#include "editor/edit_list_window.h"
#include "test_support.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::boxes;
using quorvane::test::ProgramFolder;

namespace {

struct EditorFixture
{
    ProgramFolder folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};
    QPointer<EditListWindow> editor;

    EditorFixture()
    {
        session.languages_folder = folder.path() + "/languages/";
        session.current_language = "spanish";
        folder.mkdir("languages/spanish");
    }
    ~EditorFixture() { delete editor; }
    EditListWindow* open()
    {
        editor = open_edit_list(session, nullptr);
        return editor;
    }
    static void press(const char* button)
    {
        QWidget* shown = window("edit_list");
        ASSERT_NE(shown, nullptr);
        shown->findChild<QPushButton*>(button)->click();
    }
};

} // namespace

TEST(ListEditor, SavingAnOpenedListUnchangedKeepsEveryByteAndAddsOneLineEnd)
{
    EditorFixture f;
    QByteArray every; // each byte but the line ends, on lines of 16
    for (int byte = 1; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n')
            every += static_cast<char>(byte);
        if (byte % 16 == 0)
            every += "\r\n";
    }
    const QByteArray list = "comer|to eat|01436\r\nni\xF1o|child\xA0\x80|01500\r\n" + every + "\r\n";
    f.folder.write("languages/spanish/most_common_words.txt", list);
    f.session.current_list = "most_common_words";

    EditListWindow* editor = f.open();
    ASSERT_EQ(window("edit_list"), editor);
    EXPECT_EQ(editor->windowTitle(), "Edit Word List");
    EXPECT_TRUE(editor->Label1->text().contains("stored in the high_num.dat file."));
    EXPECT_TRUE(editor->TextBox1->toPlainText().startsWith("comer|to eat|01436\nni\u00F1o|child"));

    f.press("save_and_exit_unicode"); // does nothing
    EXPECT_EQ(window("edit_list"), editor);
    EXPECT_EQ(f.folder.read("languages/spanish/most_common_words.txt"), list);

    f.press("save_and_exit");
    EXPECT_EQ(window("edit_list"), nullptr);
    EXPECT_EQ(f.folder.read("languages/spanish/most_common_words.txt"), list + "\r\n");

    // Other line ends come back as CR LF.
    f.folder.write("languages/spanish/most_common_words.txt", "a|b|00001\nc|d|00002\re|f|00003");
    f.open();
    f.press("save_and_exit");
    EXPECT_EQ(f.folder.read("languages/spanish/most_common_words.txt"), "a|b|00001\r\nc|d|00002\r\ne|f|00003\r\n");
    EXPECT_TRUE(f.prompts.shown.isEmpty());
}

TEST(ListEditor, NoListChosenOpensABlankTemporaryListThatExitWithoutSaveLeavesUnmade)
{
    EditorFixture f;
    EditListWindow* editor = f.open();
    EXPECT_EQ(boxes(f.prompts), QStringList({"message||A list was not chosen. A blank form will be opened in case you "
                                             "want to start a new list."}));
    EXPECT_EQ(f.session.current_list, "temporary");
    EXPECT_EQ(editor->TextBox1->toPlainText(), "");

    f.press("exit_without_save");
    EXPECT_EQ(window("edit_list"), nullptr);
    EXPECT_FALSE(f.folder.exists("languages/spanish/temporary.txt"));

    f.session.current_list.clear();
    f.open()->TextBox1->setPlainText("gato|cat|70000");
    f.press("save_and_exit");
    EXPECT_EQ(f.folder.read("languages/spanish/temporary.txt"), "gato|cat|70000\r\n");
}

TEST(ListEditor, StartNewListMakesAnEmptyFileOrWarnsOfAnExistingOneThatTheSaveThenOverwrites)
{
    EditorFixture f;
    f.folder.write("languages/spanish/food.txt", "casa|house|01234\r\n");
    f.folder.write("languages/spanish/animals.txt", "gato|cat|01111\r\n");
    f.session.current_list = "food";
    EditListWindow* editor = f.open();

    f.prompts.push(QString()); // no name: nothing happens
    f.press("start_new_list");
    EXPECT_EQ(editor->TextBox1->toPlainText(), "casa|house|01234\n");

    f.prompts.push("verbs");
    f.press("start_new_list");
    EXPECT_EQ(f.folder.read("languages/spanish/verbs.txt"), "");
    EXPECT_TRUE(f.folder.exists("languages/spanish/verbs.txt"));
    EXPECT_EQ(editor->TextBox1->toPlainText(), "");
    EXPECT_EQ(editor->list_name->text(), "spanish\n\nList Name\nfood"); // current_list is not changed
    EXPECT_EQ(f.session.current_list, "food");

    f.prompts.push("animals");
    editor->TextBox1->setPlainText("perro|dog|01112");
    f.press("start_new_list");
    EXPECT_EQ(editor->TextBox1->toPlainText(), "perro|dog|01112");
    f.press("save_and_exit");
    EXPECT_EQ(f.folder.read("languages/spanish/animals.txt"), "perro|dog|01112\r\n");
    EXPECT_EQ(f.folder.read("languages/spanish/food.txt"), "casa|house|01234\r\n");
    EXPECT_EQ(boxes(f.prompts), QStringList({"input||What should be the name of the new word list?",
                                             "input||What should be the name of the new word list?",
                                             "input||What should be the name of the new word list?",
                                             "message||That file already exits."}));
}
