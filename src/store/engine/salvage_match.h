#pragma once

#include "store/engine/repair.h"
#include "store/engine/salvage_scan.h"

#include <QSet>

#include <functional>

namespace dao {

/// What the values of a field are, over all records of a tree.
struct FieldProfile {
    bool hasNull = false;
    bool hasInteger = false;
    bool hasReal = false;
    bool hasText = false;
    bool hasBinary = false;
    bool hasEmptyText = false;
    qsizetype longestText = 0; ///< characters
    QSet<qint64> integers;
};

/// A tree of which nothing says what table it is.
struct LooseTree {
    SalvagedTree tree;
    QList<FieldProfile> fields;
    qsizetype fewestFields = 0;
    QSet<qint64> rows;
    qint64 firstRow = 0;
    qint64 lastRow = 0;
};

LooseTree profileOf(SalvageScan& scan, SalvagedTree tree);

/// A table that may have such trees.
struct MatchTarget {
    ExpectedTable table;
    bool isExpected = false; ///< nothing of it is known; it takes one tree
    QList<RowRange> gaps;    ///< of one that is known: its records that are missing
    quint32 root = 0;        ///< of one that is known
    /// The last number that it gave to a record, 0 for one that never had any; less where that is
    /// not known.
    qint64 lastNumber = -1;
};

/// The values in a field of a table that is whole by now; none for another table.
using KeysOf =
    std::function<std::optional<QSet<qint64>>(const QString& table, const QString& field)>;

struct TreeMatch {
    qsizetype tree = 0;
    qsizetype target = 0;
};

/// Tells whose the trees are, those for which it is certain: by the number of fields, the values'
/// types, the numbers of the records that a table lacks, the relations between tables, and the
/// order in which tables are made. `targets` are in that order.
QList<TreeMatch> matchTrees(const QList<LooseTree>& trees, const QList<MatchTarget>& targets,
                            const KeysOf& keysOf);

} // namespace dao
