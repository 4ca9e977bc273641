#include "store/engine/jet_wire.h"

#include "store/engine/jet_bytes.h"

#include <QDataStream>
#include <QIODevice>

#include <utility>

namespace dao {

// Found by QList's operator for writing, therefore not in a nameless namespace.

static QDataStream& operator<<(QDataStream& out, const Value& value) {
    if (value.isInteger())
        return out << 'i' << value.toInteger();
    if (value.isReal())
        return out << 'r' << value.toDouble();
    if (value.isText())
        return out << 't' << value.toText();
    if (value.isBinary())
        return out << 'b' << value.toBinary();
    return out << 'n';
}

/// As QList's own operator reads it, which however reserves as many items as the bytes say.
template<typename Item>
static void readList(QDataStream& in, QList<Item>& list) {
    quint32 count = 0;
    in >> count;
    if (count > in.device()->bytesAvailable()) // an item takes one at least
        in.setStatus(QDataStream::ReadCorruptData);
    list.clear();
    for (; count > 0 && in.status() == QDataStream::Ok; --count) {
        Item item{};
        in >> item;
        list.append(std::move(item));
    }
}

template<typename Content>
static Value readAs(QDataStream& in) {
    Content content{};
    in >> content;
    return content;
}

static QDataStream& operator>>(QDataStream& in, Value& value) {
    char kind = 0;
    in >> kind;
    switch (kind) {
    case 'i':
        value = readAs<qint64>(in);
        break;
    case 'r':
        value = readAs<double>(in);
        break;
    case 't':
        value = readAs<QString>(in);
        break;
    case 'b':
        value = readAs<QByteArray>(in);
        break;
    case 'n':
        value = Value();
        break;
    default:
        in.setStatus(QDataStream::ReadCorruptData);
    }
    return in;
}

static QDataStream& operator<<(QDataStream& out, const Field& field) {
    return out << field.Name << static_cast<qint16>(field.Type) << field.Size
               << field.AllowZeroLength << field.Required << field.Attributes
               << field.OrdinalPosition;
}

static QDataStream& operator>>(QDataStream& in, Field& field) {
    qint16 type = 0;
    in >> field.Name >> type >> field.Size >> field.AllowZeroLength >> field.Required >>
        field.Attributes >> field.OrdinalPosition;
    field.Type = static_cast<DataType>(type);
    return in;
}

static QDataStream& operator<<(QDataStream& out, const Index& index) {
    return out << index.Name << index.Primary << index.Unique << index.Fields;
}

static QDataStream& operator>>(QDataStream& in, Index& index) {
    in >> index.Name >> index.Primary >> index.Unique;
    readList(in, index.Fields);
    return in;
}

static QDataStream& operator<<(QDataStream& out, const Relation::Pair& pair) {
    return out << pair.Name << pair.ForeignName;
}

static QDataStream& operator>>(QDataStream& in, Relation::Pair& pair) {
    return in >> pair.Name >> pair.ForeignName;
}

static QDataStream& operator<<(QDataStream& out, const Relation& relation) {
    return out << relation.Name << relation.Table << relation.ForeignTable << relation.Attributes
               << relation.Fields;
}

static QDataStream& operator>>(QDataStream& in, Relation& relation) {
    in >> relation.Name >> relation.Table >> relation.ForeignTable >> relation.Attributes;
    readList(in, relation.Fields);
    return in;
}

static QDataStream& operator<<(QDataStream& out, const JetTable& table) {
    return out << table.structure.name << table.structure.fields << table.structure.indexes
               << table.structure.relations << table.rows;
}

static QDataStream& operator>>(QDataStream& in, QList<Value>& row) {
    readList(in, row);
    return in;
}

static QDataStream& operator>>(QDataStream& in, JetTable& table) {
    in >> table.structure.name;
    readList(in, table.structure.fields);
    readList(in, table.structure.indexes);
    readList(in, table.structure.relations);
    readList(in, table.rows);
    return in;
}

constexpr auto WireVersion = QDataStream::Qt_6_4;
/// Stands at the end, so that what ends early is told from the whole.
constexpr quint32 EndMark = 0x4A457444;

QByteArray packContent(const JetContent& content) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(WireVersion);
    out << content.tables << EndMark;
    return bytes;
}

JetContent unpackContent(const QByteArray& bytes) {
    QDataStream in(bytes);
    in.setVersion(WireVersion);
    JetContent content;
    quint32 mark = 0;
    readList(in, content.tables);
    in >> mark;
    if (in.status() != QDataStream::Ok || mark != EndMark || !in.atEnd())
        raiseDamaged();
    return content;
}

} // namespace dao
