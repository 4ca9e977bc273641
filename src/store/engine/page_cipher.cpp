#include "store/engine/page_cipher.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>

#include <memory>

namespace dao {
namespace {

constexpr int keyRounds = 256000;
constexpr int signingKeyRounds = 2;
constexpr char signingSaltMask = 0x3a;
constexpr int vectorSize = 16;
constexpr int signatureSize = 20;
constexpr int vectorAt = PageCipher::PageSize - PageCipher::Reserved;

const unsigned char* bytesAt(const QByteArray& bytes, qsizetype at) {
    return reinterpret_cast<const unsigned char*>(bytes.constData()) + at;
}

/// Where the enciphered part of a page begins: the first one has the salt in front.
int contentAt(quint32 number) {
    return number == 1 ? PageCipher::SaltSize : 0;
}

} // namespace

PageCipher::PageCipher(const QString& password, const QByteArray& start) {
    const QByteArray secret = password.toUtf8();
    QByteArray salt = start.first(SaltSize);
    PKCS5_PBKDF2_HMAC_SHA1(secret.constData(), static_cast<int>(secret.size()), bytesAt(salt, 0),
                           SaltSize, keyRounds, static_cast<int>(m_key.size()), m_key.data());
    for (char& byte : salt)
        byte = static_cast<char>(byte ^ signingSaltMask);
    PKCS5_PBKDF2_HMAC_SHA1(reinterpret_cast<const char*>(m_key.data()),
                           static_cast<int>(m_key.size()), bytesAt(salt, 0), SaltSize,
                           signingKeyRounds, static_cast<int>(m_signingKey.size()),
                           m_signingKey.data());
}

PageCipher::~PageCipher() {
    OPENSSL_cleanse(m_key.data(), m_key.size());
    OPENSSL_cleanse(m_signingKey.data(), m_signingKey.size());
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
    HMAC(EVP_sha1(), m_signingKey.data(), static_cast<int>(m_signingKey.size()),
         bytesAt(isSigned, 0), static_cast<size_t>(isSigned.size()), signature.data(), &size);
    return size == signatureSize &&
           CRYPTO_memcmp(signature.data(), bytesAt(page, vectorAt + vectorSize), signatureSize) ==
               0;
}

std::optional<QByteArray> PageCipher::clear(quint32 number, const QByteArray& page) const {
    if (!isWhole(number, page))
        return std::nullopt;
    const int start = contentAt(number);
    QByteArray content = page;
    if (start > 0)
        content.replace(0, start, QByteArray("SQLite format 3\0", SaltSize));
    const std::unique_ptr<EVP_CIPHER_CTX, decltype(&EVP_CIPHER_CTX_free)> context(
        EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
    int size = 0;
    const bool isDone =
        context &&
        EVP_DecryptInit_ex(context.get(), EVP_aes_256_cbc(), nullptr, m_key.data(),
                           bytesAt(page, vectorAt)) == 1 &&
        EVP_CIPHER_CTX_set_padding(context.get(), 0) == 1 &&
        EVP_DecryptUpdate(context.get(), reinterpret_cast<unsigned char*>(content.data()) + start,
                          &size, bytesAt(page, start), vectorAt - start) == 1;
    return isDone ? std::optional(content) : std::nullopt;
}

} // namespace dao
