#include "app/command_line.h"

#include "app/texts.h"
#include "core/product.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace quorvane {

namespace {

CommandLine failure(const QString& cause)
{
    CommandLine line;
    line.action = CommandLine::Action::fail;
    line.output = QStringLiteral("quorvane: ") + cause + QLatin1Char('\n') + main_texts::kTryHelp + QLatin1Char('\n');
    return line;
}

} // namespace

bool usableFolder(const QString& folder, QString* error)
{
    const QFileInfo info(folder);
    QString cause;
    if (!info.exists())
        cause = main_texts::folderMissing(folder);
    else if (!info.isDir())
        cause = main_texts::notAFolder(folder);
    else if (!info.isReadable() || !info.isWritable() || !info.isExecutable())
        cause = main_texts::folderNotWritable(folder);
    if (error)
        *error = cause;
    return cause.isEmpty();
}

CommandLine parseCommandLine(const QStringList& arguments, const QString& userFolder)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(main_texts::kDescription);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption folder(QStringLiteral("folder"),
                                    main_texts::kFolderOption.arg(main_texts::path(userFolder)),
                                    main_texts::kFolderValue);
    const QCommandLineOption student(QStringLiteral("student"), main_texts::kStudentOption, main_texts::kStudentValue);
    parser.addOption(folder);
    parser.addOption(student);

    if (!parser.parse(arguments))
        return failure(parser.errorText());
    CommandLine line;
    if (parser.isSet(help) || parser.isSet(version)) {
        line.action = CommandLine::Action::print;
        line.output = parser.isSet(help) ? parser.helpText()
                                         : QStringLiteral("quorvane %1\n").arg(QString::fromLatin1(product::kVersion));
        return line;
    }
    if (!parser.positionalArguments().isEmpty())
        return failure(main_texts::kNoArguments);
    if (parser.isSet(folder)) {
        line.folder = QFileInfo(parser.value(folder)).absoluteFilePath();
        QString error;
        if (!usableFolder(line.folder, &error))
            return failure(error);
    }
    if (parser.isSet(student)) {
        line.hasStudent = true;
        line.student = parser.value(student);
        if (line.student.isEmpty())
            return failure(main_texts::kEmptyStudent);
        if (line.student.contains(QLatin1Char('/')) || line.student.contains(QLatin1Char('\\')) ||
            line.student == QLatin1String(".") || line.student == QLatin1String(".."))
            return failure(main_texts::badStudent(line.student));
    }
    return line;
}

} // namespace quorvane
