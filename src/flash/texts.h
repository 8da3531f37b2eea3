#pragma once

#include <QString>

// The fixed texts of the flash cards and of MP3 compilation.
namespace quorvane::flash_texts {

// Window titles.
QString largeTitle();
QString smallTitle();

// Captions of the two windows' controls.
QString repeatsCaption();
QString speedCaption();
QString delayTopCaption();
QString delayBottomCaption();
QString interlaceCaption();
QString topOnlyCaption();
QString smallTopOnlyCaption();
QString bothCaption();
QString knownCaption();
QString skipCaption();
QString nextCaption();
QString pauseCaption();
QString resumeCaption();
QString createMp3Caption();
QString autoMp3Caption();
QString exitCaption();
// The large window's groups of buttons.
QString timingGroup();
QString speechGroup();
QString cardsGroup();
QString mp3Group();

// What the labels of a running card say.
QString wordsRemain(int count);
QString playOf(int play, int count);
QString speedShown(float speed);
// wordsPlayed 0 is the run's empty counter before its first card: the number is left out.
QString wordsAdded(int wordsPlayed);
QString wordsCompleted(int count);

// The settings boxes.
QString speedTitle();
QString largeSpeedPrompt();
QString smallSpeedPrompt();
QString largeSpeedRefused();
QString smallSpeedRefused();
QString delayTopPrompt();
QString delayBottomPrompt();
QString largeInterlacePrompt();
QString smallInterlacePrompt();
QString topOnlyMessage();
QString bothMessage();

// The small card's stop when recordings are missing.
QString notEnoughSounds();
// The main window's flash-card buttons without a shown list.
QString selectListFirst();
// A sound number that names no slot of the pairing table.
QString badSoundNumber(const QString& soundNumber);

// MP3 compilation.
QString createMp3Prompt();
QString createMp3Started();
QString autoMp3Confirm();
QString autoMp3RepeatPrompt();
QString autoMp3SilencePrompt();
QString filesCompleted(int count);
QString cancelled();
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
QString repeatCountPrompt();
QString repeatCountReset();

} // namespace quorvane::flash_texts
