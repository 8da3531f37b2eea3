#include "sound/cipher.h"

#include <QFile>
#include <QSaveFile>

#include <openssl/evp.h>
#include <openssl/provider.h>

#include <memory>

namespace quorvane {

namespace {

const char* const kKeyHex = "5c1e07a9d3b46f28e90d1a7c3b5f2e84";
const char* const kIvHex = "a4d90e3b7c1f6285";
constexpr int kBlowfishBlock = 8;

// Blowfish lives in OpenSSL's legacy provider. It is loaded into a library context of our own,
// so that nothing else in the process sees legacy algorithms. Created on first use, freed at
// exit before OpenSSL's own clean-up (which was registered earlier).
class BlowfishContext
{
public:
    BlowfishContext()
    {
        m_library = OSSL_LIB_CTX_new();
        if (!m_library)
            return;
        m_legacy = OSSL_PROVIDER_load(m_library, "legacy");
        m_default = OSSL_PROVIDER_load(m_library, "default");
        if (m_legacy && m_default)
            m_cipher = EVP_CIPHER_fetch(m_library, "BF-CBC", nullptr);
    }
    ~BlowfishContext()
    {
        EVP_CIPHER_free(m_cipher);
        if (m_default)
            OSSL_PROVIDER_unload(m_default);
        if (m_legacy)
            OSSL_PROVIDER_unload(m_legacy);
        OSSL_LIB_CTX_free(m_library);
    }
    BlowfishContext(const BlowfishContext&) = delete;
    BlowfishContext& operator=(const BlowfishContext&) = delete;

    const EVP_CIPHER* cipher() const { return m_cipher; }

private:
    OSSL_LIB_CTX* m_library = nullptr;
    OSSL_PROVIDER* m_legacy = nullptr;
    OSSL_PROVIDER* m_default = nullptr;
    EVP_CIPHER* m_cipher = nullptr;
};

const EVP_CIPHER* blowfish()
{
    static const BlowfishContext context;
    return context.cipher();
}

struct CipherContextFree
{
    void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); }
};

bool transformFile(const QString& inputPath, const QString& outputPath, CipherDirection direction)
{
    QFile input(inputPath);
    if (!input.open(QIODevice::ReadOnly))
        return false;
    const QByteArray data = input.readAll();
    input.close();

    const std::optional<QByteArray> result =
        blowfishCbc(data, QByteArray::fromHex(kKeyHex), QByteArray::fromHex(kIvHex), direction);
    if (!result)
        return false;
    QSaveFile output(outputPath);
    if (!output.open(QIODevice::WriteOnly))
        return false;
    if (output.write(*result) != result->size()) {
        output.cancelWriting();
        return false;
    }
    return output.commit();
}

} // namespace

std::optional<QByteArray> blowfishCbc(const QByteArray& data, const QByteArray& key, const QByteArray& iv,
                                      CipherDirection direction)
{
    const EVP_CIPHER* cipher = blowfish();
    if (!cipher || iv.size() != kBlowfishBlock || key.isEmpty())
        return std::nullopt;
    const std::unique_ptr<EVP_CIPHER_CTX, CipherContextFree> context(EVP_CIPHER_CTX_new());
    if (!context)
        return std::nullopt;
    const int encipher = direction == CipherDirection::Encipher ? 1 : 0;
    // The key length is set before the key itself, since Blowfish takes keys of several lengths.
    if (EVP_CipherInit_ex2(context.get(), cipher, nullptr, nullptr, encipher, nullptr) != 1 ||
        EVP_CIPHER_CTX_set_key_length(context.get(), static_cast<int>(key.size())) != 1 ||
        EVP_CipherInit_ex2(context.get(), nullptr, reinterpret_cast<const unsigned char*>(key.constData()),
                           reinterpret_cast<const unsigned char*>(iv.constData()), encipher, nullptr) != 1)
        return std::nullopt;

    QByteArray output(data.size() + kBlowfishBlock, '\0');
    auto* out = reinterpret_cast<unsigned char*>(output.data());
    int written = 0;
    if (EVP_CipherUpdate(context.get(), out, &written, reinterpret_cast<const unsigned char*>(data.constData()),
                         static_cast<int>(data.size())) != 1)
        return std::nullopt;
    int last = 0;
    if (EVP_CipherFinal_ex(context.get(), out + written, &last) != 1)
        return std::nullopt;
    output.truncate(written + last);
    return output;
}

std::optional<QByteArray> encipher_bytes(const QByteArray& plain)
{
    return blowfishCbc(plain, QByteArray::fromHex(kKeyHex), QByteArray::fromHex(kIvHex), CipherDirection::Encipher);
}

bool encipher_file(const QString& plainPath, const QString& cipherPath)
{
    return transformFile(plainPath, cipherPath, CipherDirection::Encipher);
}

bool decipher_file(const QString& cipherPath, const QString& plainPath)
{
    return transformFile(cipherPath, plainPath, CipherDirection::Decipher);
}

} // namespace quorvane
