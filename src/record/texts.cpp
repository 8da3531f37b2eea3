#include "record/texts.h"

#include "core/product.h"

namespace quorvane::record_texts {

namespace {

QString fromLatin(const char* text)
{
    return QString::fromLatin1(text);
}

} // namespace

QString windowTitle()
{
    return fromLatin(product::kWebAddress);
}

QString titleLabel()
{
    return QStringLiteral("Record and Edit Words");
}

QString listNameLabel()
{
    return QStringLiteral("Word List Name:");
}

QString currentListPlaceholder()
{
    return QStringLiteral("current list");
}

QString editHint()
{
    return QStringLiteral("You can change the text in the white box if you are recording the words. Do not change the "
                          "text in the bottom grey box unless you are adding a new word or phrase pair.");
}

QString about()
{
    return QStringLiteral("This part of the program lets you add, record and edit words and phrases for any "
                          "language. When you have finished, the 'Email Files' button gives instructions for "
                          "sending your work to %1 so that everyone can use it. Telephone: %2")
        .arg(fromLatin(product::kMaintainerName), fromLatin(product::kMaintainerTelephone));
}

QString recordSelectedLabel()
{
    return QStringLiteral("Record Selected Word");
}

QString recordMultipleLabel()
{
    return QStringLiteral("Record Multiple Words");
}

QString keepSilenceCaption()
{
    return QStringLiteral("Do not automaticaly remove silence from beginning and end.");
}

QString withSoundsCaption()
{
    return QStringLiteral("Words With Sound Files");
}

QString withoutSoundsCaption()
{
    return QStringLiteral("Words Without Sound Files");
}

QString withSoundsCount(int count)
{
    return QString::number(count) + QLatin1Char(' ') + withSoundsCaption();
}

QString withoutSoundsCount(int count)
{
    return QString::number(count) + QLatin1Char(' ') + withoutSoundsCaption();
}

QString fileNumber(const QString& soundNumber)
{
    return QStringLiteral("File: ") + soundNumber;
}

QString takeLevel(double seconds, double peakDbfs, bool silent)
{
    const QString length = QString::number(seconds, 'f', 2) + QStringLiteral(" s");
    if (silent)
        return length + QStringLiteral(", silent");
    return length + QStringLiteral(", peak ") + QString::number(peakDbfs, 'f', 1) + QStringLiteral(" dBFS");
}

QString stopCaption()
{
    return QStringLiteral("STOP");
}

QString fastCaption()
{
    return QStringLiteral("Click for fast method");
}

QString slowCaption()
{
    return QStringLiteral("Click for slow method");
}

QString unlimitedCaption()
{
    return QStringLiteral("Start Recording (no time limit)");
}

QString addWordCaption()
{
    return QStringLiteral("Add the above text as a new word/phrase pair");
}

QString saveTextCaption()
{
    return QStringLiteral("Save the above text changes");
}

QString deleteWordCaption()
{
    return QStringLiteral("Delete this word/phrase pair");
}

QString refreshCaption()
{
    return QStringLiteral("Refresh Lists to Show Changes");
}

QString exitCaption()
{
    return QStringLiteral("Exit and Return");
}

QString advancedEditingCaption()
{
    return QStringLiteral("Advanced List Editing");
}

QString textInstructionsCaption()
{
    return QStringLiteral("Text Editing Instructions");
}

QString recordInstructionsCaption()
{
    return QStringLiteral("Recording Instructions");
}

QString licenseCaption()
{
    return QStringLiteral("License");
}

QString zipCaption()
{
    return QStringLiteral("Email Files");
}

QString textInstructions()
{
    return QStringLiteral("First correct the spelling of the words on the left before recording.  Try to make the "
                          "translations one word. Do not modify the english words. If two or three translations are "
                          "needed, seperate each one with a comma (,). Do not use uncommon words.  Just the words all "
                          "people know.  ") +
           QStringLiteral("Please e-mail your corrected word lists to %1 at %2, so that they can be shared with "
                          "everyone who uses the program. ")
               .arg(fromLatin(product::kMaintainerName), fromLatin(product::kMaintainerEmail)) +
           QStringLiteral("Click the 'email' button for more instruction on how to email the corrected lists. ");
}

QString recordInstructions()
{
    return QStringLiteral("Use a noise-free room and make the recordings as loud as possible without distortion.  ") +
           QStringLiteral("Start speaking as soon as the program says 'SPEAK'. Before doing much work, please send "
                          "a few recorded words to %1 (%2, telephone %3) so that the quality can be approved. ")
               .arg(fromLatin(product::kMaintainerName), fromLatin(product::kMaintainerEmail),
                    fromLatin(product::kMaintainerTelephone)) +
           QStringLiteral("Speak your normal speed or a little faster. Do not speak slow. For single words, try to use "
                          "the 0.8, 1, or 1.2 second recording options. ") +
           QStringLiteral("It's best to place your cursor over the stop button before recording multiple words.  The "
                          "'multiple' recording method makes recording many words easy.  Do not be afraid of making a "
                          "mistake: you can do the recordings again and it simply erases the first recording.  ") +
           QStringLiteral("When finished with all the recordings click the 'Email Files' button which compresses and "
                          "combines the sound files for emailing to me.  ") +
           QStringLiteral("If you're good at computers, it's interesting to take a look at all the files in the "
                          "Quorvane directory to see where all these sound files are stored.");
}

QString license()
{
    return QStringLiteral("By sending words, translations and recordings to %1 you agree that they may be "
                          "corrected, combined with the work of others and distributed with %2 to everyone, free of "
                          "charge, under the terms %2 itself is distributed under. You keep the right to use your own "
                          "work in any way you like. Please send only your own recordings of your own voice. (These "
                          "terms are a placeholder until the maintainers publish the final ones.)")
        .arg(fromLatin(product::kMaintainerName), fromLatin(product::kName));
}

QString slowerMessage()
{
    return QStringLiteral(
        "This makes the pause between recordings longer (slow). Click again to make it shorter (fast).");
}

QString fasterMessage()
{
    return QStringLiteral(
        "This makes the pause between recordings shorter (fast). Click again to make it longer (slow).");
}

QString selectListFirst()
{
    return QStringLiteral("You have to select a word on one of the lists. If you just added the word and don't see it, "
                          "you need to click the refresh button and then look at the bottom of the list.");
}

QString selectWordFirst()
{
    return QStringLiteral("You have to select a word on one of the lists.");
}

QString countdownTwo()
{
    return QStringLiteral("2");
}

QString countdownOne()
{
    return QStringLiteral("1");
}

QString countdownSpeak()
{
    return QStringLiteral("Speak");
}

QString selectWordToRecord()
{
    return QStringLiteral("First select a word to record or edit.");
}

QString selectListToRecord()
{
    return QStringLiteral("First select a list of words to record or edit.");
}

QString folderNotMade(const QString& folder, const QString& reason)
{
    return QStringLiteral("The folder %1 could not be made (%2), so nothing was recorded.").arg(folder, reason);
}

} // namespace quorvane::record_texts
