#pragma once

#include "store/engine/open_file.h"
#include "store/engine/page_cipher.h"

#include <QByteArray>
#include <QStringConverter>

#include <memory>
#include <optional>

namespace dao {

/// The pages of a database file, read one by one past the database library: a damaged one costs no
/// other. What a page holds is `tree_page.h`'s.
class PageFile {
public:
    /// An unprotected file. Where its header can't be read, its pages tell their size; none where
    /// no page of it looks like one of a database.
    static std::optional<PageFile> plain(std::shared_ptr<OpenFile> file);
    /// A protected file; none where no page of it is whole under the password.
    static std::optional<PageFile> protectedBy(const QString& password,
                                               std::shared_ptr<OpenFile> file);

    bool isProtected() const { return m_cipher != nullptr; }
    quint32 count() const { return m_count; } ///< whole pages in the file
    /// The bytes of a page that are content.
    int usable() const { return m_pageSize - m_reserved; }
    QStringConverter::Encoding encoding() const { return m_encoding; } ///< of its texts
    /// The content of a page, `usable` bytes; none for one beyond the end of the file, and for a
    /// protected one that is not as it was written. `number` from 1.
    std::optional<QByteArray> page(quint32 number) const;

private:
    PageFile(std::shared_ptr<OpenFile> file, int pageSize, int reserved);
    QByteArray stored(quint32 number) const;
    void readHeader();

    std::shared_ptr<OpenFile> m_file;
    std::shared_ptr<PageCipher> m_cipher; ///< null for an unprotected file
    int m_pageSize;
    int m_reserved;
    quint32 m_count;
    QStringConverter::Encoding m_encoding = QStringConverter::Utf8;
};

/// The page size that the header of an unprotected file tells; 0 where it can't be read.
int pageSizeOf(const QByteArray& header);

/// Whether a protected file is damaged for certain: the password is right, for some page of it is
/// whole, and the first one is not.
bool isDamagedUnder(const QString& password, const std::shared_ptr<OpenFile>& file);

} // namespace dao
