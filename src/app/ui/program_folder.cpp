#include "app/ui/program_folder.h"

#include "app/command_line.h"
#include "app/texts.h"
#include "app/ui/start.h"
#include "store/text_files.h"
#include "store/texts.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QProgressDialog>
#include <QWidget>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace quorvane {

namespace {

// Answers the name question with the student given on the command line, once; every other box
// goes to the real prompts.
class StudentPrompts : public Prompts
{
public:
    StudentPrompts(Prompts& prompts, const QString& student) : m_prompts(prompts), m_student(student) {}
    void message(const QString& text, const QString& title) override { m_prompts.message(text, title); }
    bool okCancel(const QString& text, const QString& title) override { return m_prompts.okCancel(text, title); }
    bool yesNo(const QString& text, const QString& title) override { return m_prompts.yesNo(text, title); }
    QString input(const QString& prompt, const QString& title, const QString& defaultText) override
    {
        if (!m_answered && title == store_texts::kNameTitle && prompt == store_texts::kNamePrompt) {
            m_answered = true;
            return m_student;
        }
        return m_prompts.input(prompt, title, defaultText);
    }

private:
    Prompts& m_prompts;
    const QString m_student;
    bool m_answered = false;
};

// Writes everything pending on the file system that holds folder to the disk.
bool syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (descriptor < 0)
        return false;
    const bool synced = ::syncfs(descriptor) == 0;
    ::close(descriptor);
    return synced;
}

void print(std::FILE* stream, const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

} // namespace

QString sampleCourseFolder(const QString& programDir)
{
    const QString installed = QDir::cleanPath(programDir + QStringLiteral("/../share/quorvane"));
    if (QFileInfo(installed + QStringLiteral("/languages")).isDir())
        return installed;
    const QString hint = QDir(programDir).filePath(kSampleHint);
    if (!QFileInfo::exists(hint))
        return {};
    const QString relative = readFirstLine(hint).trimmed();
    const QString built = QDir::cleanPath(QDir(programDir).filePath(relative));
    return !relative.isEmpty() && QFileInfo(built).isDir() ? built : QString();
}

bool copySampleCourse(const QString& sample, const QString& folder, const std::function<void(int, int)>& progress,
                      QString* error)
{
    const QString staging = folder + QStringLiteral(".partial");
    QDir(staging).removeRecursively();
    auto fail = [&](const QString& cause) {
        QDir(staging).removeRecursively();
        if (error)
            *error = cause;
        return false;
    };
    if (!QDir().mkpath(staging))
        return fail(main_texts::stagingNotMade(main_texts::path(staging)));

    QStringList files;
    const QDir source(sample);
    QDirIterator it(sample, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(source.relativeFilePath(it.next()));
    files.sort();
    // The files are written straight into the staging folder, not through the atomic writer (nor
    // QFile::copy, which goes through a temporary file too): the staging folder is the atomic unit,
    // and one sync of the whole copy before its rename stands for a sync per file, which would
    // make the first run take many seconds on a slow disk.
    for (int i = 0; i < files.size(); ++i) {
        const QString from = source.filePath(files[i]);
        const QString target = QDir(staging).filePath(files[i]);
        QFile in(from);
        if (!in.open(QIODevice::ReadOnly))
            return fail(main_texts::copyNotRead(main_texts::path(from), in.errorString()));
        QFile out(target);
        if (!QDir().mkpath(QFileInfo(target).absolutePath()) || !out.open(QIODevice::WriteOnly) ||
            out.write(in.readAll()) != in.size() || !out.flush())
            return fail(main_texts::copyNotWritten(main_texts::path(target), out.errorString()));
        if (progress)
            progress(i + 1, files.size());
    }
    if (!syncFolder(staging))
        return fail(main_texts::copyNotSaved(main_texts::path(staging), QString::fromLocal8Bit(std::strerror(errno))));
    if (!QDir().rename(staging, folder))
        return fail(main_texts::copyNotRenamed(main_texts::path(staging), main_texts::path(folder)));
    return true;
}

Launcher::Launcher(Prompts& prompts, SoundLibrary* sound, Clock* clock)
    : m_prompts(prompts), m_sound(sound), m_clock(clock)
{
}

Launcher::~Launcher()
{
    delete m_window;
}

int answerWithoutWindow(const QStringList& arguments, const QString& userFolder)
{
    const CommandLine line = parseCommandLine(arguments, userFolder);
    if (line.action == CommandLine::Action::run)
        return -1;
    const bool failed = line.action == CommandLine::Action::fail;
    print(failed ? stderr : stdout, line.output);
    return failed ? 2 : 0;
}

int Launcher::run(const QStringList& arguments, const QString& programDir, const QString& userFolder)
{
    if (const int code = answerWithoutWindow(arguments, userFolder); code >= 0)
        return code;
    const CommandLine line = parseCommandLine(arguments, userFolder);
    QString folder = line.folder;
    QString notice;
    if (folder.isEmpty()) {
        folder = userFolder;
        if (!prepareUserFolder(folder, programDir, &notice))
            return 1;
        QString error;
        if (!usableFolder(folder, &error)) {
            print(stderr, QStringLiteral("quorvane: ") + error + QLatin1Char('\n'));
            return 2;
        }
    }
    Prompts* prompts = &m_prompts;
    if (line.hasStudent) {
        m_studentPrompts = std::make_unique<StudentPrompts>(m_prompts, line.student);
        prompts = m_studentPrompts.get();
    }
    m_window = start(folder, prompts, m_sound, m_clock);
    if (!notice.isEmpty()) {
        print(stdout, notice + QLatin1Char('\n'));
        m_prompts.message(notice, main_texts::kFirstRunTitle);
    }
    return -1;
}

bool Launcher::prepareUserFolder(const QString& folder, const QString& programDir, QString* notice)
{
    if (QFileInfo::exists(folder))
        return true;
    const QString sample = sampleCourseFolder(programDir);
    QString error;
    bool made = false;
    if (sample.isEmpty()) {
        made = QDir().mkpath(folder);
        error = main_texts::kFolderCannotBeMade;
        *notice = main_texts::noSampleCourse(folder);
    } else {
        // Shown only when the copy takes longer than half a second.
        QProgressDialog dialog(main_texts::kCopyingSample, QString(), 0, 1);
        dialog.setObjectName(QStringLiteral("copy_progress"));
        dialog.setWindowTitle(main_texts::kFirstRunTitle);
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.setMinimumDuration(500);
        made = copySampleCourse(
            sample, folder,
            [&dialog](int done, int total) {
                dialog.setMaximum(total);
                dialog.setValue(done);
            },
            &error);
        *notice = main_texts::sampleCopied(folder);
    }
    if (!made) {
        const QString text = main_texts::folderNotMade(folder, error);
        print(stderr, QStringLiteral("quorvane: ") + text + QLatin1Char('\n'));
        m_prompts.message(text, main_texts::kFirstRunTitle);
    }
    return made;
}

} // namespace quorvane
