#include "store/engine/page_cipher.h"

#include "store/engine/connection.h"
#include "store/engine/error.h"
#include "store/engine/late_library.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr int keyRounds = 256000;
constexpr int signingKeyRounds = 2;
constexpr char signingSaltMask = 0x3a;
constexpr int vectorSize = 16;
constexpr int signatureSize = 20;
constexpr int vectorAt = PageCipher::PageSize - PageCipher::Reserved;

/// The encryption that SQLCipher itself stands on, and brings along.
struct Libcrypto : LateLibrary {
    Libcrypto() : LateLibrary(ORVA_LIBCRYPTO, Binding::AtFirstCall) {}

    decltype(&PKCS5_PBKDF2_HMAC_SHA1) deriveKey = function("PKCS5_PBKDF2_HMAC_SHA1");
    decltype(&HMAC) sign = function("HMAC");
    decltype(&EVP_sha1) sha1 = function("EVP_sha1");
    decltype(&CRYPTO_memcmp) compare = function("CRYPTO_memcmp");
    decltype(&OPENSSL_cleanse) cleanse = function("OPENSSL_cleanse");

    decltype(&EVP_aes_256_cbc) aes256 = function("EVP_aes_256_cbc");
    decltype(&EVP_CIPHER_CTX_new) newContext = function("EVP_CIPHER_CTX_new");
    decltype(&EVP_CIPHER_CTX_free) freeContext = function("EVP_CIPHER_CTX_free");
    decltype(&EVP_CIPHER_CTX_set_padding) setPadding = function("EVP_CIPHER_CTX_set_padding");
    decltype(&EVP_DecryptInit_ex) beginDecryption = function("EVP_DecryptInit_ex");
    decltype(&EVP_DecryptUpdate) decrypt = function("EVP_DecryptUpdate");
};

const Libcrypto& libcrypto() {
    static const Libcrypto library;
    if (!library.isWhole())
        throw EngineError(CannotOpenFile,
                          u"The library %1, which reads protected databases, is missing."_s.arg(
                              QLatin1StringView(ORVA_LIBCRYPTO)));
    return library;
}

const unsigned char* bytesAt(const QByteArray& bytes, qsizetype at) {
    return reinterpret_cast<const unsigned char*>(bytes.constData()) + at;
}

/// Where the enciphered part of a page begins: the first one has the salt in front.
int contentAt(quint32 number) {
    return number == 1 ? PageCipher::SaltSize : 0;
}

} // namespace

PageCipher::PageCipher(const QString& password, const QByteArray& start) {
    leaveNoImage();
    const QByteArray secret = password.toUtf8();
    QByteArray salt = start.first(SaltSize);
    libcrypto().deriveKey(secret.constData(), static_cast<int>(secret.size()), bytesAt(salt, 0),
                          SaltSize, keyRounds, static_cast<int>(m_key.size()), m_key.data());
    for (char& byte : salt)
        byte = static_cast<char>(byte ^ signingSaltMask);
    libcrypto().deriveKey(reinterpret_cast<const char*>(m_key.data()),
                          static_cast<int>(m_key.size()), bytesAt(salt, 0), SaltSize,
                          signingKeyRounds, static_cast<int>(m_signingKey.size()),
                          m_signingKey.data());
}

PageCipher::~PageCipher() {
    libcrypto().cleanse(m_key.data(), m_key.size());
    libcrypto().cleanse(m_signingKey.data(), m_signingKey.size());
}

bool PageCipher::isWhole(quint32 number, const QByteArray& page) const {
    if (page.size() != PageSize)
        return false;
    const int start = contentAt(number);
    QByteArray isSigned = page.mid(start, vectorAt + vectorSize - start);
    for (int shift = 0; shift < 32; shift += 8)
        isSigned += static_cast<char>(number >> shift);
    std::array<unsigned char, EVP_MAX_MD_SIZE> signature{};
    unsigned int size = 0;
    libcrypto().sign(libcrypto().sha1(), m_signingKey.data(), static_cast<int>(m_signingKey.size()),
                     bytesAt(isSigned, 0), static_cast<size_t>(isSigned.size()), signature.data(),
                     &size);
    return size == signatureSize &&
           libcrypto().compare(signature.data(), bytesAt(page, vectorAt + vectorSize),
                               signatureSize) == 0;
}

std::optional<QByteArray> PageCipher::clear(quint32 number, const QByteArray& page) const {
    if (!isWhole(number, page))
        return std::nullopt;
    const int start = contentAt(number);
    QByteArray content = page;
    if (start > 0)
        content.replace(0, start, QByteArray("SQLite format 3\0", SaltSize));
    const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(
        libcrypto().newContext(), libcrypto().freeContext);
    int size = 0;
    const bool isDone =
        context &&
        libcrypto().beginDecryption(context.get(), libcrypto().aes256(), nullptr, m_key.data(),
                                    bytesAt(page, vectorAt)) == 1 &&
        libcrypto().setPadding(context.get(), 0) == 1 &&
        libcrypto().decrypt(context.get(), reinterpret_cast<unsigned char*>(content.data()) + start,
                            &size, bytesAt(page, start), vectorAt - start) == 1;
    return isDone ? std::optional(content) : std::nullopt;
}

} // namespace dao
