#include "app/texts.h"

#include "core/product.h"
#include "review/texts.h"
#include "store/texts.h"

#include <QDir>
#include <QHash>

namespace quorvane::main_texts {

QString caption(const QString& name)
{
    static const QHash<QString, QString> captions{
        {QStringLiteral("Label9"), QStringLiteral("<--- Search")},
        {QStringLiteral("Label1"), QStringLiteral("Click A Language")},
        {QStringLiteral("Label3"), QStringLiteral("Click Unknown List")},
        {QStringLiteral("Label2"), QStringLiteral("Known Lists")},
        {QStringLiteral("Label4"),
         QStringLiteral("Double-click a word to move it from your unknown to your known list, or vice versa.")},
        {QStringLiteral("flash_cards"), QStringLiteral("Large Flash Cards and MP3")},
        {QStringLiteral("test_me"), QStringLiteral("Start Student Test")},
        {QStringLiteral("show_test_results"), QStringLiteral("Show Test Results")},
        {QStringLiteral("print_list"), QStringLiteral("Show Selected Word List")},
        {QStringLiteral("record_word_word"), QStringLiteral("Record and Edit Selected Word")},
        {QStringLiteral("record_word_list"), QStringLiteral("Record and Edit Selected List")},
        {QStringLiteral("new_language"), QStringLiteral("Add new language")},
        {QStringLiteral("add_list"), QStringLiteral("Add new word list")},
        {QStringLiteral("play_paragraph"), QStringLiteral("Play a paragraph of words, highlighting each word")},
        {QStringLiteral("paly_syllables"),
         QStringLiteral("Play each syllable in selected word, highlighting each letter")},
        {QStringLiteral("exit_program"), QStringLiteral("Exit Program")},
        {QStringLiteral("File"), QStringLiteral("&File")},
        {QStringLiteral("Exit"), QStringLiteral("E&xit")},
        {QStringLiteral("import_list"), QStringLiteral("&Import Word List...")},
        {QStringLiteral("export_list"), QStringLiteral("&Export Word List...")},
        {QStringLiteral("Instructions1"), QStringLiteral("&Instructions")},
        {QStringLiteral("Instructions2"), QStringLiteral("Instructions")},
        {QStringLiteral("Help1"), QStringLiteral("&Help")},
        {QStringLiteral("Help2"), QStringLiteral("Hel&p")},
        {QStringLiteral("Troubleshooting"), QStringLiteral("&Troubleshooting")},
        {QStringLiteral("About1"), QStringLiteral("&About")},
        {QStringLiteral("small_flash"), QStringLiteral("Small Flash Card (Stays On Top)")},
        {QStringLiteral("Label5"), kMoreWordsLine},
        {QStringLiteral("toggle_font"), kIncreaseFont},
        {QStringLiteral("Contributors"), store_texts::kPairingMenu},
        {QStringLiteral("pair_recordings"), store_texts::kPairingItem},
        {QStringLiteral("Tools"), review_texts::kToolsMenu},
        {QStringLiteral("Progress"), review_texts::kProgressItem},
        {QStringLiteral("review_settings"), review_texts::kSettingsItem},
    };
    return captions.value(name);
}

QString path(const QString& file)
{
    return QDir::toNativeSeparators(file);
}

QString folderMissing(const QString& folder)
{
    return QStringLiteral("the folder %1 does not exist.").arg(path(folder));
}

QString notAFolder(const QString& folder)
{
    return QStringLiteral("%1 is not a folder.").arg(path(folder));
}

QString folderNotWritable(const QString& folder)
{
    return QStringLiteral("the folder %1 cannot be written to (Quorvane keeps each student's words there).")
        .arg(path(folder));
}

QString badStudent(const QString& name)
{
    return QStringLiteral("the student's name \"%1\" cannot be a folder name; leave out / and \\.").arg(name);
}

QString sampleCopied(const QString& folder)
{
    return QStringLiteral("Your Quorvane folder is %1. The sample course was copied there: your word lists, "
                          "recordings and progress are kept in it.")
        .arg(path(folder));
}

QString noSampleCourse(const QString& folder)
{
    return QStringLiteral("Your Quorvane folder is %1. The sample course was not found beside the program, so "
                          "the folder starts empty: add a language with \"Add new language\".")
        .arg(path(folder));
}

QString folderNotMade(const QString& folder, const QString& cause)
{
    return QStringLiteral("Quorvane could not set up your folder %1: %2").arg(path(folder), cause);
}

QString stagingNotMade(const QString& folder)
{
    return QStringLiteral("the folder %1 cannot be made.").arg(folder);
}

QString copyNotRead(const QString& file, const QString& reason)
{
    return QStringLiteral("%1 cannot be read (%2).").arg(file, reason);
}

QString copyNotWritten(const QString& file, const QString& reason)
{
    return QStringLiteral("%1 cannot be written (%2).").arg(file, reason);
}

QString copyNotSaved(const QString& folder, const QString& reason)
{
    return QStringLiteral("the copy in %1 cannot be saved to the disk (%2).").arg(folder, reason);
}

QString copyNotRenamed(const QString& from, const QString& to)
{
    return QStringLiteral("%1 cannot be renamed to %2.").arg(from, to);
}

} // namespace quorvane::main_texts
