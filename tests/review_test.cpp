#include "flash/ui/flash_window.h"
#include "review/progress.h"
#include "review/review_log.h"
#include "review/scheduler.h"
#include "review/settings.h"
#include "review/ui/progress_window.h"
#include "test_support.h"
#include "widgets/qt_prompts.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QTest>
#include <QTimer>
#include <QtWidgets>

#include <gtest/gtest.h>

#include <memory>

using namespace quorvane;
using namespace quorvane::test;
using review::MemoryState;

namespace {

// The expected figures below were worked out by hand from the published formulas of the
// scheduler (version 5, default weights), apart from this code.
MemoryState reviewed(std::initializer_list<std::pair<int, int>> gradesOnDays)
{
    MemoryState state;
    for (const auto& [grade, day] : gradesOnDays)
        review::apply_review(state, grade, day, true);
    return state;
}

QByteArray logLine(const char* when, const char* word, const char* number, int grade, const char* source)
{
    return QByteArray(when) + "\twords\t" + word + "\t" + number + "\t" + QByteArray::number(grade) + "\t" + source +
           "\r\n";
}

} // namespace

TEST_F(CoreTest, ReviewSchedulerLogQueueSettingsAndScores)
{
    // A first review: stability w0..w3, difficulty w4 - e^(w5 (G - 1)) + 1, interval at 0.9.
    const double stability[] = {0.40255, 1.18385, 3.173, 15.69105};
    const double difficulty[] = {7.1949, 6.48831, 5.28243, 3.22450};
    const int interval[] = {1, 1, 3, 16};
    for (int grade = 1; grade <= 4; ++grade) {
        const MemoryState s = reviewed({{grade, 100}});
        EXPECT_NEAR(s.stability, stability[grade - 1], 1e-9) << grade;
        EXPECT_NEAR(s.difficulty, difficulty[grade - 1], 1e-4) << grade;
        EXPECT_EQ(review::due_day(s, 0.9), 100 + interval[grade - 1]) << grade;
    }
    EXPECT_EQ(std::pair(review::interval_days(3.173, 0.8), review::interval_days(15.69105, 0.95)), std::pair(8, 7));
    EXPECT_NEAR(review::retrievability(10.0, 10.0), 0.9, 1e-12);

    // "Good" every time the word falls due: days 0, 3, 14, 49, 150.
    MemoryState s;
    int day = 0;
    const double stabilities[] = {3.173, 10.7389, 34.5776, 100.7483, 269.2838};
    const int days[] = {0, 3, 14, 49, 150};
    for (int k = 0; k < 5; ++k) {
        EXPECT_EQ(day, days[k]);
        review::apply_review(s, review::good, day, true);
        EXPECT_NEAR(s.stability, stabilities[k], 1e-3) << k;
        day += review::interval_days(s.stability, 0.9);
    }
    EXPECT_NEAR(s.difficulty, 5.2448, 1e-3);

    // Reviewed before its due date, the word gains less than on time.
    EXPECT_NEAR(reviewed({{3, 0}, {3, 1}}).stability, 5.86914, 1e-4);
    // Many agains in a row: stability falls towards a floor, difficulty towards 10, never past.
    MemoryState lapses = reviewed({{3, 0}});
    const double afterAgain[] = {0.92060, 0.42713, 0.26835, 0.20604, 0.17811,
                                 0.16445, 0.15737, 0.15356, 0.15145, 0.15026};
    for (int k = 1; k <= 10; ++k) {
        review::apply_review(lapses, review::again, k, true);
        EXPECT_NEAR(lapses.stability, afterAgain[k - 1], 1e-4) << k;
        EXPECT_EQ(review::due_day(lapses, 0.9), k + 1);
    }
    EXPECT_NEAR(lapses.difficulty, 9.8176, 1e-3);
    EXPECT_EQ(lapses.misses, 10);
    // Graded twice on one day, then again the next day.
    const MemoryState twice = reviewed({{3, 0}, {1, 0}});
    EXPECT_NEAR(twice.stability, 1.58976, 1e-4);
    EXPECT_NEAR(twice.difficulty, 6.79693, 1e-4);
    const MemoryState third = reviewed({{3, 0}, {1, 0}, {3, 1}});
    EXPECT_NEAR(third.stability, 3.67000, 1e-4);
    EXPECT_EQ(review::due_day(third, 0.9), 5);
    // A line dated before the latest review counts as the same day.
    EXPECT_NEAR(reviewed({{3, 5}, {1, 4}}).stability, twice.stability, 1e-9);
    // The log: appended as bytes, replayed as it grows, damaged lines counted and skipped.
    session.user_folder = folder.path() + "/users/kestrin/";
    session.current_language = "spanish";
    session.current_list = "words";
    const QString nino = QString::fromLatin1("ni\xf1o");
    session.words = {nino, "gato", ""};
    session.sound_numbers = {"01000", "01001", ""};
    session.translations = {"boy", "cat", ""};

    review::log_grade(session, 0, review::good, review::kSourceTest);
    clock.jump(86400 + 61);
    session.known_file = "words-k.txt";
    review::MoveRecord(session, 1, "words-k.txt").keep();
    review::MoveRecord(session, 0, "words-u.txt").keep();
    review::MoveRecord(session, 0, "words-u.txt");                    // a move that did not complete leaves no line
    review::log_grade(session, 2, review::good, review::kSourceCard); // the empty last slot: nothing
    const QByteArray written = logLine("2026-01-05T10:00:00", "ni\xf1o", "01000", 3, "test") +
                               logLine("2026-01-06T10:01:01", "gato", "01001", 4, "move") +
                               logLine("2026-01-06T10:01:01", "ni\xf1o", "01000", 1, "move");
    EXPECT_EQ(folder.read("users/kestrin/spanish/reviews.txt"), written);

    review::ReviewBook& book = review::review_book(session);
    EXPECT_EQ(book.lines(), 3);
    // A move back is no missed answer.
    EXPECT_EQ(std::pair(book.find("01000", nino)->reviews, book.find("01000", nino)->misses), std::pair(2, 0));
    EXPECT_EQ(book.find("01001", "gato")->stability, 15.69105);
    EXPECT_EQ(book.find("01001", "other"), nullptr);
    EXPECT_EQ(book.knownPerWeek(), (QMap<int, int>{{int(QDate(2026, 1, 5).toJulianDay()), 1}}));

    // Damaged lines (a bad date, grade, source or field count, a line cut by a crash) are counted
    // and skipped; only the new bytes are read, and a line without its end waits for it.
    folder.write("users/kestrin/spanish/reviews.txt",
                 written + "2026-13-06T10:00:00\twords\tx\t01002\t3\ttest\r\n" +
                     logLine("2026-01-06T10:00:00", "x", "01002", 5, "test") +
                     logLine("2026-01-06T10:00:00", "x", "01002", 3, "guess") + "junk\r\n" +
                     logLine("2026-01-07T09:00:00", "gato", "01001", 1, "card") + "2026-01-07T09:00:00\twords");
    EXPECT_EQ(&review::review_book(session), &book);
    EXPECT_EQ(std::pair(book.lines(), book.damaged()), std::pair(8, 4));
    EXPECT_EQ(book.find("01002", "x"), nullptr);
    EXPECT_EQ(book.mostMissed(20), (QList<QPair<QString, int>>{{"gato", 1}}));

    // Without a student nothing is written.
    session.user_folder.clear();
    review::log_grade(session, 0, review::good, review::kSourceTest);
    EXPECT_FALSE(folder.exists("spanish/reviews.txt"));

    // Entries 0..4: due two days ago, never reviewed, due today, not due, never reviewed.
    review::ReviewBook queued;
    const int today = int(QDate(2026, 1, 10).toJulianDay());
    queued.add(u"2026-01-07T10:00:00\tw\ta\t1\t1\ttest"); // due the 8th
    queued.add(u"2026-01-07T10:00:00\tw\tc\t3\t3\ttest"); // due the 10th
    queued.add(u"2026-01-09T10:00:00\tw\td\t4\t3\ttest"); // due the 12th
    WordArrays entries{{"a", "b", "c", "d", "e", ""}, {"", "", "", "", "", ""}, {"1", "2", "3", "4", "5", ""}};
    EXPECT_EQ(review::review_queue(queued, entries, today, 0.9, 20), QList<int>({0, 2, 1, 4}));
    EXPECT_EQ(review::review_queue(queued, entries, today, 0.9, 1), QList<int>({0, 2, 1}));
    EXPECT_EQ(review::due_count(queued, entries, today, 0.9), 2);
    // Words first reviewed today count against the day's new words.
    queued.add(u"2026-01-10T08:00:00\tw\tb\t2\t3\tcard");
    EXPECT_EQ(review::review_queue(queued, entries, today, 0.9, 2), QList<int>({0, 2, 4}));
    EXPECT_EQ(review::review_queue(queued, entries, today, 0.9, 1), QList<int>({0, 2}));

    // The settings box: a bad value is said and changes nothing; Cancel changes nothing.
    EXPECT_EQ(review::parse_retention("0,85"), 0.85);
    for (const char* bad : {"0.5", "1", "x", ""})
        EXPECT_FALSE(review::parse_retention(bad)) << bad;
    EXPECT_FALSE(review::parse_new_words("-1"));
    prompts.answers = {QString("0.8"), QString("many"), QString("0.8"), QString("5"), QString()};
    EXPECT_FALSE(review::ask_review_settings(session));
    EXPECT_TRUE(review::ask_review_settings(session));
    EXPECT_FALSE(review::ask_review_settings(session));
    EXPECT_EQ(std::pair(session.desired_retention, session.new_words_per_day), std::pair(0.8, 5));
    EXPECT_EQ(prompts.texts().filter("must be").size(), 1);

    // Scores of one student and language, per kind of test.
    const auto scores = review::test_scores(
        "kestrin\tspanish\twords\t3\t67%\t00:03 \tSpelling\tSound Only\t1/5/2026 10:00:00 AM\r\n"
        "ana\tspanish\twords\t3\t10%\t00:03 \tSpelling\tSound Only\t1/5/2026 10:00:00 AM\r\n"
        "kestrin\tspanish\twords\t3\t33%\t00:03 \tSpelling\tSound Only\t1/6/2026 1:05:00 PM\r\n"
        "kestrin\tspanish\twords\t2\t50%\t00:03 \tMultiple Choice\tText Only\tnot a date\r\n"
        "kestrin\tspanish\twords\t2\t100%\t00:03 \tMultiple Choice\tText Only\t1/7/2026 9:00:00 AM\r\n",
        "kestrin", "spanish");
    ASSERT_EQ(scores.keys(), QStringList({"Multiple Choice", "Spelling"}));
    EXPECT_EQ(std::pair(scores["Spelling"].size(), scores["Multiple Choice"].size()),
              (std::pair<qsizetype, qsizetype>(2, 1)));
    EXPECT_EQ(std::pair(scores["Spelling"][1].when, scores["Spelling"][1].percent),
              std::pair(QDateTime(QDate(2026, 1, 6), QTime(13, 5)), 33));
}

namespace {

// Runs Review Due Words and does what to each card 0.5 s after it shows; the words shown.
QStringList reviewRun(Program& p, const std::function<void(FlashWindow*)>& what)
{
    auto shown = std::make_shared<QStringList>();
    auto step = std::make_shared<std::function<void()>>();
    *step = [&p, what, shown, weak = std::weak_ptr(step)] {
        auto* f = qobject_cast<FlashWindow*>(window("qvplay"));
        if (weak.expired() || !f || f->unloaded())
            return;
        shown->append(f->word_lbl->text());
        what(f);
        if (auto again = weak.lock())
            p.clock.at(0.5, *again);
    };
    p.clock.at(0.5, *step);
    p.main()->review_due->click();
    return *shown;
}

} // namespace

TEST(ReviewWindow, AMissedWordComesBackTheNextDayTheCardsGradeItAndAMoveIsLogged)
{
    Program p;
    openCourse(p, 2);
    MainWindow* m = p.main();
    p.folder.write("users/kestrin/spanish/reviews.txt",
                   logLine("2026-01-05T10:00:01", "palabra0", "01000", 3, "test") +
                       logLine("2026-01-05T10:00:02", "palabra1", "01001", 1, "test"));
    // The next day only the missed word is due; "Again" logs it and the run ends with it.
    p.clock.jump(86400);
    m->update_due_label();
    EXPECT_EQ(m->due_lbl->text(), "1 words due today");
    const qsizetype before = p.folder.read("users/kestrin/spanish/reviews.txt").size();
    bool gradingShown = false;
    const auto gradeAgain = [&](FlashWindow* f) {
        gradingShown = f->again->isVisible() && f->got_it->isVisible();
        f->again->click();
    };
    EXPECT_EQ(reviewRun(p, gradeAgain), QStringList({"palabra1"}));
    EXPECT_TRUE(gradingShown);
    const QByteArray graded1 = p.folder.read("users/kestrin/spanish/reviews.txt").mid(before);
    EXPECT_TRUE(graded1.startsWith("2026-01-06T10:0") && graded1.endsWith("\twords\tpalabra1\t01001\t1\tcard\r\n") &&
                graded1.count('\n') == 1)
        << graded1.constData();
    EXPECT_EQ(p.prompts.texts().last(), "That was every word due today.");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window("qvplay"), nullptr);
    EXPECT_TRUE(m->isVisible());
    EXPECT_EQ(m->due_lbl->text(), "0 words due today");

    // Again due a day later: key 2 is "Got It". Cards skipped are not logged.
    p.clock.jump(86400);
    const qsizetype second = p.folder.read("users/kestrin/spanish/reviews.txt").size();
    reviewRun(p, [](FlashWindow* f) { QTest::keyClick(f, Qt::Key_2); });
    EXPECT_TRUE(p.folder.read("users/kestrin/spanish/reviews.txt").mid(second).endsWith("\t01001\t3\tcard\r\n"));
    p.clock.jump(86400 * 30);
    const qsizetype third = p.folder.read("users/kestrin/spanish/reviews.txt").size();
    EXPECT_EQ(reviewRun(p, [](FlashWindow* f) { f->next_word->click(); }).size(), 2);
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/reviews.txt").size(), third);

    // The ordinary cards have no grading buttons.
    bool ordinaryGrading = true;
    p.clock.at(0.5, [&] {
        ordinaryGrading = window("qvplay")->findChild<QPushButton*>("again")->isVisible();
        Program::press("qvplay", "exit_btn");
    });
    m->flash_cards->click();
    EXPECT_FALSE(ordinaryGrading);

    // Both are due now: a double-click move is logged and the due count follows; with nothing due Review Due
    // Words says so.
    EXPECT_EQ(m->due_lbl->text(), "2 words due today");
    select_row(m->words_list, 1);
    m->words_list_dblclick();
    EXPECT_EQ(m->due_lbl->text(), "1 words due today");
    const QByteArray moved = p.folder.read("users/kestrin/spanish/reviews.txt").mid(third);
    EXPECT_TRUE(moved.endsWith("\twords\tpalabra1\t01001\t4\tmove\r\n") && moved.count('\n') == 1) << moved.constData();
    p.folder.write("users/kestrin/spanish/words-u.txt", "");
    select_row(m->lists_list, 0);
    m->review_due->click();
    EXPECT_EQ(p.prompts.texts().last(), "No words of this list are due for review today.");
}

TEST(ProgressWindow, DrawsScoresMovesAndMissesAndSavesAPictureThroughRealBoxes)
{
    ProgramFolder folder;
    QtPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session(prompts, sound, clock);
    const QString previous = QDir::currentPath();
    QDir::setCurrent(folder.path());
    session.user_name = "kestrin";
    session.user_folder = folder.path() + "/users/kestrin/";
    session.current_language = "spanish";
    folder.write("users/kestrin/spanish/reviews.txt", logLine("2026-01-05T09:00:00", "gato", "01001", 1, "test") +
                                                          logLine("2026-01-06T09:00:00", "gato", "01001", 1, "card") +
                                                          logLine("2026-01-06T09:00:00", "perro", "01002", 1, "test") +
                                                          logLine("2026-01-06T09:00:00", "perro", "01002", 4, "move") +
                                                          logLine("2026-01-13T09:00:00", "casa", "01003", 4, "move") +
                                                          "damaged\r\n");
    folder.write("test_results.txt",
                 "kestrin\tspanish\twords\t3\t67%\t00:03 \tSpelling\tSound Only\t1/5/2026 10:00:00 AM\r\n"
                 "kestrin\tspanish\twords\t3\t100%\t00:03 \tMultiple Choice\tText Only\t1/6/2026 10:00:00 AM\r\n");

    // Quitting the event loop closes the window, which deletes itself.
    QPointer<ProgressWindow> progress = new ProgressWindow(session, nullptr);
    progress->show();
    EXPECT_EQ(items(progress->missed_list), QStringList({"gato   (2)", "perro   (1)"}));
    EXPECT_EQ(progress->scores_chart->chart()->series().size(), 2);
    const auto* weeks = static_cast<QBarSeries*>(progress->known_chart->chart()->series().value(0));
    ASSERT_NE(weeks, nullptr);
    EXPECT_EQ(weeks->barSets().value(0)->count(), 2);
    EXPECT_EQ(progress->damaged_lbl->text(), "1 damaged lines of the review log were skipped.");

    // Save as PNG, the real input box answered with a file name, then the real message box.
    BoxAnswerer answerer({folder.file("chart.png")});
    QTimer::singleShot(0, progress, [&progress] {
        progress->save_png->click();
        QApplication::quit();
    });
    QApplication::exec();
    EXPECT_EQ(answerer.seen.value(1), "progress|The progress picture was saved as " + folder.file("chart.png") + ".");
    EXPECT_TRUE(folder.read("chart.png").startsWith("\x89PNG\r\n\x1a\n"));
    delete progress.data();
    QDir::setCurrent(previous);
}
