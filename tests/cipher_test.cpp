#include "sound/cipher.h"

#include "test_support.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace {

using quorvane::test::ProgramFolder;

const char* const kFixedKey = "5c1e07a9d3b46f28e90d1a7c3b5f2e84";
const char* const kFixedIv = "a4d90e3b7c1f6285";

// Runs the openssl command line over one file; empty when it fails.
QByteArray opensslBlowfish(const QString& input, const QString& output, bool decipher)
{
    QStringList arguments{QStringLiteral("enc")};
    if (decipher)
        arguments << QStringLiteral("-d");
    arguments << QStringLiteral("-bf-cbc") << QStringLiteral("-provider") << QStringLiteral("legacy")
              << QStringLiteral("-provider") << QStringLiteral("default") << QStringLiteral("-K")
              << QString::fromLatin1(kFixedKey) << QStringLiteral("-iv") << QString::fromLatin1(kFixedIv)
              << QStringLiteral("-in") << input << QStringLiteral("-out") << output;
    QProcess process;
    process.start(QStringLiteral("openssl"), arguments);
    if (!process.waitForFinished(30000) || process.exitCode() != 0) {
        ADD_FAILURE() << "openssl failed: " << process.readAllStandardError().toStdString();
        return {};
    }
    QFile file(output);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray samplesOfLength(int length)
{
    QByteArray bytes(length, '\0');
    for (int i = 0; i < length; ++i)
        bytes[i] = static_cast<char>((i * 37 + 11) & 0xFF);
    return bytes;
}

TEST(Cipher, KnownVectorEnciphersAndDeciphersBack)
{
    const QByteArray key = QByteArray::fromHex("00112233445566778899aabbccddeeff");
    const QByteArray iv = QByteArray::fromHex("0102030405060708");
    const QByteArray plain("hello blowfish cbc test");
    const QByteArray expected = QByteArray::fromHex("aa13434ebbe78df9cc1e21207aeb26d292bea50d516b2f1f");

    const auto enciphered = quorvane::blowfishCbc(plain, key, iv, quorvane::CipherDirection::Encipher);
    ASSERT_TRUE(enciphered.has_value());
    EXPECT_EQ(enciphered->toHex(), expected.toHex());
    const auto deciphered = quorvane::blowfishCbc(expected, key, iv, quorvane::CipherDirection::Decipher);
    ASSERT_TRUE(deciphered.has_value());
    EXPECT_EQ(*deciphered, plain);

    // A whole block of padding follows data of a whole number of blocks; a wrong key fails the padding check.
    const auto eightBytes = quorvane::blowfishCbc("12345678", key, iv, quorvane::CipherDirection::Encipher);
    ASSERT_TRUE(eightBytes.has_value());
    EXPECT_EQ(eightBytes->size(), 16);
    const QByteArray otherKey = QByteArray::fromHex("ffeeddccbbaa99887766554433221100");
    EXPECT_FALSE(quorvane::blowfishCbc(expected, otherKey, iv, quorvane::CipherDirection::Decipher).has_value());
}

TEST(Cipher, FilesAgreeWithTheOpensslCommandLine)
{
    ProgramFolder folder;
    const QByteArray samples = samplesOfLength(30870);
    folder.write("a.tmp", samples);

    ASSERT_TRUE(quorvane::encipher_file(folder.file("a.tmp"), folder.file("a.str")));
    EXPECT_EQ(folder.read("a.tmp"), samples); // the plain file is left in place
    EXPECT_EQ(folder.read("a.str").size(), 30872);
    EXPECT_EQ(opensslBlowfish(folder.file("a.str"), folder.file("by_openssl.raw"), true), samples);

    const QByteArray other = samplesOfLength(1001);
    folder.write("b.raw", other);
    const QByteArray made = opensslBlowfish(folder.file("b.raw"), folder.file("b.str"), false);
    ASSERT_FALSE(made.isEmpty());
    ASSERT_TRUE(quorvane::decipher_file(folder.file("b.str"), folder.file("b.tmp")));
    EXPECT_EQ(folder.read("b.tmp"), other);

    // An empty recording round-trips too; an existing output is replaced whole.
    folder.write("empty.tmp", QByteArray());
    folder.write("empty.out", QByteArray(100, 'x'));
    ASSERT_TRUE(quorvane::encipher_file(folder.file("empty.tmp"), folder.file("empty.str")));
    EXPECT_EQ(folder.read("empty.str").size(), 8);
    ASSERT_TRUE(quorvane::decipher_file(folder.file("empty.str"), folder.file("empty.out")));
    EXPECT_EQ(folder.read("empty.out"), QByteArray());

    EXPECT_FALSE(quorvane::decipher_file(folder.file("absent.str"), folder.file("absent.tmp")));
    EXPECT_FALSE(folder.exists("absent.tmp"));
}

} // namespace
