#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace dao {

/// The types of fields under their DAO numbers. Do not change them: they stand in files.
enum class DataType : short {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    LongBinary = 11,
    Memo = 12,
    Guid = 15,
};

bool isNumeric(DataType type); ///< Boolean, Byte, Integer, Long, Currency, Single, Double
bool isTextual(DataType type); ///< Text, Memo, Date, Guid

/// At most so many fields a table.
constexpr int MaximumFields = 255;
/// `Field::Attributes` of a Long field that numbers the records by itself.
constexpr int AutoIncrement = 16;
/// `Relation::Attributes`: changes and deletions of a record carry over to its related records.
constexpr int RelationUpdateCascade = 256;
constexpr int RelationDeleteCascade = 4096;

/// The description of a field: a plain value. In a file's table it is changed through
/// `TableDef::Fields`.
struct Field {
    QString Name;
    DataType Type = DataType::Text;
    int Size = 0; ///< characters of a Text, else the bytes of the type; 0 for Memo and LongBinary
    bool AllowZeroLength = false;
    bool Required = false;
    int Attributes = 0;       ///< 0 or AutoIncrement
    int OrdinalPosition = -1; ///< from 0; for a field not yet appended -1 means last

    bool isAutoIncrement() const { return Attributes & AutoIncrement; }
};

/// An index of a table. The primary one is part of the table's definition.
struct Index {
    QString Name;
    bool Primary = false;
    bool Unique = false;
    QStringList Fields; ///< names
};

/// A relation: each record of `ForeignTable` belongs to the record of `Table` with equal fields.
struct Relation {
    struct Pair {
        QString Name;        ///< of the field in `Table`
        QString ForeignName; ///< of the field in `ForeignTable`
    };

    QString Name;
    QString Table;
    QString ForeignTable;
    int Attributes = 0;
    QList<Pair> Fields;
};

/// All that a file's definition of one table says. `relations` are those in which this table is
/// the foreign one.
struct TableStructure {
    QString name;
    QList<Field> fields;
    QList<Index> indexes;
    QList<Relation> relations;

    int fieldIndex(QStringView fieldName) const; ///< -1 where there is none; case-blind
};

/// The number of a record in its table, by the one of SQLite's three names for it that no field of
/// the table takes. Raises 3125 when fields take all three.
QString rowNumberName(const TableStructure& table);

/// Whether no two records of the table can have the same values in the fields that a relation names
/// there: only then can the relation be kept.
bool hasKeyFor(const TableStructure& table, const Relation& relation);

/// The bytes or characters that a field of this type has when none are given.
int defaultSize(DataType type);

/// The type as it stands in a column's declaration: `VARCHAR(20)`, `LONGTEXT`, `SMALLINT`, ...
QString declaredType(const Field& field);

/// Reads a column's declaration back: `Type` and `Size` of the field. A declaration of another
/// tool reads as the nearest type.
void readDeclaredType(const QString& declaration, Field& field);

/// The CREATE TABLE statement, in SQLite's language, that makes the table.
QString createStatement(const TableStructure& table);

/// The CREATE INDEX statement of an index that is not the primary one. Indexes share one name space
/// in a file, so the stored name is the table's, a dot, and the index's. `schema`: "copy." for one
/// in an attached file.
QString createIndexStatement(const TableStructure& table, const Index& index,
                             const QString& schema = {});

/// A field as it stands in a CREATE TABLE or ALTER TABLE ADD statement.
QString fieldDefinition(const Field& field);

/// Reads a table's structure back from the CREATE TABLE statement that the file keeps.
TableStructure readCreateStatement(const QString& statement);

/// A name as SQLite's language takes it: between double quotes, a double quote inside doubled.
QString quoteName(QStringView name);

} // namespace dao
