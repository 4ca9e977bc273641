#pragma once

#include "store/engine/value.h"

#include <QByteArray>
#include <QList>
#include <QStringConverter>

#include <functional>
#include <optional>

namespace dao {

/// One page of a database file, as SQLite's public description of its format has it. Whatever the
/// bytes, reading ends in what they are or in that they are nothing of the kind, and costs no more
/// than the page is long.

/// An entry of a page: a record of a leaf, or a child of an interior page.
struct TreeCell {
    qint64 row = 0;       ///< the record's number; the highest one below the child
    quint32 child = 0;    ///< page of an interior page's child
    quint64 size = 0;     ///< bytes of the whole record
    QByteArray local;     ///< those of them that stand on the page itself
    quint32 overflow = 0; ///< page on which they go on; 0 for none
};

struct TreePage {
    enum Kind { Other, Leaf, Interior }; ///< of a tree of records; all else is Other
    Kind kind = Other;
    /// Whether every byte of the page is accounted for. Of one that is not, the cells are those
    /// that are sound in themselves, and an interior page has none.
    bool isWhole = false;
    QList<TreeCell> cells; ///< with rising numbers in a whole page
    quint32 lastChild = 0; ///< of an interior page: the child behind the last cell
};

/// `page`: the content of the page of this number.
TreePage readTreePage(const QByteArray& page, quint32 number);

/// A record as far as its bytes are there.
struct SalvagedRecord {
    qint64 row = 0;
    QList<Value> values = {};
    int lostValues = 0;         ///< those of them that can't be read; they are Null
    QByteArray begunValue = {}; ///< what is there of the first of those
};

/// Reads a page of the file; none where it can't be.
using PageReader = std::function<std::optional<QByteArray>(quint32 number)>;

/// The bytes of a record, with what stands on further pages: fewer than `size` where one of them
/// can't be read.
QByteArray recordBytes(const TreeCell& cell, const PageReader& overflowPage);

/// The values of a record of `size` bytes, of which `bytes` are there. None where its description
/// can't be right.
std::optional<SalvagedRecord> readRecord(qint64 row, quint64 size, const QByteArray& bytes,
                                         QStringConverter::Encoding encoding);

} // namespace dao
