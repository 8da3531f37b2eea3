#include "app/texts.h"

#include "core/product.h"
#include "review/texts.h"
#include "store/search_texts.h"

#include <QHash>

namespace quorvane::main_texts {

namespace {
QString web()
{
    return QString::fromLatin1(product::kWebAddress);
}
} // namespace

QString windowTitle()
{
    return web();
}

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
        {QStringLiteral("Label5"), moreWordsLine()},
        {QStringLiteral("toggle_font"), increaseFont()},
        {QStringLiteral("Contributors"), search_texts::pairingMenu()},
        {QStringLiteral("pair_recordings"), search_texts::pairingItem()},
        {QStringLiteral("Tools"), review_texts::kToolsMenu},
        {QStringLiteral("Progress"), review_texts::kProgressItem},
        {QStringLiteral("review_settings"), review_texts::kSettingsItem},
    };
    return captions.value(name);
}

QString increaseFont()
{
    return QStringLiteral("Increase Font");
}

QString decreaseFont()
{
    return QStringLiteral("Decrease Font");
}

QString moreWordsLine()
{
    return QStringLiteral("More words, phrases and languages can be obtained at %1").arg(web());
}

QString instructionsTitle()
{
    return QStringLiteral("Instructions");
}

QString instructions()
{
    return QStringLiteral(
        "First select a language to learn by clicking on its name at the top left. Lists of words for that "
        "language will then appear.  Click on one of the lists to see the words on that list. Click on a word to "
        "hear it. Click on 'flash cards' to randomnly play words on the selected list.  You can double-click on "
        "a word to move it from the 'unknown' list to the 'known' list. The program remembers which words you "
        "have marked as 'known' for the next time you run the program. You can review the words you've marked "
        "as 'known' and double-click on them to move them back onto the 'unknown' list. ");
}

QString helpTitle()
{
    return QStringLiteral("Help");
}

QString help()
{
    return QStringLiteral("For general instructions on how to use the program, click on Instructions.") +
           QStringLiteral("  Additional words, phrases and languages can be had at %1.").arg(web()) +
           QStringLiteral("  For further help, contact %1 by e-mail at %2 or by telephone at %3.")
               .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerEmail),
                    QString::fromLatin1(product::kMaintainerTelephone));
}

QString troubleshootingTitle()
{
    return QStringLiteral("Troubleshooting");
}

QString troubleshooting()
{
    const QString cr = QStringLiteral("\r");
    const QString tab = QStringLiteral("\t");
    return QStringLiteral("See the Help section if this information does not solve the problem.  ") +
           QStringLiteral("The program depends on the sound files and word lists ") +
           QStringLiteral("to be in a certain location relative to the quorvane.exe program.  The following files "
                          "have to be in ") +
           QStringLiteral("the indicated sub-folders relative to the quorvane.exe program. ") + cr + cr +
           QStringLiteral("quorvane.exe") + tab + QStringLiteral("in 'quorvane' folder") + cr +
           QStringLiteral("fmod.dll") + cr + QStringLiteral("mp3 and wav sound files") + tab +
           QStringLiteral("example: quorvane\\languages\\spanish\\01\\01436.mp3") + cr +
           QStringLiteral("text files of word lists") + tab +
           QStringLiteral("example: quorvane\\languages\\spanish\\most_common_words.txt") + cr +
           QStringLiteral("the users known word lists") + tab +
           QStringLiteral("example: quorvane\\users\\kestrin\\spanish\\most_common_words-u.txt");
}

QString aboutTitle()
{
    return QStringLiteral("About ") + web() + QStringLiteral(" Vocabulary Tutor");
}

QString about()
{
    return QStringLiteral("%1 Vocabulary Tutor, version %2, released %3.  Newer versions may be found at %4.  "
                          "This program is free for personal use and may be distributed freely.  For the terms "
                          "under which contributors may record and ")
               .arg(QString::fromLatin1(product::kName), QString::fromLatin1(product::kVersion),
                    QString::fromLatin1(product::kReleaseDate), web()) +
           QStringLiteral("edit words and phrases, see also the license on the 'Record and Edit' form.");
}

} // namespace quorvane::main_texts
