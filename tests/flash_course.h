#pragma once

// A small course for the flash-card tests: one Spanish list paired with English, recordings for
// every word, the program started on virtual time with that list shown.

#include "app/list_box.h"
#include "app/main_window.h"
#include "app/session.h"
#include "flash/flash_card_window.h"
#include "test_support.h"

#include "quorvane/testing.h"

#include <QPushButton>

#include <functional>
#include <memory>

namespace quorvane::test {

// Runs onPlay with the path of every sound as it starts.
class HookedSound : public FakeSound
{
public:
    int playSound(int channel, int sample) override
    {
        const int handle = FakeSound::playSound(channel, sample);
        if (handle != 0 && onPlay)
            onPlay(played.last());
        return handle;
    }
    std::function<void(const QString& path)> onPlay;
};

// The captions of the buttons of a window, by name.
inline QStringList captions(const QWidget* window, const QStringList& names)
{
    QStringList texts;
    for (const QString& name : names) {
        const auto* button = window->findChild<QPushButton*>(name);
        texts.append(button ? button->text() : "(no " + name + ")");
    }
    return texts;
}

inline QString spanishNumber(int i)
{
    return QStringLiteral("01%1").arg(i, 3, 10, QLatin1Char('0'));
}

inline QString englishNumber(int i)
{
    return QStringLiteral("02%1").arg(i, 3, 10, QLatin1Char('0'));
}

struct CourseOptions
{
    int words = 3;
    bool recordings = true;
    // Word i is word + i, its translation translation + i.
    QString word = QStringLiteral("palabra");
    QString translation = QStringLiteral("word");
};

class FlashCourse
{
public:
    explicit FlashCourse(const CourseOptions& options = {}) : prompts({QStringLiteral("kestrin")})
    {
        QByteArray list;
        QByteArray pairs;
        for (int i = 0; i < options.words; ++i) {
            const QString s = spanishNumber(i);
            const QString e = englishNumber(i);
            list += (options.word + QString::number(i) + "|" + options.translation + QString::number(i) + "|" + s)
                        .toLatin1() +
                    "\r\n";
            pairs += (s + "|" + e).toLatin1() + "\r\n";
            if (options.recordings) {
                folder.write(spanishPath(i), "W" + QByteArray::number(i));
                folder.write(englishPath(i), "T" + QByteArray::number(i));
            }
        }
        folder.write("languages/spanish/words.txt", list);
        folder.write("languages/spanish/trans_spanish.dat", "english\r\n");
        folder.write("languages/spanish/trans_index_spanish_english.dat", pairs);
        folder.mkdir("languages/english");
        window.reset(start(folder.path(), &prompts, &sound, &clock));
        const QList<QListWidgetItem*> spanish = main()->lang_list->findItems("spanish", Qt::MatchExactly);
        select_row(main()->lang_list, main()->lang_list->row(spanish.value(0)));
        select_row(main()->lists_list, 0);
    }

    MainWindow* main() const { return static_cast<MainWindow*>(window.get()); }
    Session& session() const { return sessionOf(window.get()); }

    static QString spanishPath(int i) { return "languages/spanish/01/" + spanishNumber(i) + ".mp3"; }
    static QString englishPath(int i) { return "languages/english/02/" + englishNumber(i) + ".mp3"; }
    // The paths as the sound library is given them.
    QString played(const QString& relative) const { return session().languages_folder + relative.mid(10); }

    // Presses a button of the running flash-card window.
    static void press(const char* windowName, const char* button)
    {
        auto* cards = qobject_cast<FlashCardWindow*>(quorvane::window(windowName));
        ASSERT_NE(cards, nullptr) << windowName;
        auto* target = cards->findChild<QPushButton*>(button);
        ASSERT_NE(target, nullptr) << button;
        target->click();
    }

    // Pauses the cards of windowName as the count-th sound starts.
    void pauseAtSound(qsizetype count, const char* windowName = "qvplay")
    {
        sound.onPlay = [this, count, windowName](const QString&) {
            if (sound.played.size() == count)
                press(windowName, "pause");
        };
    }

    ProgramFolder folder;
    ScriptedPrompts prompts;
    HookedSound sound;
    FakeClock clock;
    std::unique_ptr<QWidget> window;
};

} // namespace quorvane::test
