#include "core/random_index.h"
#include "quiz/judging.h"
#include "quiz/quiz_loop.h"
#include "quiz/results_file.h"
#include "quiz/ui/test_results_window.h"
#include "quiz/ui/test_window.h"
#include "store/word_files.h"
#include "test_support.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::test;

namespace {

// Opens the test window from the main window and sets it up as a student would.
TestWindow* openTest(Program& p, QRadioButton* TestWindow::*kind, const char* questions, const char* seconds,
                     int presentation = 0)
{
    p.main()->test_me_click();
    auto* t = qobject_cast<TestWindow*>(window("test"));
    EXPECT_NE(t, nullptr);
    (t->*kind)->click();
    select_row(t->List2, presentation);
    t->num_qs->setText(questions);
    t->num_secs->setText(seconds);
    // A test that never ends fails instead of hanging.
    p.clock.at(600, [t] {
        ADD_FAILURE() << "the test did not end";
        t->exit->click();
    });
    return t;
}

// The translation of the word on screen in the course of test_support.h: palabra<i> is word<i>.
QString shownTranslation(const TestWindow* t)
{
    return "word" + t->test_word->text().mid(QStringLiteral("palabra").size());
}

void clickChoice(TestWindow* t, const QString& caption)
{
    for (QPushButton* choice : {t->c1, t->c2, t->c3, t->c4, t->c5, t->c6}) {
        if (choice->text() == caption) {
            choice->click();
            return;
        }
    }
    ADD_FAILURE() << "no choice " << caption.toStdString();
}

// Typed into the box, then Enter pressed as a keyboard would.
void typeAnswer(TestWindow* t, const QString& text, bool enter)
{
    t->Text1->insert(text);
    if (enter)
        QTest::keyClick(t->Text1, Qt::Key_Return);
}

QByteArray resultLine(const TestWindow* t, const QString& fields)
{
    return (fields + "\t" + us_date_time(t->state().start_time) + "\r\n").toLatin1();
}

} // namespace

TEST(QuizJudging, TypingRulesFoldingScoresTimesAndChoicesDrawnOnTheRealClock)
{
    for (const char* right : {"walk", "to go", "to go, to walk", "go", "o", "t"})
        EXPECT_TRUE(typed_answer_found(right, "to go, to walk")) << right;
    for (const char* wrong : {"walks", "", "To go", "to walk,"})
        EXPECT_FALSE(typed_answer_found(wrong, "to go, to walk")) << wrong;
    for (const char* expected : {"home (building)", "home/house", "home\\house"})
        EXPECT_TRUE(typed_answer_found("home", expected)) << expected;

    EXPECT_EQ(fold_accents(QString::fromLatin1("\xe0\xe1\xe3\xe8\xe9\xec\xed\xf1\xf2\xf3\xf5\xf6")), "aaaeeiinoooo");
    EXPECT_EQ(fold_accents(QString::fromLatin1("\xe2\xfa\xc1\xd1 ni\xf1o")),
              QString::fromLatin1("\xe2\xfa\xc1\xd1 nino"));

    EXPECT_EQ(QList<int>({score_percent(2, 3), score_percent(1, 8), score_percent(7, 10), score_percent(0, 0)}),
              QList<int>({67, 13, 70, 0}));
    EXPECT_EQ(QStringList({duration_text(3 * 60 + 25), duration_text(3600 + 3 * 60 + 25), duration_text(12 * 60 + 12),
                           duration_text(13 * 3600 + 5)}),
              QStringList({"03:25 ", "1:03:25 ", "12 ", "1:00:05 PM"}));
    EXPECT_EQ(us_date_time(QDateTime(QDate(2007, 3, 14), QTime(14, 14, 7))), "3/14/2007 2:14:07 PM");
    EXPECT_EQ(us_date_time(QDateTime(QDate(2007, 11, 4), QTime(0, 5, 0))), "11/4/2007 12:05:00 AM");

    // On the real clock, six choices drawn in a row differ.
    ScriptedPrompts prompts;
    FakeSound sound;
    QtClock clock;
    Session s(prompts, sound, clock);
    create_array_of_words(s, QStringLiteral(QUORVANE_DEMO_DIR "/languages/spanish/master_spanish.txt"));
    ASSERT_EQ(s.wordCount(), 620);
    int distinct = 0;
    for (int question = 0; question < 1000; ++question) {
        const int index = static_cast<int>(random_index(s, 0, s.wordCount() - 1));
        const int position = static_cast<int>(random_index(s, 1, 6));
        const QStringList choices = draw_choices(s, s.translations.at(index), position);
        EXPECT_EQ(choices.at(position - 1), s.translations.at(index));
        distinct += QSet<QString>(choices.begin(), choices.end()).size() == 6 ? 1 : 0;
    }
    EXPECT_GE(distinct, 950);
}

TEST(QuizWindow, LoadsItsSetUpRefusesWhatCannotStartAndTheResultsWindowSavesAndPrints)
{
    // A word of 15 characters is padded to 17, one of 16 is not.
    Program p;
    p.folder.write("languages/spanish/words.txt", QByteArray(15, 'a') + "|x|1\r\n" + QByteArray(16, 'b') + "|y|2\r\n");
    MainWindow* main = p.start("spanish");
    main->test_me_click();
    main->print_list_click();
    main->show_test_results_click();
    EXPECT_EQ(p.prompts.texts().mid(1),
              QStringList({"You must first select a list to start the test.",
                           "You must first select one of the word/phrase lists.",
                           "There are no test results yet: they are recorded from the first test taken."}));
    EXPECT_TRUE(!window("test") && !window("test_results"));

    select_row(main->lists_list, 0);
    main->print_list_click();
    Session& s = p.session();
    const QString date = QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat);
    EXPECT_EQ(s.report_text, "User: kestrin List: " + s.shown_file + "  " + date + "\r\n\r\n" + QString(15, 'a') +
                                 "  \tx\r\n" + QString(16, 'b') + "\ty\r\n" + QString(17, ' ') + "\t");
    TestResultsWindow* results = qobject_cast<TestResultsWindow*>(window("test_results"));
    ASSERT_NE(results, nullptr);
    EXPECT_TRUE(main->isVisible());
    results->close();

    main->test_me_click();
    auto* t = qobject_cast<TestWindow*>(window("test"));
    ASSERT_NE(t, nullptr);
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(QStringList({t->language_name->text(), t->list_name->text(), t->user_name->text()}),
              QStringList({"Language: spanish", "List Name: words", "Username: kestrin"}));
    EXPECT_EQ(items(t->list1), QStringList({"All Words on Selected List", "Unkown Words on Selected List"}));
    EXPECT_EQ(items(t->List2), QStringList({"Show the text of the word", "Play the sound of the word", "Both"}));
    EXPECT_EQ(std::pair(t->list1->currentRow(), t->List2->currentRow()), std::pair(0, 0));
    t->spelling->click();
    EXPECT_FALSE(t->List2->isVisible() || t->Label2->isVisible());
    t->fill_in_blank->click();
    EXPECT_TRUE(t->List2->isVisible() && t->Label2->isVisible());

    const QString noQuestions = "The number of questions must be a number greater than 0.";
    for (const auto& [questions, seconds, message] :
         {std::tuple("", "5", noQuestions), std::tuple("abc", "5", noQuestions),
          std::tuple("-3", "0", QString("The number of seconds per question must be a number greater than 0."))}) {
        p.prompts.shown.clear();
        t->num_qs->setText(questions);
        t->num_secs->setText(seconds);
        t->begin_test->click();
        EXPECT_EQ(p.prompts.texts(), QStringList({message})) << questions;
    }

    // An unknown file with no entries left: nothing to ask.
    p.folder.write("users/kestrin/spanish/words-u.txt", "not an entry\r\n");
    select_row(t->list1, 1);
    t->num_secs->setText("1");
    p.prompts.shown.clear();
    t->begin_test->click();
    EXPECT_TRUE(p.prompts.texts().value(0).startsWith("The chosen word list has no words"));

    // A negative count runs until stopped; Exit ends it without results and brings the main window back.
    select_row(t->list1, 0);
    QStringList remaining;
    p.clock.at(4.0, [&] {
        remaining.append(t->remaining->text());
        t->exit->click();
    });
    t->begin_test->click();
    EXPECT_EQ(remaining, QStringList({"3 of -3"}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window("test"), nullptr);
    EXPECT_TRUE(main->isVisible());
    EXPECT_FALSE(p.folder.exists("test_results.txt"));

    // The whole language is offered only where its master file exists.
    p.folder.write("languages/spanish/master_spanish.txt", courseEntry(0));
    main->test_me_click();
    EXPECT_EQ(items(qobject_cast<TestWindow*>(window("test"))->list1).last(), "All words in selected language");
    window("test")->close();

    // A student's own record is read line by line, each line ended with CR LF.
    p.folder.write("users/kestrin_test.txt", "a\tb\nc");
    EXPECT_EQ(read_student_record("kestrin"), "a\tb\r\nc\r\n");

    const QByteArray record = "kestrin\tspanish\twords\t2\t50%\t00:03 \tMultiple Choice\tText Only\t3/14/2007\r\n";
    p.folder.write("test_results.txt", record + record);
    main->show_test_results_click();
    results = qobject_cast<TestResultsWindow*>(window("test_results"));
    ASSERT_NE(results, nullptr);
    EXPECT_EQ(results->TextBox1->toPlainText(), QString::fromLatin1(record + record).replace("\r\n", "\n"));

    // Printing goes through one path whatever the printer; with no default printer it is said.
    const QString pdf = p.folder.file("results.pdf");
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    EXPECT_TRUE(results->printTo(printer));
    QByteArray text;
    runTool("pdftotext", {"-layout", pdf, "-"}, &text);
    EXPECT_EQ(text.count("Multiple Choice"), 2) << text.toStdString();
    if (QPrinterInfo::defaultPrinter().isNull()) {
        p.prompts.shown.clear();
        results->print_test_results->click();
        EXPECT_TRUE(p.prompts.texts().value(0).startsWith("No printer is installed"));
    }

    // Saving: a path that cannot be written is said and the window stays; a good one closes it.
    p.prompts.push(QString());
    p.prompts.push(QString("saved.txt"));
    results->save_and_exit->click();
    EXPECT_NE(window("test_results"), nullptr);
    results->save_and_exit->click();
    EXPECT_EQ(window("test_results"), nullptr);
    EXPECT_EQ(p.folder.read("saved.txt"), record + record + "\r\n");
}

TEST(QuizWindow, ChoicesAndTypedAnswersCountDownAreJudgedStoppedBegunAgainAndWritten)
{
    Program p;
    openCourse(p);
    TestWindow* t = openTest(p, &TestWindow::multiple_choice, "3", "2");
    QStringList firstTick;
    QStringList feedback; // each as its text, then its background
    auto feedbackNow = [&] {
        feedback << t->previous_word->text() << t->previous_word->palette().color(QPalette::Window).name();
    };
    p.clock.at(0.15, [&] {
        firstTick = {t->remaining->text(), t->time_remaining->text(), QString::number(t->Text1->isVisible()),
                     t->test_word->text()};
    });
    // The first question runs out unanswered (19/20 of 2 s and 0.5 s); the second is answered, the
    // third stopped.
    p.clock.at(2.6, [&] {
        feedbackNow();
        t->c2->click(); // changed before the tick: the last click counts
        clickChoice(t, shownTranslation(t));
    });
    p.clock.at(3.0, [&] {
        feedbackNow();
        t->stop->click();
    });
    t->begin_test->click();

    ASSERT_EQ(firstTick.size(), 4);
    const QString firstWord = firstTick.takeLast();
    EXPECT_EQ(firstTick, QStringList({"1 of 3", QString(18, '='), "0"}));
    ASSERT_EQ(feedback.size(), 4);
    EXPECT_EQ(feedback.mid(0, 2), QStringList({firstWord + " = word" + firstWord.mid(7) + "\rnot ", "#ff8000"}));
    EXPECT_TRUE(feedback[2].startsWith("palabra") && !feedback[2].contains('\r')) << feedback[2].toStdString();
    EXPECT_NE(feedback[3], "#ff8000");
    EXPECT_EQ(t->test_word->text(), "Test finished in 00:03 \r1 of 2 correct 50%");
    QStringList area = {t->Text1->text(), t->remaining->text(), t->time_remaining->text()};
    for (const QPushButton* choice : {t->c1, t->c2, t->c3, t->c4, t->c5, t->c6})
        area.append(choice->text());
    EXPECT_EQ(area, QStringList(9, QString()));
    // The result and each question judged are dated by the program's clock; a stopped question is not graded.
    const QByteArray first =
        "kestrin\tspanish\twords\t2\t50%\t00:03 \tMultiple Choice\tText Only\t1/5/2026 10:00:00 AM\r\n";
    EXPECT_EQ(p.folder.read("test_results.txt"), first);
    const QList<QByteArray> graded = p.folder.read("users/kestrin/spanish/reviews.txt").split('\n');
    EXPECT_EQ(graded.value(0), "2026-01-05T10:00:02\twords\t" + firstWord.toLatin1() + "\t0100" +
                                   firstWord.mid(7).toLatin1() + "\t1\ttest\r");
    EXPECT_TRUE(graded.value(1).endsWith("\t3\ttest\r") && graded.size() == 3) << graded.value(1).constData();

    // Begun again in the same window, the counters go on: question 3 of 3 is the last.
    QString remaining;
    p.clock.at(0.2, [&] {
        remaining = t->remaining->text();
        clickChoice(t, shownTranslation(t));
    });
    t->begin_test->click();
    EXPECT_EQ(remaining, "3 of 3");
    EXPECT_EQ(p.folder.read("test_results.txt"),
              first + resultLine(t, "kestrin\tspanish\twords\t3\t67%\t00:00 \tMultiple Choice\tText Only"));
    EXPECT_TRUE(p.sound.played.isEmpty());

    // In a new window, Begin Test during a test begins again; stopped, the one question asked is written.
    t->close();
    t = openTest(p, &TestWindow::multiple_choice, "2", "1");
    p.clock.at(0.3, [&] { t->begin_test->click(); });
    p.clock.at(0.6, [&] {
        remaining = t->remaining->text();
        t->stop->click();
    });
    t->begin_test->click();
    EXPECT_EQ(remaining, "2 of 2");
    EXPECT_TRUE(p.folder.read("test_results.txt")
                    .endsWith(resultLine(t, "kestrin\tspanish\twords\t1\t0%\t00:00 \tMultiple Choice\tText Only")));

    // Begun again, the last question is answered but its result cannot be added: that is said and
    // the window stays usable.
    QFile::remove(p.folder.file("test_results.txt"));
    p.folder.mkdir("test_results.txt");
    p.prompts.shown.clear();
    p.clock.at(0.2, [&] { clickChoice(t, shownTranslation(t)); });
    t->begin_test->click();
    EXPECT_TRUE(p.prompts.texts().value(0).startsWith("The test result could not be added to "));
    EXPECT_TRUE(t->isVisible() && t->begin_test->isEnabled());

    // Typed answers are judged on Enter, or as they stand when the time runs out.
    t->close();
    QDir(p.folder.file("test_results.txt")).removeRecursively();
    t = openTest(p, &TestWindow::fill_in_blank, "3", "1");
    p.prompts.shown.clear();
    QString typedFeedback;
    p.clock.at(0.2, [&] { typeAnswer(t, shownTranslation(t), true); });
    p.clock.at(0.5, [&] { typeAnswer(t, "wor", false); });
    p.clock.at(2.2, [&] { typedFeedback = t->previous_word->text(); });
    t->begin_test->click();
    EXPECT_TRUE(p.prompts.texts().join('|').contains(QRegularExpression("^(word\\d) found in \\1$")));
    EXPECT_TRUE(typedFeedback.endsWith("\rnot wor")) << typedFeedback.toStdString();
    EXPECT_TRUE(t->previous_word->text().endsWith("\rnot ")) << t->previous_word->text().toStdString();
    EXPECT_EQ(p.folder.read("test_results.txt"),
              resultLine(t, "kestrin\tspanish\twords\t3\t33%\t00:03 \tFill In Blank\tText Only"));
}

TEST(QuizWindow, SpellingIsBySoundFoldsOnlyTheExpectedWordAndAMissingRecordingCanEndTheTest)
{
    Program p;
    p.folder.write("languages/spanish/animals.txt", "ni\xf1o|boy|01000\r\n");
    p.folder.write("languages/spanish/colours.txt", "rojo|red|01500\r\n");
    p.folder.write("languages/spanish/01/01000.mp3", "W");
    p.start("spanish");
    Program::choose(p.main()->lists_list, "animals");
    TestWindow* t = openTest(p, &TestWindow::spelling, "2", "1");
    QStringList shown;
    // Each question begins with its sound (0.8 s on the fake sound library).
    p.clock.at(1.0, [&] {
        shown = {t->test_word->text(), QString::number(t->Text1->isVisible())};
        typeAnswer(t, "nino", true);
    });
    p.clock.at(2.0, [&] { typeAnswer(t, QString::fromLatin1("ni\xf1o"), true); });
    t->begin_test->click();

    EXPECT_EQ(shown, QStringList({"", "1"}));
    EXPECT_EQ(p.sound.played, QStringList(2, p.played("spanish/01/01000.mp3")));
    EXPECT_EQ(p.prompts.texts().mid(1), QStringList({"nino found in nino"}));
    EXPECT_EQ(t->previous_word->text(), QString::fromLatin1("ni\xf1o = boy\rnot ni\xf1o"));
    EXPECT_EQ(p.folder.read("test_results.txt"),
              resultLine(t, "kestrin\tspanish\tanimals\t2\t50%\t00:02 \tSpelling\tSound Only"));

    // Without a recording: OK draws again, Cancel ends the test with what was asked so far.
    t->close();
    Program::choose(p.main()->lists_list, "colours");
    p.prompts.push(true);
    p.prompts.push(false);
    t = openTest(p, &TestWindow::fill_in_blank, "2", "1", 1);
    p.prompts.shown.clear();
    t->begin_test->click();
    EXPECT_EQ(p.prompts.boxes(), QStringList(2, "okCancel||Sound file for this word was not found.  Click OK to go to "
                                                "next word or Cancel to stop test."));
    EXPECT_TRUE(p.folder.read("test_results.txt")
                    .endsWith("\tcolours\t0\t0%\t00:00 \tFill In Blank\tSound Only\t" +
                              us_date_time(t->state().start_time).toLatin1() + "\r\n"));
}
