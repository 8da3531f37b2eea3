#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane {

// The cipher of new recordings: Blowfish in CBC mode with the program's fixed key and
// initialisation vector, PKCS#5 padding. decipher_file(encipher_file(x)) gives x back.
// The output file is replaced whole; false when a file cannot be read or written or the data
// does not decipher (the caller is not required to look).
bool encipher_file(const QString& plainPath, const QString& cipherPath);
bool decipher_file(const QString& cipherPath, const QString& plainPath);

// The bytes of a whole file enciphered as encipher_file writes them; nothing when the cipher is
// unavailable.
std::optional<QByteArray> encipher_bytes(const QByteArray& plain);

enum class CipherDirection { Encipher, Decipher };

// Blowfish-CBC with PKCS#5 padding over a whole buffer, with the key (16 bytes) and vector
// (8 bytes) given. Nothing when the cipher is unavailable or deciphered data is not validly
// padded. Runs in a library context of its own, leaving OpenSSL's default context untouched.
std::optional<QByteArray> blowfishCbc(const QByteArray& data, const QByteArray& key, const QByteArray& iv,
                                      CipherDirection direction);

} // namespace quorvane
