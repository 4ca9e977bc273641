#pragma once

#include "store/engine/connection.h"
#include "store/engine/structure.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <memory>
#include <optional>

namespace dao {

/// The tables of a file: what its definitions say, and the changes of them. A change is made whole
/// or not at all. Nothing here looks at who uses a table: `DatabaseCore::checkUnused` does.
///
/// SQLite adds fields at the end and nothing else; for all other changes the table is built again
/// beside itself and takes its place. Tables related to it are built again too, without and then
/// with their relations, since dropping a table would carry over to their records.
class Catalog {
public:
    explicit Catalog(Connection& connection) : m_connection(connection) {}

    QStringList tableNames();
    /// The structure of a table, by its name without regard to case; null where there is none.
    std::shared_ptr<const TableStructure> find(QStringView name);
    QList<Relation> relations();
    /// The relations in which the table is not the foreign one.
    QList<Relation> relationsOn(QStringView table);
    bool hasRelation(QStringView name);

    void createTable(const TableStructure& table);
    void dropTable(const QString& table);
    void addField(const QString& table, const Field& field);
    void dropField(const QString& table, int field);
    void renameField(const QString& table, int field, const QString& newName);
    void moveField(const QString& table, int field, int position);
    /// The table's fields become these, in this order; what the records hold goes by the names.
    void setFields(const QString& table, const QList<Field>& fields);
    void addIndex(const QString& table, const Index& index);
    void addRelation(const Relation& relation);
    void dropRelation(const Relation& relation);

    void invalidate() { m_version = -1; } ///< what is known may be stale: read it again when asked

private:
    struct Entry {
        QString name;
        QString statement;
        std::shared_ptr<TableStructure> structure; ///< null until asked for
    };
    /// Where the fields of a table that is built again come from: a position of old, or -1.
    using FieldOrigins = QList<int>;

    void refresh();
    qint64 versionInFile();
    void noteTable(const TableStructure& table, const QString& statement);
    void forgetTable(const QString& table);
    const TableStructure& structureOf(Entry& entry);
    void readIndexes(TableStructure& table);
    void rebuild(const TableStructure& old, TableStructure table, const FieldOrigins& origins);
    void rebuildAlone(const TableStructure& old, const TableStructure& table,
                      const FieldOrigins& origins);
    bool isEmpty(const TableStructure& table);
    void copyRecords(const TableStructure& from, const TableStructure& to,
                     const FieldOrigins& origins);
    qint64 lastNumberOf(const TableStructure& table);
    void setLastNumber(const TableStructure& table, qint64 number);
    void createIndexes(const TableStructure& table);
    FieldOrigins unchanged(const TableStructure& table) const;

    Connection& m_connection;
    qint64 m_version = -1;
    QList<Entry> m_entries;
    QHash<QString, qsizetype> m_positions;        ///< folded name to position in m_entries
    std::optional<QSet<QString>> m_relationNames; ///< folded; read when first asked for
};

} // namespace dao
