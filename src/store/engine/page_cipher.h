#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <optional>

namespace dao {

/// Pages of a protected file, taken apart without the database library, which gives up a whole file
/// for one page: each is enciphered by itself (AES-256-CBC) and signed (HMAC-SHA1), as
/// docs/file-format.md gives the settings of it.
class PageCipher {
public:
    /// The page size of protected files.
    static constexpr int PageSize = 1024;
    /// The bytes at the end of each page that are no content.
    static constexpr int Reserved = 48;
    /// The bytes at the start of a file that the key is made with, beside the password.
    static constexpr int SaltSize = 16;

    /// Takes a moment: the key is made slowly on purpose. `start`: of the file, SaltSize at least.
    PageCipher(const QString& password, const QByteArray& start);
    ~PageCipher();
    PageCipher(const PageCipher&) = delete;
    PageCipher& operator=(const PageCipher&) = delete;

    /// Whether the page is as it was written, under this password. `number` from 1.
    bool isWhole(quint32 number, const QByteArray& page) const;
    /// The page in clear, with its reserved bytes; none where it is not whole.
    std::optional<QByteArray> clear(quint32 number, const QByteArray& page) const;

private:
    using Key = std::array<unsigned char, 32>;
    Key m_key;
    Key m_signingKey;
};

} // namespace dao
