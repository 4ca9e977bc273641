#include "store/engine/jet_mdb.h"

#include "store/engine/error.h"
#include "store/engine/late_library.h"

#include <QSet>

// In front of libmdb's header, which would give GLib's templates the linkage of C.
#include <glib.h>

#include <mdbtools.h>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr quint16 DeletedSlot = 0x8000; ///< or the place that a row has moved to
constexpr quint16 MovedSlot = 0x4000;   ///< the row stands elsewhere, here is its pointer
constexpr quint16 SlotOffset = 0x1FFF;
constexpr quint32 InlineLongValue = 0x80000000;
constexpr quint32 OnePieceLongValue = 0x40000000;
constexpr int LongValueHead = 12;

struct Libmdb : LateLibrary {
    Libmdb() : LateLibrary(ORVA_LIBMDB) {}

    decltype(&mdb_open_buffer) openBuffer = function("mdb_open_buffer");
    decltype(&mdb_close) close = function("mdb_close");
    decltype(&mdb_read_pg) readPage = function("mdb_read_pg");
    decltype(&mdb_read_alt_pg) readOtherPage = function("mdb_read_alt_pg");
    decltype(&mdb_read_table) readTable = function("mdb_read_table");
    decltype(&mdb_free_tabledef) freeTable = function("mdb_free_tabledef");
    decltype(&mdb_read_columns) readColumns = function("mdb_read_columns");
    decltype(&mdb_read_indices) readIndexes = function("mdb_read_indices");
    decltype(&mdb_map_find_next) findNextInMap = function("mdb_map_find_next");
    decltype(&mdb_crack_row) crackRow = function("mdb_crack_row");
    decltype(&mdb_numeric_to_string) numericText = function("mdb_numeric_to_string");
    decltype(&g_free) freeText = function("g_free"); // GLib's, which it brings along
};

const Libmdb& libmdb() {
    static const Libmdb library;
    return library;
}

template<typename Item>
const Item& itemAt(const GPtrArray* array, int position) {
    return *static_cast<const Item*>(g_ptr_array_index(array, position));
}

QByteArrayView bytesOf(const MdbHandle& mdb) {
    return {mdb.pg_buf, mdb.fmt->pg_size};
}

DataType dataType(int libraryType) {
    switch (libraryType) {
    case MDB_BOOL:
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
    case MDB_MONEY:
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_DATETIME:
    case MDB_BINARY:
    case MDB_TEXT:
    case MDB_OLE:
    case MDB_MEMO:
    case MDB_REPID:
        return static_cast<DataType>(libraryType); // they are the DAO numbers
    case MDB_NUMERIC:
        return DataType::Double;
    default:
        raiseDamaged();
    }
}

int sizeOf(DataType type, int columnBytes, JetFormat format) {
    switch (type) {
    case DataType::Boolean:
    case DataType::Byte:
        return 1;
    case DataType::Integer:
        return 2;
    case DataType::Long:
    case DataType::Single:
        return 4;
    case DataType::Currency:
    case DataType::Double:
    case DataType::Date:
        return 8;
    case DataType::Guid:
        return 16;
    case DataType::Text:
        return format == JetFormat::Jet4 ? columnBytes / 2 : columnBytes;
    case DataType::Binary:
        return columnBytes;
    case DataType::LongBinary:
    case DataType::Memo:
        return 0;
    }
    raiseDamaged();
}

} // namespace

struct JetFile::Handle {
    struct Close {
        void operator()(MdbHandle* mdb) const { libmdb().close(mdb); }
    };
    std::unique_ptr<MdbHandle, Close> mdb;
};

struct JetFile::Place {
    quint32 page;
    quint16 flags;
    int start;
    int length;
};

struct JetFile::Shape {
    struct Free {
        void operator()(MdbTableDef* table) const { libmdb().freeTable(table); }
    };
    MdbCatalogEntry entry{};
    std::unique_ptr<MdbTableDef, Free> table;
    std::vector<int> order; ///< the positions of libmdb's columns in the order of the fields

    const MdbColumn& column(int field) const {
        return itemAt<MdbColumn>(table->columns, order[field]);
    }
};

JetFile::JetFile(const QByteArray& file, qint64 limit)
    : m_handle(std::make_unique<Handle>()), m_fileSize(file.size()), m_left(limit) {
    loadLibrary();
    if (!isJetHeader(file))
        raiseDamaged();
    // Opened without the flag for writing, the buffer is only read.
    m_handle->mdb.reset(libmdb().openBuffer(const_cast<char*>(file.constData()),
                                            static_cast<size_t>(file.size()), MDB_NOFLAGS));
    if (!m_handle->mdb)
        raiseDamaged();
    constexpr int fewestPages = 3; // the header, the map of pages, the catalogue
    const auto pageSize = m_handle->mdb->fmt->pg_size;
    if (m_fileSize % pageSize != 0 || m_fileSize < fewestPages * pageSize)
        raiseDamaged();
    m_format = m_handle->mdb->f->jet_version == MDB_VER_JET3 ? JetFormat::Jet3 : JetFormat::Jet4;
}

JetFile::~JetFile() = default;

void JetFile::loadLibrary() {
    if (!libmdb().isWhole())
        throw EngineError(CannotOpenFile, u"Files of this kind can't be read here: the library "
                                          "libmdb is not installed."_s);
}

JetTable JetFile::readTable(const QString& name, quint32 page, const JetTableRules& rules) {
    checkDefinition(page);

    Shape shape;
    shape.entry.mdb = m_handle->mdb.get();
    shape.entry.object_type = MDB_TABLE;
    shape.entry.table_pg = page;
    shape.table.reset(libmdb().readTable(&shape.entry));
    if (!shape.table || !libmdb().readColumns(shape.table.get()))
        raiseDamaged();
    // At once: it goes on from the page on which reading the columns ended.
    libmdb().readIndexes(shape.table.get());

    shape.order.resize(shape.table->num_cols);
    std::iota(shape.order.begin(), shape.order.end(), 0);
    std::stable_sort(shape.order.begin(), shape.order.end(), [&shape](int a, int b) {
        return itemAt<MdbColumn>(shape.table->columns, a).row_col_num <
               itemAt<MdbColumn>(shape.table->columns, b).row_col_num;
    });

    JetTable result;
    result.structure.name = name;
    QSet<QString> names;
    for (int i = 0; i < static_cast<int>(shape.order.size()); ++i) {
        const MdbColumn& column = shape.column(i);
        Field field;
        field.Name = QString::fromUtf8(column.name);
        field.Type = dataType(column.col_type);
        field.Size = sizeOf(field.Type, column.col_size, m_format);
        field.AllowZeroLength = rules.value(field.Name).allowZeroLength;
        field.Required = rules.value(field.Name).required;
        field.Attributes = column.is_long_auto ? AutoIncrement : 0;
        field.OrdinalPosition = i;
        names.insert(field.Name.toCaseFolded());
        result.structure.fields.append(field);
    }
    // A name that libmdb could not read comes empty.
    if (names.size() != result.structure.fields.size() || names.contains(QString()))
        raiseDamaged();

    for (unsigned i = 0; i < shape.table->indices->len; ++i) {
        const auto& from = itemAt<MdbIndex>(shape.table->indices, static_cast<int>(i));
        constexpr int ofRelation = 2; // the engine's own, which each relation brings along
        if (from.index_type == ofRelation)
            continue;
        Index index;
        index.Name = QString::fromUtf8(from.name);
        index.Primary = from.index_type == 1;
        index.Unique = index.Primary || (from.flags & MDB_IDX_UNIQUE);
        for (unsigned key = 0; key < std::min(from.num_keys, unsigned(MDB_MAX_IDX_COLS)); ++key) {
            const int column = from.key_col_num[key] - 1;
            if (column < 0 || column >= result.structure.fields.size())
                raiseDamaged();
            index.Fields.append(
                QString::fromUtf8(itemAt<MdbColumn>(shape.table->columns, column).name));
        }
        if (index.Name.isEmpty() || index.Fields.isEmpty())
            raiseDamaged();
        result.structure.indexes.append(index);
    }

    result.rows = readRows(shape);
    return result;
}

/// Reads a page into one of libmdb's two buffers; valid until the next one goes there.
JetBytes JetFile::page(quint32 number, Buffer buffer) {
    MdbHandle* mdb = m_handle->mdb.get();
    const auto size = mdb->fmt->pg_size;
    if (number >= m_fileSize / size)
        raiseDamaged();
    const auto read = buffer == Buffer::Row ? libmdb().readPage(mdb, number)
                                            : libmdb().readOtherPage(mdb, number);
    if (read != size)
        raiseDamaged();
    return {buffer == Buffer::Row ? mdb->pg_buf : mdb->alt_pg_buf, size};
}

/// Makes sure of what libmdb takes on trust: that a definition's pages are all there, each once,
/// and hold what its counts promise.
void JetFile::checkDefinition(quint32 first) {
    const MdbFormatConstants& format = *m_handle->mdb->fmt;
    const JetBytes head = page(first);
    const qint64 length = head.number<quint32>(8);
    const qint64 columns = head.number<quint16>(format.tab_num_cols_offset);
    const qint64 indexes = head.number<quint32>(format.tab_num_idxs_offset);
    const qint64 realIndexes = head.number<quint32>(format.tab_num_ridxs_offset);

    constexpr int pageHead = 8;
    qint64 found = pageHead; // the first page's counts, those of the others do not
    QSet<quint32> seen;
    for (quint32 next = first; next != 0;) {
        if (seen.contains(next))
            raiseDamaged();
        seen.insert(next);
        const JetBytes bytes = page(next);
        if (bytes.number<quint8>(0) != MDB_PAGE_TABLE)
            raiseDamaged();
        found += bytes.size() - pageHead;
        next = bytes.number<quint32>(4);
    }

    const int indexEntry = m_format == JetFormat::Jet4 ? 28 : 20;
    const int realIndexEntry = m_format == JetFormat::Jet4 ? 52 : 39;
    const qint64 promised = format.tab_cols_start_offset + columns * format.tab_col_entry_size +
                            indexes * indexEntry +
                            realIndexes * (format.tab_ridx_entry_size + realIndexEntry);
    if (columns < 1 || columns > MaximumFields || length > found || promised > length)
        raiseDamaged();
}

/// The pages that the table's usage map names, in their order in the file. A page that is none of
/// the table's own is left out: where it held rows, they are missed when they are counted.
std::vector<quint32> JetFile::dataPages(const Shape& shape) {
    constexpr size_t smallestMap = 5;
    MdbTableDef* table = shape.table.get();
    if (!table->usage_map || table->map_sz < smallestMap)
        raiseDamaged();
    std::vector<quint32> pages;
    for (quint32 last = 0;;) {
        const gint32 next = libmdb().findNextInMap(m_handle->mdb.get(), table->usage_map,
                                                   static_cast<unsigned>(table->map_sz), last);
        if (next == 0)
            return pages;
        if (next < 0 || static_cast<quint32>(next) <= last)
            raiseDamaged();
        last = static_cast<quint32>(next);
        const JetBytes bytes = page(last);
        if (bytes.number<quint8>(0) == MDB_PAGE_DATA &&
            bytes.number<quint32>(4) == shape.entry.table_pg)
            pages.push_back(last);
    }
}

/// Where the row of a slot stands. Rows lie from the end of the page towards its start.
JetFile::Place JetFile::place(JetBytes page, quint32 pageNumber, int slot) const {
    const int counter = m_handle->mdb->fmt->row_count_offset;
    if (page.number<quint8>(0) != MDB_PAGE_DATA || slot >= page.number<quint16>(counter))
        raiseDamaged();
    const quint16 entry = page.number<quint16>(counter + 2 + slot * 2);
    const int start = entry & SlotOffset;
    const int end = slot == 0 ? static_cast<int>(page.size())
                              : page.number<quint16>(counter + slot * 2) & SlotOffset;
    const int slotsEnd = counter + 2 + page.number<quint16>(counter) * 2;
    if (start < slotsEnd || start > end || end > page.size())
        raiseDamaged();
    return {pageNumber, static_cast<quint16>(entry & (DeletedSlot | MovedSlot)), start,
            end - start};
}

/// Where the row of a slot stands in truth: a moved one is followed.
JetFile::Place JetFile::rowPlace(quint32 pageNumber, int slot) {
    Place found = place(page(pageNumber), pageNumber, slot);
    for (int moves = 0; found.flags & MovedSlot; ++moves) {
        constexpr int mostMoves = 8;
        if (moves == mostMoves)
            raiseDamaged();
        const quint32 pointer = page(found.page).mid(found.start, found.length).number<quint32>(0);
        found = place(page(pointer >> 8), pointer >> 8, pointer & 0xFF);
    }
    return found;
}

QList<QList<Value>> JetFile::readRows(const Shape& shape) {
    const qsizetype promised = shape.table->num_rows;
    QList<QList<Value>> rows;
    for (const quint32 number : dataPages(shape)) {
        const int slotCount = page(number).number<quint16>(m_handle->mdb->fmt->row_count_offset);
        for (int slot = 0; slot < slotCount; ++slot) {
            if (place(page(number), number, slot).flags & DeletedSlot)
                continue;
            if (rows.size() == promised)
                raiseDamaged();
            rows.append(readRow(shape, rowPlace(number, slot)));
        }
    }
    if (rows.size() != promised)
        raiseDamaged();
    return rows;
}

QList<Value> JetFile::readRow(const Shape& shape, const Place& place) {
    // libmdb takes the row apart where it stands, in its own page buffer.
    const JetBytes bytes = page(place.page);
    const JetBytes row = bytes.mid(place.start, place.length);
    const int counter = m_format == JetFormat::Jet4 ? 2 : 1;
    const int stored = counter == 2 ? row.number<quint16>(0) : row.number<quint8>(0);
    row.from(counter + (stored + 7) / 8); // the count of fields and the bits of Null fit in
    std::vector<MdbField> fields(shape.table->num_cols);
    if (libmdb().crackRow(shape.table.get(), place.start, static_cast<size_t>(place.length),
                          fields.data()) < 0)
        raiseDamaged();

    QList<Value> values;
    values.reserve(static_cast<qsizetype>(fields.size()));
    for (int i = 0; i < static_cast<int>(fields.size()); ++i) {
        const MdbColumn& column = shape.column(i);
        const MdbField& field = fields[shape.order[i]];
        // A row older than the field ends before it, and libmdb would read its bit beyond the row.
        const bool isNull = field.is_null || column.col_num >= stored;
        if (column.col_type == MDB_BOOL)
            values.append(isNull ? 0 : -1);
        else if (isNull)
            values.append(Value());
        else
            values.append(readValue(column.col_type, column.col_scale, column.col_prec,
                                    row.mid(field.start - place.start, field.siz)));
        constexpr int smallestValue = 16; // what one takes in memory even where it is Null
        spend(smallestValue);
    }
    return values;
}

Value JetFile::readValue(int type, int scale, int precision, JetBytes bytes) {
    spend(bytes.size());
    switch (type) {
    case MDB_BYTE:
        return bytes.number<quint8>(0);
    case MDB_INT:
        return bytes.number<qint16>(0);
    case MDB_LONGINT:
        return bytes.number<qint32>(0);
    case MDB_MONEY:
        return static_cast<double>(bytes.number<qint64>(0)) / 10000.0;
    case MDB_FLOAT:
        return static_cast<double>(bytes.number<float>(0));
    case MDB_DOUBLE:
        return bytes.number<double>(0);
    case MDB_DATETIME:
        return jetDate(bytes.number<double>(0));
    case MDB_REPID:
        return jetGuid(bytes);
    case MDB_TEXT:
        return jetText(bytes, m_format);
    case MDB_BINARY:
        return bytes.toByteArray();
    case MDB_MEMO:
        return jetText(JetBytes(readLongValue(bytes)), m_format);
    case MDB_OLE:
        return readLongValue(bytes);
    default: {
        constexpr int numericSize = 17;
        const MdbHandle* mdb = m_handle->mdb.get();
        bytes.mid(0, numericSize);
        const auto start = bytes.data() - bytesOf(*mdb).data();
        const std::unique_ptr<char, decltype(&g_free)> text(
            libmdb().numericText(m_handle->mdb.get(), static_cast<int>(start), scale, precision),
            libmdb().freeText);
        return QByteArray(text.get()).toDouble();
    }
    }
}

/// A memo or a long binary: its head stands in the row, behind it the value itself where that is
/// short; else it lies in one piece, or in several that each point to the next.
QByteArray JetFile::readLongValue(JetBytes head) {
    if (head.size() < LongValueHead)
        raiseDamaged();
    const auto word = head.number<quint32>(0);
    const qint64 length = word & ~(InlineLongValue | OnePieceLongValue);
    if (length > m_fileSize)
        raiseDamaged();
    if (word & InlineLongValue)
        return head.mid(LongValueHead, length).toByteArray();
    spend(length);
    auto pointer = head.number<quint32>(4);
    if (word & OnePieceLongValue)
        return longValuePiece(pointer).mid(0, length).toByteArray();

    QByteArray whole;
    while (whole.size() < length) {
        const JetBytes piece = longValuePiece(pointer);
        pointer = piece.number<quint32>(0);
        const JetBytes content = piece.from(sizeof pointer);
        if (content.size() == 0)
            raiseDamaged();
        whole.append(content.data(), content.size());
    }
    if (whole.size() != length)
        raiseDamaged();
    return whole;
}

JetBytes JetFile::longValuePiece(quint32 pointer) {
    const JetBytes bytes = page(pointer >> 8, Buffer::LongValue);
    const Place found = place(bytes, pointer >> 8, pointer & 0xFF);
    return bytes.mid(found.start, found.length);
}

void JetFile::spend(qint64 bytes) {
    m_left -= bytes;
    if (m_left < 0)
        raiseDamaged();
}

} // namespace dao
