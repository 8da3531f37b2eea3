#include "app/ui/main_window.h"
#include "bench_support.h"
#include "core/random_index.h"
#include "core/session.h"
#include "quiz/quiz_loop.h"
#include "quiz/ui/test_window.h"
#include "store/word_files.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include <QCoreApplication>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

using namespace quorvane;

namespace {

const QString kMaster = QStringLiteral(QUORVANE_DEMO_DIR "/languages/spanish/master_spanish.txt");

// The program on the test doubles, the sample course's master list as the one list of Spanish.
struct QuizProgram
{
    QTemporaryDir folder;
    ScriptedPrompts prompts{{QStringLiteral("kestrin")}};
    FakeSound sound;
    FakeClock clock;
    MainWindow* main = nullptr;

    QuizProgram()
    {
        QDir().mkpath(folder.path() + "/languages/spanish");
        QFile::copy(kMaster, folder.path() + "/languages/spanish/master.txt");
        main = static_cast<MainWindow*>(start(folder.path(), &prompts, &sound, &clock));
        select_row(main->lang_list, 0);
        select_row(main->lists_list, 0);
    }
};

// A test of 50 questions, multiple choice, 2 s each, every other question answered at once and the
// others left to run out: the time a whole test takes on the virtual clock.
void BM_QuizFiftyQuestionsOnFakeClock(benchmark::State& state)
{
    static QuizProgram* program = [] {
        auto* made = new QuizProgram;
        quorvane::bench::atEnd([made] {
            delete made->main;
            delete made;
        });
        return made;
    }();
    QFile::remove(program->folder.path() + "/test_results.txt");
    for (auto _ : state) {
        program->main->test_me_click();
        // A click scheduled past the end of the test must not reach a window already gone.
        QPointer<TestWindow> test = qobject_cast<TestWindow*>(window("test"));
        test->num_qs->setText("50");
        test->num_secs->setText("2");
        for (int question = 0; question < 50; question += 2)
            program->clock.at(0.1 + question * 2.6, [test] {
                if (test)
                    test->c1->click();
            });
        const long before = program->clock.processed;
        test->begin_test->click();
        state.counters["clock_steps"] = double(program->clock.processed - before);
        test->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// Over 1,000 questions drawn on the real clock from the 620 words of the sample master, the share
// whose six buttons show six different translations.
void BM_QuizSixDifferentChoicesOnRealClock(benchmark::State& state)
{
    ScriptedPrompts prompts;
    FakeSound sound;
    QtClock clock;
    Session session(prompts, sound, clock);
    create_array_of_words(session, kMaster);
    int distinct = 0;
    int questions = 0;
    for (auto _ : state) {
        for (int question = 0; question < 1000; ++question) {
            const int index = static_cast<int>(random_index(session, 0, session.wordCount() - 1));
            const int position = static_cast<int>(random_index(session, 1, 6));
            const QStringList choices = draw_choices(session, session.translations.at(index), position);
            distinct += QSet<QString>(choices.begin(), choices.end()).size() == 6 ? 1 : 0;
            ++questions;
        }
    }
    state.counters["six_different_percent"] = 100.0 * distinct / questions;
}

} // namespace

BENCHMARK(BM_QuizFiftyQuestionsOnFakeClock)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_QuizSixDifferentChoicesOnRealClock)->Unit(benchmark::kMillisecond)->Iterations(5);
