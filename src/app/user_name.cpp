#include "app/user_name.h"

#include "app/prompts.h"
#include "app/session.h"
#include "app/texts.h"

#include <QDir>

namespace quorvane {

void ask_user_name(Session& session)
{
    session.user_name = session.prompts.input(main_texts::namePrompt(), main_texts::nameTitle());
    const QString separator = QDir::separator();
    const QString current = QDir::currentPath();
    QDir().mkdir(current + separator + "users");
    session.user_folder = current + separator + "users" + separator + session.user_name + separator;
    QDir().mkdir(session.user_folder);
}

} // namespace quorvane
