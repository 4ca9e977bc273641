#include "store/engine/salvage_scan.h"

#include <QtEndian>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr int definitionFields = 5;
constexpr quint32 firstPage = 1; ///< the root of the definitions
constexpr qsizetype freeListAt = 32;

quint32 numberAt(const QByteArray& page, qsizetype at) {
    return qFromBigEndian<quint32>(page.constData() + at);
}

bool isDefinition(const SalvagedRecord& record) {
    static const QStringList types{u"table"_s, u"index"_s, u"view"_s, u"trigger"_s};
    return record.values.size() == definitionFields && record.values[0].isText() &&
           types.contains(record.values[0].toText()) && record.values[1].isText() &&
           record.values[2].isText() && record.values[3].isInteger();
}

/// The pages that a page of the list of free ones names; none where it is no such page.
std::optional<QList<quint32>> freePagesOn(const QByteArray& page, quint32 pages) {
    const quint32 next = numberAt(page, 0);
    const quint32 count = numberAt(page, 4);
    if (next > pages || static_cast<qsizetype>(count) > page.size() / 4 - 2)
        return std::nullopt;
    QList<quint32> named;
    for (quint32 i = 0; i < count; ++i) {
        const quint32 number = numberAt(page, 8 + 4 * static_cast<qsizetype>(i));
        if (number < 2 || number > pages)
            return std::nullopt;
        named += number;
    }
    return named;
}

} // namespace

SalvageScan::SalvageScan(PageFile file)
    : m_file(std::move(file)), m_isTree(m_file.count() + 1), m_isTaken(m_file.count() + 1) {
    for (quint32 number = 2; number <= m_file.count(); ++number)
        m_isTree[number] = treePage(number).isWhole;
    noteFreePages();
    readDefinitions();
}

/// A page that the file has given back keeps its content for a while: records that are deleted.
void SalvageScan::noteFreePages() {
    for (quint32 number = 2; number <= m_file.count(); ++number) {
        const std::optional<QByteArray> page =
            m_isTree[number] ? std::nullopt : m_file.page(number);
        if (!page)
            continue;
        for (const quint32 free : freePagesOn(*page, m_file.count()).value_or(QList<quint32>()))
            m_isTree[free] = false;
    }
}

TreePage SalvageScan::treePage(quint32 number) const {
    const std::optional<QByteArray> page = m_file.page(number);
    return page ? readTreePage(*page, number) : TreePage();
}

SalvagedTree SalvageScan::takeTree(quint32 root) {
    return walk(root, {});
}

SalvagedTree SalvageScan::walk(quint32 root, RowRange rows) {
    SalvagedTree tree;
    tree.root = root;
    QList<SalvagedTree::LeafPage> open{SalvagedTree::LeafPage{root, rows}};
    while (!open.isEmpty()) {
        const SalvagedTree::LeafPage next = open.takeLast();
        walkPage(next.page, next.rows, tree, open);
    }
    return tree;
}

void SalvageScan::walkPage(quint32 number, RowRange rows, SalvagedTree& tree,
                           QList<SalvagedTree::LeafPage>& open) {
    const bool isThere = number >= 1 && number <= m_file.count() && !m_isTaken[number];
    const TreePage page = isThere ? treePage(number) : TreePage();
    if (!page.isWhole)
        tree.gaps += rows;
    if (page.kind == TreePage::Leaf && (page.isWhole || !page.cells.isEmpty())) {
        m_isTaken[number] = true;
        tree.leaves += SalvagedTree::LeafPage{number, rows};
    } else if (page.isWhole) {
        m_isTaken[number] = true;
        // From the last child to the first: what was put down last is walked first.
        qint64 last = rows.last;
        quint32 child = page.lastChild;
        for (qsizetype i = page.cells.size() - 1; i >= -1; --i) {
            const qint64 after = i < 0 ? rows.after : page.cells[i].row;
            open += SalvagedTree::LeafPage{child, {after, last}};
            last = after;
            child = i < 0 ? 0 : page.cells[i].child;
        }
    }
}

QList<SalvagedTree> SalvageScan::takeLooseTrees() {
    std::vector<bool> isChild(m_isTree.size());
    for (quint32 number = 2; number <= m_file.count(); ++number) {
        if (!isLoose(number))
            continue;
        const TreePage page = treePage(number);
        if (page.kind != TreePage::Interior)
            continue;
        for (const TreeCell& cell : page.cells) {
            if (cell.child <= m_file.count())
                isChild[cell.child] = true;
        }
        if (page.lastChild <= m_file.count())
            isChild[page.lastChild] = true;
    }
    QList<SalvagedTree> trees;
    for (quint32 number = 2; number <= m_file.count(); ++number) {
        if (isLoose(number) && !isChild[number])
            trees += walk(number, {});
    }
    return trees;
}

void SalvageScan::visit(const SalvagedTree& tree, const Visitor& visitor) {
    for (const SalvagedTree::LeafPage& leaf : tree.leaves) {
        const TreePage page = treePage(leaf.page);
        for (qsizetype i = 0; i < page.cells.size(); ++i) {
            const TreeCell& cell = page.cells[i];
            if (!leaf.rows.contains(cell.row))
                continue;
            const quint64 owner = (quint64{leaf.page} << 16) + static_cast<quint64>(i);
            const QByteArray bytes = recordBytes(cell, [&](quint32 number) {
                if (!m_overflowOwners.contains(number))
                    m_overflowOwners.insert(number, owner);
                return m_overflowOwners.value(number) == owner ? m_file.page(number) : std::nullopt;
            });
            visitor(cell.row, readRecord(cell.row, cell.size, bytes, m_file.encoding()));
        }
    }
}

bool SalvageScan::holdsDefinitions(quint32 number) {
    const TreePage page = treePage(number);
    if (page.kind != TreePage::Leaf || page.cells.isEmpty())
        return false;
    return std::all_of(page.cells.begin(), page.cells.end(), [this](const TreeCell& cell) {
        const auto record = readRecord(cell.row, cell.size, cell.local, m_file.encoding());
        return record && isDefinition(*record);
    });
}

void SalvageScan::addDefinitions(const SalvagedTree& tree) {
    visit(tree, [this](qint64 row, const std::optional<SalvagedRecord>& record) {
        if (m_byRow.contains(row))
            return;
        if (!record || !isDefinition(*record)) {
            m_hasAllDefinitions = false;
            return;
        }
        const QList<Value>& values = record->values;
        SalvagedDefinition definition{
            values[0].toText(), values[1].toText(),
            values[2].toText(), static_cast<quint32>(values[3].toInteger()),
            values[4].toText(), record->lostValues > 0};
        if (definition.isCut)
            definition.statement = QString::fromUtf8(record->begunValue).section(QChar(), 0, 0);
        m_byRow.insert(row, std::move(definition));
    });
}

void SalvageScan::readDefinitions() {
    const SalvagedTree tree = takeTree(firstPage);
    m_hasAllDefinitions = tree.gaps.isEmpty();
    addDefinitions(tree);
    for (quint32 number = 2; number <= m_file.count() && !tree.gaps.isEmpty(); ++number) {
        if (isLoose(number) && holdsDefinitions(number))
            addDefinitions(walk(number, {}));
    }
    QList<qint64> rows = m_byRow.keys();
    std::sort(rows.begin(), rows.end());
    for (const qint64 row : std::as_const(rows))
        m_definitions += m_byRow.take(row);
}

} // namespace dao
