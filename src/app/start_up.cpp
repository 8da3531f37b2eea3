#include "app/start_up.h"

#include "core/prompts.h"
#include "core/session.h"
#include "core/sound_error_text.h"
#include "core/sound_library.h"
#include "record/unfinished_work.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QDir>
#include <QLockFile>
#include <QObject>

#include <map>
#include <memory>

namespace quorvane {

namespace {

constexpr int kMixRate = 22050;
constexpr int kMixChannels = 64;

// Holds a student's lock for as long as the main window lives (as its child).
class StudentLock : public QObject
{
public:
    StudentLock(std::unique_ptr<QLockFile> lock, QObject* owner) : QObject(owner), m_lock(std::move(lock)) {}

private:
    std::unique_ptr<QLockFile> m_lock;
};

// Locks taken with no main window to own them, kept to the end of the process.
std::map<QString, std::unique_ptr<QLockFile>>& unownedLocks()
{
    static std::map<QString, std::unique_ptr<QLockFile>> locks;
    return locks;
}

} // namespace

bool lock_student_folder(Session& session)
{
    const QString path = paths::studentLockFile(session.user_folder);
    auto lock = std::make_unique<QLockFile>(path);
    // Only a lock whose process has ended is stale, however old it is.
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return lock->error() != QLockFile::LockFailedError;
    if (auto* owner = dynamic_cast<QObject*>(&session.mainView()))
        new StudentLock(std::move(lock), owner);
    else
        unownedLocks()[path] = std::move(lock);
    return true;
}

void ask_user_name(Session& session)
{
    session.user_name = session.prompts.input(store_texts::kNamePrompt, store_texts::kNameTitle);
    QDir().mkdir(paths::usersFolder());
    session.user_folder = paths::userFolder(session.user_name);
    QDir().mkdir(session.user_folder);
}

bool start_up(Session& session, QString* error)
{
    if (!session.sound.available()) {
        *error = store_texts::kSoundLibraryMissing;
        return false;
    }
    session.sound_ok = session.sound.init(kMixRate, kMixChannels, 0);
    if (!session.sound_ok)
        session.prompts.message(store_texts::soundStartFailed(sound_error_text(session.sound.getError())));
    ask_user_name(session);
    if (!lock_student_folder(session)) {
        *error = store_texts::studentAlreadyOpen(session.user_name);
        return false;
    }
    removeStrayRewrites(paths::programFolder());
    session.languages_folder = paths::languagesFolder();
    finish_unfinished_work(session.languages_folder);
    return true;
}

QStringList installed_languages(const Session& session)
{
    return scan_folder(session.languages_folder);
}

} // namespace quorvane
