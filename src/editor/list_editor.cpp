#include "editor/list_editor.h"

#include "core/prompts.h"
#include "core/session.h"
#include "editor/texts.h"
#include "store/paths.h"
#include "store/text_files.h"

#include <QFile>
#include <QFileInfo>

namespace quorvane {

ListEditorOpening open_list_editor(Session& session)
{
    if (session.current_list.isEmpty()) {
        session.prompts.message(editor_texts::kNoListChosen);
        session.current_list = editor_texts::kTemporaryList;
        return {paths::listFile(session.languages_folder, session.current_language, session.current_list), {}};
    }
    ListEditorOpening opening{paths::listFile(session.languages_folder, session.current_language, session.current_list),
                              {}};
    QFile file(opening.list_path);
    if (file.open(QIODevice::ReadOnly))
        opening.text = editor_text(file.readAll());
    return opening;
}

QString editor_text(const QByteArray& bytes)
{
    QString text = decodeWindows1252(bytes);
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text.replace(u'\r', u'\n');
    return text;
}

QByteArray editor_bytes(const QString& text)
{
    QString lines = text;
    lines.replace(QChar::ParagraphSeparator, u'\n');
    lines.replace(QChar::LineSeparator, u'\n');
    lines.replace(u'\n', QStringLiteral("\r\n"));
    return encodeWindows1252(lines + QStringLiteral("\r\n"));
}

bool save_list_text(const QString& path, const QString& text, QString* error)
{
    return writeBytes(path, editor_bytes(text), error);
}

std::optional<NewListOutcome> start_new_list(Session& session)
{
    const QString name = session.prompts.input(editor_texts::kNewListPrompt);
    if (name.isEmpty())
        return std::nullopt;
    NewListOutcome outcome{paths::listFile(session.languages_folder, session.current_language, name), false,
                           editor_texts::languageAndList(session.current_language, session.current_list)};
    if (QFileInfo::exists(outcome.list_path)) {
        session.prompts.message(editor_texts::kFileExists);
        return outcome;
    }
    outcome.clear_text = true;
    QFile file(outcome.list_path);
    if (!file.open(QIODevice::WriteOnly))
        session.prompts.message(editor_texts::notMade(outcome.list_path, file.errorString()));
    return outcome;
}

} // namespace quorvane
