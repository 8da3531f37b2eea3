#pragma once

#include <QString>

// The fixed texts of the flash cards and of MP3 compilation.
namespace quorvane::flash_texts {

// Window titles.
inline const QString kLargeTitle = QStringLiteral("Random Word Play");
inline const QString kSmallTitle = QStringLiteral("Flash Card");

// Captions of the two windows' controls.
inline const QString kRepeatsCaption = QStringLiteral("# Repeats");
inline const QString kSpeedCaption = QStringLiteral("Speed");
inline const QString kDelayTopCaption = QStringLiteral("Delay Showing Top");
inline const QString kDelayBottomCaption = QStringLiteral("Delay Showing Bottom");
inline const QString kInterlaceCaption = QStringLiteral("Interlace");
inline const QString kTopOnlyCaption = QStringLiteral("Say Top Only");
inline const QString kSmallTopOnlyCaption = QStringLiteral("Top Only");
inline const QString kBothCaption = QStringLiteral("Say Both");
inline const QString kKnownCaption = QStringLiteral("Mark Word As Known");
inline const QString kSkipCaption = QStringLiteral("Skip");
inline const QString kNextCaption = QStringLiteral("Next");
inline const QString kPauseCaption = QStringLiteral("Pause");
inline const QString kResumeCaption = QStringLiteral("Resume");
inline const QString kCreateMp3Caption = QStringLiteral("Create MP3 File Based on Current Settings");
inline const QString kAutoMp3Caption = QStringLiteral("Create MP3 files for all words on this list");
inline const QString kExitCaption = QStringLiteral("Exit");
// The large window's groups of buttons.
inline const QString kTimingGroup = QStringLiteral("Repeats and timing");
inline const QString kSpeechGroup = QStringLiteral("What is said");
inline const QString kCardsGroup = QStringLiteral("Cards");
inline const QString kMp3Group = QStringLiteral("MP3 for a portable player");

// What the labels of a running card say.
QString wordsRemain(int count);
QString playOf(int play, int count);
QString speedShown(float speed);
// wordsPlayed 0 is the run's empty counter before its first card: the number is left out.
QString wordsAdded(int wordsPlayed);
QString wordsCompleted(int count);

// The settings boxes.
inline const QString kSpeedTitle = QStringLiteral("Speed Bump");
inline const QString kLargeSpeedPrompt =
    QStringLiteral("How long should the pause between words be (in seconds)?  Use 0.1 for a quick speed and 2 "
                   "for slow. For phrases, it needs to be 1 or higher.");
inline const QString kSmallSpeedPrompt =
    QStringLiteral("How long should the pause between words be (in seconds)? Use 0.1 for a quick speed and 2 "
                   "for slow. For phrases, it needs to be 1 or higher.");
inline const QString kLargeSpeedRefused =
    QStringLiteral("That was less than 0.01 or more than 10. It's been set to .2 second.");
inline const QString kSmallSpeedRefused =
    QStringLiteral("That was less than 0.01 or more than 10. It's been set to .1 second.");
inline const QString kDelayTopPrompt =
    QStringLiteral("How many times should the TOP word play before showing the TOP word's text?  Enter only a number.");
inline const QString kDelayBottomPrompt = QStringLiteral(
    "How many times should the TOP word play before showing the BOTTOM word's text?  Enter only a number.");
inline const QString kLargeInterlacePrompt =
    QStringLiteral("How many times should the foreign word be played before the translation is played?  This "
                   "works only if both languages are installed.");
inline const QString kSmallInterlacePrompt =
    QStringLiteral("How many times should the top word be played before the bottom word is played?   This "
                   "works only if both languages are installed.");
inline const QString kTopOnlyMessage = QStringLiteral("This plays just the top word.");
inline const QString kBothMessage =
    QStringLiteral("If both language's sound files are installed, this plays both the top and bottom words.");

// The small card's stop when recordings are missing.
inline const QString kNotEnoughSounds = QStringLiteral("Not enough files had sound files");
// The main window's flash-card buttons without a shown list.
inline const QString kSelectListFirst = QStringLiteral("You must first select a list to start the flash cards.");
// A sound number that names no slot of the pairing table.
QString badSoundNumber(const QString& soundNumber);

// MP3 compilation.
inline const QString kCreateMp3Prompt = QStringLiteral(
    "This will create an mp3 file for your portable mp3 player. It is not useful unless you have the sound files "
    "for both languages.  The mp3 file this creates will be stored in the quorvane folder and called "
    "out_file.mp3.  What you heard before seeing this message is what the mp3 will sound like. You can click "
    "cancel now to listen to check if the current 'repeat', 'speed', and 'interlace' settings are what you "
    "want. I recommend the settings to be 6, 0.4, and 1.  This means each foreign word will be played 6 times "
    "with a pause of 0.4 seconds between words and the translation will be spoken ('interlaced') every 1 times "
    "the foreign word is spoken. If you want to create the mp3 file now, enter the number of words you want in "
    "the mp3 file in the blank below and click OK.  I recommend 50.");
inline const QString kCreateMp3Started =
    QStringLiteral("When the recording is completed, the flash cards will resume normal mode and begin playing "
                   "aloud.  When this finishes, rename out_file.mp3 if you don't want it deleted the next time "
                   "you use this function.");
inline const QString kAutoMp3Confirm =
    QStringLiteral("This will create MP3 files for the current word list in blocks of 100 words.  The mp3 files "
                   "will be stored in the quorvane folder and named 100words1.mp3, 100words2.mp3 etc.  If these "
                   "files already exit from a previous session, they will be deleted.");
// Wording kept as the students know it, slips included.
inline const QString kAutoMp3RepeatPrompt = QStringLiteral(
    "How many times should each word be repeated?  I recommend 5.  Type only a number. It may take 5 minutes for "
    "this operation to complete if you select 5 repeats and there are 1000 words on this word list.  With a "
    "setting of 5, each mp3 file is 4 MB and 15 minuutes long (for word lists, not phrases).  There will a "
    "message to let you know when it's complete.  You may click cancel to stop this operation.");
inline const QString kAutoMp3SilencePrompt =
    QStringLiteral("How many seconds of silence should there be between words?  Enter zero \"0\" for no pause "
                   "between words (it's fast) or 0.5 for a little bit of a pause.");
QString filesCompleted(int count);
inline const QString kCancelled = QStringLiteral("Action has been cancelled");
// An MP3 file of auto_mp3 that could not be written, and a compilation stopped part-way.
QString mp3NotWritten(const QString& path, const QString& reason);
QString mp3Stopped(int words, const QString& path);
// The tags of compiled files and their playlist.
QString blockTitle(const QString& list, int first, int last);
QString captureTitle(const QString& list);
QString compilationAlbum(const QString& language, const QString& list);
QString playlistNotWritten(const QString& path, const QString& reason);

// The buttons' tooltips, naming the keys that do the same.
inline const QString kPauseTip = QStringLiteral("Pause the cards (Space)");
inline const QString kResumeTip = QStringLiteral("Resume the cards with a new word (Space)");
inline const QString kSkipTip =
    QStringLiteral("Go to the next word (Right arrow); Left arrow plays the last word again");
inline const QString kExitTip = QStringLiteral("Close the flash cards (Esc)");

// The repeat-count box and its answer to a count out of range.
inline const QString kRepeatCountPrompt =
    QStringLiteral("How many times should words be repeated before going to the next word? Recommended ranges "
                   "are from 3 to 30.");
inline const QString kRepeatCountReset = QStringLiteral("That was too few or too many. It is now set to 3.");

} // namespace quorvane::flash_texts
