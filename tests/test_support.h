#pragma once

// Helpers shared by the tests: a throw-away program folder with byte-level file access, the program
// started on the test doubles, a small course with a recording for every word, and running a tool.

#include "app/ui/main_window.h"
#include "core/session.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include <QApplication>
#include <QByteArray>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QInputDialog>
#include <QMap>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QString>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>

// Readable failure messages for the texts compared everywhere.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace quorvane::test {

// A fresh program folder in a temporary directory, removed with the object.
class ProgramFolder
{
public:
    ProgramFolder() { EXPECT_TRUE(m_dir.isValid()); }
    QString path() const { return m_dir.path(); }
    // The absolute path of a file below the folder ("languages/spanish/a.txt").
    QString file(const QString& relative) const { return m_dir.path() + "/" + relative; }
    // Writes bytes to a file below the folder, making its folders.
    void write(const QString& relative, const QByteArray& bytes) const
    {
        const QString target = file(relative);
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile out(target);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << target.toStdString();
        out.write(bytes);
    }
    QByteArray read(const QString& relative) const
    {
        QFile in(file(relative));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    bool exists(const QString& relative) const { return QFileInfo::exists(file(relative)); }
    void mkdir(const QString& relative) const { QDir().mkpath(file(relative)); }
    // Every file and folder below, hidden ones too, with its bytes ("<folder>" for a folder); the
    // language locks, made on first use, aside.
    QMap<QString, QByteArray> snapshot() const
    {
        QMap<QString, QByteArray> files;
        for (QDirIterator it(path(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                             QDirIterator::Subdirectories);
             it.hasNext();) {
            const QString relative = it.next().mid(path().size() + 1);
            if (!relative.endsWith("/.lock"))
                files.insert(relative, it.fileInfo().isDir() ? QByteArray("<folder>") : read(relative));
        }
        return files;
    }

private:
    QTemporaryDir m_dir;
};

// length bytes that change from one to the next, as recorded samples do.
inline QByteArray patternBytes(int length)
{
    QByteArray bytes(length, '\0');
    for (int i = 0; i < length; ++i)
        bytes[i] = static_cast<char>((i * 37 + 11) & 0xFF);
    return bytes;
}

// What a compiled MP3 file holds after its ID3v2.3 tag, whose size is the header's last four
// bytes, seven bits each.
inline QByteArray audioOf(const QByteArray& file)
{
    EXPECT_TRUE(file.startsWith(QByteArray("ID3\x03\x00", 5))) << file.left(10).toHex().toStdString();
    int size = 0;
    for (int i = 6; i < 10; ++i)
        size = size << 7 | (file.at(i) & 0x7f);
    return file.mid(10 + size);
}

// count copies of line, each ended with CR LF.
inline QByteArray repeatedLines(const QByteArray& line, int count)
{
    return (line + "\r\n").repeated(count);
}

// Runs a command-line tool to its end: its exit code (-1 when it does not finish in a minute), with
// its standard output and error output where asked for.
inline int runTool(const QString& program, const QStringList& arguments, QByteArray* output = nullptr,
                   QString* errors = nullptr)
{
    QProcess process;
    process.start(program, arguments);
    const bool finished = process.waitForFinished(60000);
    if (output)
        *output = process.readAllStandardOutput();
    const QString complaints = QString::fromUtf8(process.readAllStandardError());
    if (errors)
        *errors = complaints;
    if (!finished || process.exitCode() != 0)
        ADD_FAILURE() << program.toStdString() << " failed: " << complaints.toStdString();
    return finished ? process.exitCode() : -1;
}

// The openssl command line over one file below folder with the program's fixed key and vector: the
// output file's bytes, or none when it fails.
inline QByteArray opensslBlowfish(const ProgramFolder& folder, const QString& input,
                                  const QString& output = "plain.raw", bool decipher = true)
{
    QStringList arguments{"enc",       "-bf-cbc",          "-provider", "legacy",
                          "-provider", "default",          "-K",        "5c1e07a9d3b46f28e90d1a7c3b5f2e84",
                          "-iv",       "a4d90e3b7c1f6285", "-in",       folder.file(input),
                          "-out",      folder.file(output)};
    if (decipher)
        arguments.insert(1, "-d");
    return runTool("openssl", arguments) == 0 ? folder.read(output) : QByteArray();
}

// The texts of a list box, top to bottom.
inline QStringList items(const QListWidget* box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->item(i)->text());
    return texts;
}

// Answers each real box as a user would, from inside the event loop: the next answer ("=" keeps
// what the box offers) and OK. Notes each box as "parent window|text", its title, and what each
// input box offered.
struct BoxAnswerer : QObject
{
    QStringList answers, seen, titles, offered;
    QTimer timer;
    explicit BoxAnswerer(QStringList script = {}) : answers(std::move(script))
    {
        connect(&timer, &QTimer::timeout, this, [this] {
            for (QWidget* box : QApplication::topLevelWidgets()) {
                if (!box->isVisible() || !(qobject_cast<QMessageBox*>(box) || qobject_cast<QInputDialog*>(box)))
                    continue;
                const QString parent = box->parentWidget() ? box->parentWidget()->window()->objectName() : "(none)";
                titles.append(box->windowTitle());
                if (auto* input = qobject_cast<QInputDialog*>(box)) {
                    seen.append(parent + "|" + input->labelText());
                    offered.append(input->textValue());
                    if (const QString answer = answers.isEmpty() ? QString() : answers.takeFirst(); answer != "=")
                        input->setTextValue(answer);
                    input->accept();
                } else if (auto* message = qobject_cast<QMessageBox*>(box)) {
                    seen.append(parent + "|" + message->text());
                    message->button(message->button(QMessageBox::Ok) ? QMessageBox::Ok : QMessageBox::Yes)->click();
                }
            }
        });
        timer.start(1);
    }
};

// A session over the test doubles with a main view that records, in a fresh program folder that
// is the current directory while the object lives.
struct CoreSession
{
    ProgramFolder folder;
    ScriptedPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    Session session{prompts, sound, clock};
    RecordingMainView view;
    const QString previousFolder = QDir::currentPath();

    CoreSession()
    {
        QDir::setCurrent(folder.path());
        session.languages_folder = folder.path() + "/languages/";
        session.attachMainView(&view);
    }
    ~CoreSession() { QDir::setCurrent(previousFolder); }
};

// The shared session as a GoogleTest fixture.
struct CoreTest : ::testing::Test, CoreSession
{
};

// The program started on the test doubles in its own program folder; kestrin answers the name box.
struct Program
{
    ProgramFolder folder;
    ScriptedPrompts prompts{{QString("kestrin")}};
    FakeSound sound;
    SoundLibrary* library = &sound; // the sound library start() is given
    FakeClock clock;
    NoSpeech noSpeech;
    FakeSpeech speech;                      // speaks where a test gives it voices and uses it
    SpeechSynthesizer* speaker = &noSpeech; // the synthesizer start() is given
    std::unique_ptr<QWidget> window;

    // Starts the program on what the folder holds, then chooses language when one is named.
    MainWindow* start(const QString& language = QString())
    {
        window.reset(quorvane::start(folder.path(), &prompts, library, &clock, speaker));
        if (!language.isEmpty())
            choose(main()->lang_list, language);
        return main();
    }
    MainWindow* main() const { return static_cast<MainWindow*>(window.get()); }
    Session& session() const { return sessionOf(window.get()); }
    // A path below the languages folder, as the sound library is given it.
    QString played(const QString& relative) const { return session().languages_folder + relative; }

    // Selects the row of box that shows text, as a click would.
    static void choose(ListBox* box, const QString& text)
    {
        const auto found = box->findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        select_row(box, box->row(found.first()));
    }
    // Clicks a button of the visible window windowName.
    static void press(const char* windowName, const char* button)
    {
        QWidget* target = quorvane::window(windowName);
        ASSERT_NE(target, nullptr) << windowName;
        ASSERT_NE(target->findChild<QPushButton*>(button), nullptr) << button;
        target->findChild<QPushButton*>(button)->click();
    }
    // Pauses the cards of windowName as the count-th sound starts.
    void pauseAtSound(qsizetype count, const char* windowName = "qvplay")
    {
        sound.onPlay = [this, count, windowName](const QString&) {
            if (sound.played.size() == count)
                press(windowName, "pause");
        };
    }
};

// The course: word i of the Spanish list "words" is palabra<i>|word<i>|01<iii>, its recording
// W<i>, paired with the English recording 02<iii> of bytes T<i>.
inline QString spanishPath(int i)
{
    return QStringLiteral("spanish/01/01%1.mp3").arg(i, 3, 10, QLatin1Char('0'));
}
inline QString englishPath(int i)
{
    return QStringLiteral("english/02/02%1.mp3").arg(i, 3, 10, QLatin1Char('0'));
}
inline QByteArray courseEntry(int i)
{
    return QStringLiteral("palabra%1|word%1|01%2\r\n").arg(i).arg(i, 3, 10, QLatin1Char('0')).toLatin1();
}

// Writes the course of words words into the program's folder, starts it with the list shown.
inline void openCourse(Program& program, int words = 3, bool recordings = true)
{
    QByteArray list;
    QByteArray pairs;
    for (int i = 0; i < words; ++i) {
        list += courseEntry(i);
        pairs += QStringLiteral("01%1|02%1\r\n").arg(i, 3, 10, QLatin1Char('0')).toLatin1();
        if (recordings) {
            program.folder.write("languages/" + spanishPath(i), "W" + QByteArray::number(i));
            program.folder.write("languages/" + englishPath(i), "T" + QByteArray::number(i));
        }
    }
    program.folder.write("languages/spanish/words.txt", list);
    program.folder.write("languages/spanish/trans_spanish.dat", "english\r\n");
    program.folder.write("languages/spanish/trans_index_spanish_english.dat", pairs);
    program.folder.mkdir("languages/english");
    program.start("spanish");
    select_row(program.main()->lists_list, 0);
}

} // namespace quorvane::test
