#pragma once

#include "store/engine/page_file.h"
#include "store/engine/tree_page.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <functional>
#include <limits>
#include <vector>

namespace dao {

/// Numbers of records: those above `after` up to `last`.
struct RowRange {
    static constexpr qint64 None = std::numeric_limits<qint64>::min();
    static constexpr qint64 Open = std::numeric_limits<qint64>::max();

    qint64 after = None;
    qint64 last = Open;

    bool contains(qint64 row) const { return row > after && row <= last; }
};

/// The records of a table as the pages that hold them.
struct SalvagedTree {
    struct LeafPage {
        quint32 page = 0;
        RowRange rows; ///< that can stand there
    };

    quint32 root = 0;
    QList<LeafPage> leaves;
    QList<RowRange> gaps; ///< the records on pages that can't be read
};

/// A line of what a file says of its tables and indexes.
struct SalvagedDefinition {
    QString type; ///< "table", "index", ...
    QString name;
    QString table; ///< that an index is of
    quint32 root = 0;
    QString statement;
    bool isCut = false; ///< the end of the statement can't be read
};

/// Everything that the pages of a damaged file tell. Each page counts once, so that whatever the
/// file says the work is in proportion to its size.
class SalvageScan {
public:
    explicit SalvageScan(PageFile file);

    /// What can be read of the definitions, in the order in which they were made.
    const QList<SalvagedDefinition>& definitions() const { return m_definitions; }
    /// Whether these are all that there were.
    bool hasAllDefinitions() const { return m_hasAllDefinitions; }
    /// The tree of a root page. Its pages are no other tree's from then on.
    SalvagedTree takeTree(quint32 root);
    /// The trees that are under no other page, by their roots, of the pages that are no other
    /// tree's and not given back by the file. One page alone may be such a tree.
    QList<SalvagedTree> takeLooseTrees();

    /// Reads the records of a tree in the order of its pages. The record is none where the page
    /// has one that can't be read.
    using Visitor = std::function<void(qint64 row, const std::optional<SalvagedRecord>& record)>;
    void visit(const SalvagedTree& tree, const Visitor& visitor);

private:
    TreePage treePage(quint32 number) const;
    SalvagedTree walk(quint32 root, RowRange rows);
    void walkPage(quint32 number, RowRange rows, SalvagedTree& tree,
                  QList<SalvagedTree::LeafPage>& open);
    void readDefinitions();
    void addDefinitions(const SalvagedTree& tree);
    bool holdsDefinitions(quint32 number);
    void noteFreePages();
    bool isLoose(quint32 number) const { return m_isTree[number] && !m_isTaken[number]; }

    PageFile m_file;
    std::vector<bool> m_isTree;               ///< by page: whole, of a tree, and not given back
    std::vector<bool> m_isTaken;              ///< by page
    QHash<quint32, quint64> m_overflowOwners; ///< by page: the one cell that may go on there
    QHash<qint64, SalvagedDefinition> m_byRow;
    QList<SalvagedDefinition> m_definitions;
    bool m_hasAllDefinitions = true;
};

} // namespace dao
