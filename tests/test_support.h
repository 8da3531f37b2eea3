#pragma once

// Helpers shared by the tests: a throw-away program folder and byte-level file access.

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quorvane::test {

// A fresh program folder in a temporary directory, removed with the object.
class ProgramFolder
{
public:
    ProgramFolder() { EXPECT_TRUE(m_dir.isValid()); }
    QString path() const { return m_dir.path(); }
    // The absolute path of a file below the folder ("languages/spanish/a.txt").
    QString file(const QString& relative) const { return m_dir.path() + "/" + relative; }
    // Writes bytes to a file below the folder, making its folders.
    void write(const QString& relative, const QByteArray& bytes) const
    {
        const QString target = file(relative);
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile out(target);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly)) << target.toStdString();
        out.write(bytes);
    }
    QByteArray read(const QString& relative) const
    {
        QFile in(file(relative));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    bool exists(const QString& relative) const { return QFileInfo::exists(file(relative)); }
    void mkdir(const QString& relative) const { QDir().mkpath(file(relative)); }

private:
    QTemporaryDir m_dir;
};

} // namespace quorvane::test
