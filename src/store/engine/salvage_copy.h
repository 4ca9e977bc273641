#pragma once

#include "store/engine/catalog.h"
#include "store/engine/connection.h"
#include "store/engine/repair.h"
#include "store/engine/salvage_scan.h"

#include <QHash>
#include <QSet>

namespace dao {

/// The mended file while it is written: tables with the records that were found.
class SalvageCopy {
public:
    /// `connection`: of the new file, which is thrown away on a failure.
    explicit SalvageCopy(Connection& connection);

    /// Makes a table with its indexes, the primary one by its structure.
    void createTable(const TableStructure& table, const QStringList& indexStatements = {});
    bool hasTable(const QString& table) const { return m_tables.contains(folded(table)); }
    /// Adds the records of a tree to a table, each under its number. What does not fit the rules of
    /// its field is shortened or left out.
    void addRecords(const QString& table, SalvageScan& scan, const SalvagedTree& tree);
    /// What a table lacks: records on pages that can't be read.
    void noteGaps(const QString& table, const QList<RowRange>& gaps);
    bool isWhole(const QString& table) const;
    /// The values in a field of a table.
    QSet<qint64> keys(const QString& table, const QString& field);

    /// Puts the relations right, and the numbers that were given: `lastNumbers` by folded name of
    /// the table. Answers what was made of each table, in the order in which they were made.
    QList<RepairedTable> finish(const QHash<QString, qint64>& lastNumbers);

private:
    struct Written {
        TableStructure structure;
        RepairedTable report;
        QList<RowRange> gaps;
    };

    Written& written(const QString& table) { return m_tables[folded(table)]; }
    void countLost(Written& table, qint64 lastNumber);
    void setLastNumber(const Written& table, qint64 lastNumber);
    void dropEmptyRelations();
    bool mendRelations();
    void mendRelation(Written& table, qint64 row, const Relation& relation);
    bool addStandIn(Written& parent, const QString& field, qint64 key);

    static QString folded(const QString& table);

    Connection& m_connection;
    QStringList m_order; ///< folded names
    QHash<QString, Written> m_tables;
};

} // namespace dao
