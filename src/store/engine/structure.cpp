#include "store/engine/structure.h"

#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

struct TypeName {
    DataType type;
    const char* declaration;
    int size;
};

/// The types as they stand in files. The names are chosen for the affinity that SQLite reads out of
/// them: `LONGTEXT` keeps a memo of 007 a text, none of the numbers' names contains another's.
constexpr std::array<TypeName, 13> typeNames{{
    {DataType::Boolean, "BOOLEAN", 1},
    {DataType::Byte, "BYTE", 1},
    {DataType::Integer, "SMALLINT", 2},
    {DataType::Long, "LONG", 4},
    {DataType::Currency, "CURRENCY", 8},
    {DataType::Single, "SINGLE", 4},
    {DataType::Double, "DOUBLE", 8},
    {DataType::Date, "DATETIME", 8},
    {DataType::Binary, "BINARY", 255},
    {DataType::Text, "VARCHAR", 255},
    {DataType::LongBinary, "LONGBINARY", 0},
    {DataType::Memo, "LONGTEXT", 0},
    {DataType::Guid, "GUID", 16},
}};

const TypeName& typeName(DataType type) {
    return *std::find_if(typeNames.begin(), typeNames.end(),
                         [type](const TypeName& entry) { return entry.type == type; });
}

QString columnDefinition(const TableStructure& table, const Field& field) {
    const QString name = quoteName(field.Name);
    QString text = name + u' ' + declaredType(field);
    if (field.isAutoIncrement()) {
        for (const Index& index : table.indexes) {
            if (index.Primary && index.Fields.size() == 1 &&
                sameName(index.Fields.first(), field.Name))
                text += u" CONSTRAINT "_s + quoteName(index.Name);
        }
        return text + u" PRIMARY KEY AUTOINCREMENT"_s;
    }
    if (field.Required)
        text += u" NOT NULL"_s;
    if (field.Type == DataType::Text)
        text += u" CHECK (length(%1) <= %2)"_s.arg(name).arg(field.Size);
    if ((field.Type == DataType::Text || field.Type == DataType::Memo) && !field.AllowZeroLength)
        text += u" CHECK (%1 <> '')"_s.arg(name);
    return text;
}

QString quotedList(const QStringList& names) {
    QStringList quoted;
    for (const QString& name : names)
        quoted += quoteName(name);
    return quoted.join(u", "_s);
}

QString relationClause(const Relation& relation) {
    QStringList own;
    QStringList others;
    for (const Relation::Pair& pair : relation.Fields) {
        own += pair.ForeignName;
        others += pair.Name;
    }
    QString text = u"CONSTRAINT %1 FOREIGN KEY (%2) REFERENCES %3 (%4)"_s.arg(
        quoteName(relation.Name), quotedList(own), quoteName(relation.Table), quotedList(others));
    if (relation.Attributes & RelationUpdateCascade)
        text += u" ON UPDATE CASCADE"_s;
    if (relation.Attributes & RelationDeleteCascade)
        text += u" ON DELETE CASCADE"_s;
    return text;
}

bool isOwnPrimaryKey(const TableStructure& table, const Index& index) {
    const int field = index.Fields.size() == 1 ? table.fieldIndex(index.Fields.first()) : -1;
    return field >= 0 && table.fields.at(field).isAutoIncrement();
}

} // namespace

bool isNumeric(DataType type) {
    return type >= DataType::Boolean && type <= DataType::Double;
}

bool isTextual(DataType type) {
    return type == DataType::Text || type == DataType::Memo || type == DataType::Date ||
           type == DataType::Guid;
}

int TableStructure::fieldIndex(QStringView fieldName) const {
    for (int i = 0; i < fields.size(); ++i) {
        if (sameName(fields.at(i).Name, fieldName))
            return i;
    }
    return -1;
}

QString rowNumberName(const TableStructure& table) {
    for (const QString& name : {u"rowid"_s, u"_rowid_"_s, u"oid"_s}) {
        if (table.fieldIndex(name) < 0)
            return name;
    }
    throw EngineError(InvalidName, u"The table '%1' uses all names that the engine needs for its "
                                   "record numbers."_s.arg(table.name));
}

bool hasKeyFor(const TableStructure& table, const Relation& relation) {
    const auto isNamed = [&relation](const QString& field) {
        return std::any_of(
            relation.Fields.begin(), relation.Fields.end(),
            [&field](const Relation::Pair& pair) { return sameName(pair.Name, field); });
    };
    if (relation.Fields.size() == 1) {
        const int field = table.fieldIndex(relation.Fields.first().Name);
        if (field >= 0 && table.fields.at(field).isAutoIncrement())
            return true;
    }
    return std::any_of(table.indexes.begin(), table.indexes.end(), [&](const Index& index) {
        return (index.Primary || index.Unique) && index.Fields.size() == relation.Fields.size() &&
               std::all_of(index.Fields.begin(), index.Fields.end(), isNamed);
    });
}

int defaultSize(DataType type) {
    return typeName(type).size;
}

QString declaredType(const Field& field) {
    if (field.isAutoIncrement())
        return u"INTEGER"_s;
    const QString name = QString::fromLatin1(typeName(field.Type).declaration);
    return field.Type == DataType::Text ? u"%1(%2)"_s.arg(name).arg(field.Size) : name;
}

void readDeclaredType(const QString& declaration, Field& field) {
    const qsizetype bracket = declaration.indexOf(u'(');
    const QString name = declaration.left(bracket).trimmed().toUpper();
    const int size = bracket < 0 ? 0 : declaration.mid(bracket + 1).section(u')', 0, 0).toInt();
    const auto known =
        std::find_if(typeNames.begin(), typeNames.end(), [&name](const TypeName& entry) {
            return name == QLatin1StringView(entry.declaration);
        });
    if (known != typeNames.end())
        field.Type = known->type;
    else if (name.contains(u"INT"))
        field.Type = DataType::Long;
    else if (name.contains(u"CHAR") && size > 0 && size <= 255)
        field.Type = DataType::Text;
    else if (name.contains(u"CHAR") || name.contains(u"CLOB") || name.contains(u"TEXT"))
        field.Type = DataType::Memo;
    else if (name.contains(u"BLOB") || name.isEmpty())
        field.Type = DataType::LongBinary;
    else if (name.startsWith(u"DATE") || name.startsWith(u"TIME"))
        field.Type = DataType::Date;
    else
        field.Type = DataType::Double;
    field.Size = field.Type == DataType::Text && size > 0 ? size : defaultSize(field.Type);
}

QString createStatement(const TableStructure& table) {
    QStringList parts;
    for (const Field& field : table.fields)
        parts += columnDefinition(table, field);
    for (const Index& index : table.indexes) {
        if (index.Primary && !isOwnPrimaryKey(table, index))
            parts += u"CONSTRAINT %1 PRIMARY KEY (%2)"_s.arg(quoteName(index.Name),
                                                             quotedList(index.Fields));
    }
    for (const Relation& relation : table.relations)
        parts += relationClause(relation);
    return u"CREATE TABLE %1 (%2)"_s.arg(quoteName(table.name), parts.join(u", "_s));
}

QString createIndexStatement(const TableStructure& table, const Index& index,
                             const QString& schema) {
    return u"CREATE %1INDEX %2%3 ON %4 (%5)"_s.arg(index.Unique ? u"UNIQUE "_s : QString(), schema,
                                                   quoteName(table.name + u'.' + index.Name),
                                                   quoteName(table.name), quotedList(index.Fields));
}

QString fieldDefinition(const Field& field) {
    return columnDefinition({}, field);
}

QString quoteName(QStringView name) {
    QString text;
    text.reserve(name.size() + 2);
    text += u'"';
    text += name;
    if (name.contains(u'"'))
        text.replace(1, name.size(), name.toString().replace(u'"', u"\"\""_s));
    text += u'"';
    return text;
}

} // namespace dao
