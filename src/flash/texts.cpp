#include "flash/texts.h"

#include "core/basic.h"

namespace quorvane::flash_texts {

QString largeTitle()
{
    return QStringLiteral("Random Word Play");
}

QString smallTitle()
{
    return QStringLiteral("Flash Card");
}

QString repeatsCaption()
{
    return QStringLiteral("# Repeats");
}

QString speedCaption()
{
    return QStringLiteral("Speed");
}

QString delayTopCaption()
{
    return QStringLiteral("Delay Showing Top");
}

QString delayBottomCaption()
{
    return QStringLiteral("Delay Showing Bottom");
}

QString interlaceCaption()
{
    return QStringLiteral("Interlace");
}

QString topOnlyCaption()
{
    return QStringLiteral("Say Top Only");
}

QString smallTopOnlyCaption()
{
    return QStringLiteral("Top Only");
}

QString bothCaption()
{
    return QStringLiteral("Say Both");
}

QString knownCaption()
{
    return QStringLiteral("Mark Word As Known");
}

QString skipCaption()
{
    return QStringLiteral("Skip");
}

QString nextCaption()
{
    return QStringLiteral("Next");
}

QString pauseCaption()
{
    return QStringLiteral("Pause");
}

QString resumeCaption()
{
    return QStringLiteral("Resume");
}

QString createMp3Caption()
{
    return QStringLiteral("Create MP3 File Based on Current Settings");
}

QString autoMp3Caption()
{
    return QStringLiteral("Create MP3 files for all words on this list");
}

QString exitCaption()
{
    return QStringLiteral("Exit");
}

QString timingGroup()
{
    return QStringLiteral("Repeats and timing");
}

QString speechGroup()
{
    return QStringLiteral("What is said");
}

QString cardsGroup()
{
    return QStringLiteral("Cards");
}

QString mp3Group()
{
    return QStringLiteral("MP3 for a portable player");
}

QString wordsRemain(int count)
{
    return QString::number(count) + QStringLiteral(" words remain on this list");
}

QString playOf(int play, int count)
{
    return QString::number(play) + QStringLiteral(" of ") + QString::number(count);
}

QString speedShown(float speed)
{
    return basic::general(speed) + QStringLiteral(" sec");
}

QString wordsAdded(int wordsPlayed)
{
    return (wordsPlayed == 0 ? QString() : QString::number(wordsPlayed)) + QStringLiteral(" words added");
}

QString wordsCompleted(int count)
{
    return QString::number(count) + QStringLiteral(" words completed");
}

QString speedTitle()
{
    return QStringLiteral("Speed Bump");
}

QString largeSpeedPrompt()
{
    return QStringLiteral("How long should the pause between words be (in seconds)?  Use 0.1 for a quick speed and 2 "
                          "for slow. For phrases, it needs to be 1 or higher.");
}

QString smallSpeedPrompt()
{
    return QStringLiteral("How long should the pause between words be (in seconds)? Use 0.1 for a quick speed and 2 "
                          "for slow. For phrases, it needs to be 1 or higher.");
}

QString largeSpeedRefused()
{
    return QStringLiteral("That was less than 0.01 or more than 10. It's been set to .2 second.");
}

QString smallSpeedRefused()
{
    return QStringLiteral("That was less than 0.01 or more than 10. It's been set to .1 second.");
}

QString delayTopPrompt()
{
    return QStringLiteral(
        "How many times should the TOP word play before showing the TOP word's text?  Enter only a number.");
}

QString delayBottomPrompt()
{
    return QStringLiteral(
        "How many times should the TOP word play before showing the BOTTOM word's text?  Enter only a number.");
}

QString largeInterlacePrompt()
{
    return QStringLiteral("How many times should the foreign word be played before the translation is played?  This "
                          "works only if both languages are installed.");
}

QString smallInterlacePrompt()
{
    return QStringLiteral("How many times should the top word be played before the bottom word is played?   This "
                          "works only if both languages are installed.");
}

QString topOnlyMessage()
{
    return QStringLiteral("This plays just the top word.");
}

QString bothMessage()
{
    return QStringLiteral("If both language's sound files are installed, this plays both the top and bottom words.");
}

QString notEnoughSounds()
{
    return QStringLiteral("Not enough files had sound files");
}

QString selectListFirst()
{
    return QStringLiteral("You must first select a list to start the flash cards.");
}

QString badSoundNumber(const QString& soundNumber)
{
    return QStringLiteral("The sound number \"%1\" names no recording: sound numbers run from 0 to 99999.")
        .arg(soundNumber);
}

QString createMp3Prompt()
{
    return QStringLiteral(
        "This will create an mp3 file for your portable mp3 player. It is not useful unless you have the sound files "
        "for both languages.  The mp3 file this creates will be stored in the quorvane folder and called "
        "out_file.mp3.  What you heard before seeing this message is what the mp3 will sound like. You can click "
        "cancel now to listen to check if the current 'repeat', 'speed', and 'interlace' settings are what you "
        "want. I recommend the settings to be 6, 0.4, and 1.  This means each foreign word will be played 6 times "
        "with a pause of 0.4 seconds between words and the translation will be spoken ('interlaced') every 1 times "
        "the foreign word is spoken. If you want to create the mp3 file now, enter the number of words you want in "
        "the mp3 file in the blank below and click OK.  I recommend 50.");
}

QString createMp3Started()
{
    return QStringLiteral("When the recording is completed, the flash cards will resume normal mode and begin playing "
                          "aloud.  When this finishes, rename out_file.mp3 if you don't want it deleted the next time "
                          "you use this function.");
}

QString autoMp3Confirm()
{
    return QStringLiteral("This will create MP3 files for the current word list in blocks of 100 words.  The mp3 files "
                          "will be stored in the quorvane folder and named 100words1.mp3, 100words2.mp3 etc.  If these "
                          "files already exit from a previous session, they will be deleted.");
}

QString autoMp3RepeatPrompt()
{
    // Wording kept as the students know it, slips included.
    return QStringLiteral(
        "How many times should each word be repeated?  I recommend 5.  Type only a number. It may take 5 minutes for "
        "this operation to complete if you select 5 repeats and there are 1000 words on this word list.  With a "
        "setting of 5, each mp3 file is 4 MB and 15 minuutes long (for word lists, not phrases).  There will a "
        "message to let you know when it's complete.  You may click cancel to stop this operation.");
}

QString autoMp3SilencePrompt()
{
    return QStringLiteral("How many seconds of silence should there be between words?  Enter zero \"0\" for no pause "
                          "between words (it's fast) or 0.5 for a little bit of a pause.");
}

QString filesCompleted(int count)
{
    return QString::number(count) + QStringLiteral(" files have been completed.");
}

QString cancelled()
{
    return QStringLiteral("Action has been cancelled");
}

QString mp3NotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("The file %1 could not be written (%2). The MP3 files are not finished.").arg(path, reason);
}

QString mp3Stopped(int words, const QString& path)
{
    return QStringLiteral("Stopped after %1 words. The file %2 holds the last of them.").arg(words).arg(path);
}

QString blockTitle(const QString& list, int first, int last)
{
    return QStringLiteral("%1 %2-%3").arg(list).arg(first).arg(last);
}

QString captureTitle(const QString& list)
{
    return QStringLiteral("%1 flash cards").arg(list);
}

QString compilationAlbum(const QString& language, const QString& list)
{
    return QStringLiteral("%1 - %2").arg(language, list);
}

QString playlistNotWritten(const QString& path, const QString& reason)
{
    return QStringLiteral("The playlist %1 could not be written (%2). The MP3 files themselves are finished.")
        .arg(path, reason);
}

QString repeatCountPrompt()
{
    return QStringLiteral("How many times should words be repeated before going to the next word? Recommended ranges "
                          "are from 3 to 30.");
}

QString repeatCountReset()
{
    return QStringLiteral("That was too few or too many. It is now set to 3.");
}

} // namespace quorvane::flash_texts
