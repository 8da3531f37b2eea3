#pragma once

#include <QString>

namespace quorvane {

// The cipher of new recordings: Blowfish in CBC mode with the program's fixed key and
// initialisation vector, PKCS#5 padding. decipher_file(encipher_file(x)) gives x back.
bool encipher_file(const QString& plainPath, const QString& cipherPath);
bool decipher_file(const QString& cipherPath, const QString& plainPath);

} // namespace quorvane
