#include "store/start_up.h"

#include "core/prompts.h"
#include "core/session.h"
#include "core/sound_library.h"
#include "sound/sound_error_text.h"
#include "store/paths.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QDir>

namespace quorvane {

namespace {

constexpr int kMixRate = 22050;
constexpr int kMixChannels = 64;

} // namespace

void ask_user_name(Session& session)
{
    session.user_name = session.prompts.input(texts::namePrompt(), texts::nameTitle());
    QDir().mkdir(paths::usersFolder());
    session.user_folder = paths::userFolder(session.user_name);
    QDir().mkdir(session.user_folder);
}

bool start_up(Session& session)
{
    if (!session.sound.available()) {
        session.prompts.message(texts::soundLibraryMissing());
        return false;
    }
    session.sound_ok = session.sound.init(kMixRate, kMixChannels, 0);
    if (!session.sound_ok)
        session.prompts.message(texts::soundStartFailed(sound_error_text(session.sound.getError())));
    ask_user_name(session);
    session.languages_folder = paths::languagesFolder();
    return true;
}

QStringList installed_languages(const Session& session)
{
    return scan_folder(session.languages_folder);
}

} // namespace quorvane
