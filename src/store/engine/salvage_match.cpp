#include "store/engine/salvage_match.h"

#include "store/engine/names.h"

#include <algorithm>
#include <utility>

namespace dao {
namespace {

void note(FieldProfile& field, const Value& value) {
    field.hasNull |= value.isNull();
    field.hasReal |= value.isReal();
    field.hasBinary |= value.isBinary();
    if (value.isInteger()) {
        field.hasInteger = true;
        field.integers.insert(value.toInteger());
    }
    if (value.isText()) {
        const QString text = value.toText();
        field.hasText = true;
        field.hasEmptyText |= text.isEmpty();
        field.longestText = std::max(field.longestText, text.toUcs4().size());
    }
}

bool hasRightType(const FieldProfile& profile, const Field& field) {
    switch (field.Type) {
    case DataType::Single:
    case DataType::Double:
    case DataType::Currency:
        return !profile.hasText && !profile.hasBinary;
    case DataType::Binary:
    case DataType::LongBinary:
        return !profile.hasText && !profile.hasInteger && !profile.hasReal;
    default:
        break;
    }
    if (isTextual(field.Type))
        return !profile.hasInteger && !profile.hasReal && !profile.hasBinary;
    return !profile.hasText && !profile.hasReal && !profile.hasBinary;
}

bool fitsField(const FieldProfile& profile, const Field& field) {
    if (field.isAutoIncrement()) // which stands in the record's number alone
        return !profile.hasInteger && !profile.hasReal && !profile.hasText && !profile.hasBinary;
    const bool isFreeText = field.Type != DataType::Text || profile.longestText <= field.Size;
    const bool takesEmpty = field.AllowZeroLength || !profile.hasEmptyText;
    return hasRightType(profile, field) && isFreeText && takesEmpty &&
           !(field.Required && profile.hasNull);
}

bool fitsStructure(const LooseTree& tree, const ExpectedTable& table) {
    const QList<Field>& fields = table.structure.fields;
    const qsizetype fewest = table.fewestFields > 0 ? table.fewestFields : fields.size();
    if (tree.fewestFields < fewest ||
        (tree.fields.size() > fields.size() && table.furtherFields.isEmpty()))
        return false;
    for (qsizetype i = 0; i < std::min(tree.fields.size(), fields.size()); ++i) {
        if (!fitsField(tree.fields[i], fields[i]) ||
            (tree.fields[i].hasNull && table.filledFields.contains(fields[i].Name)))
            return false;
    }
    return true;
}

bool fitsGaps(const LooseTree& tree, const MatchTarget& target) {
    if (target.isExpected)
        return target.lastNumber < 0 || tree.lastRow <= target.lastNumber;
    return std::any_of(target.gaps.begin(), target.gaps.end(), [&tree](const RowRange& gap) {
        return gap.contains(tree.firstRow) && gap.contains(tree.lastRow);
    });
}

/// The values of a field that others can belong to.
QSet<qint64> keysIn(const LooseTree& tree, const TableStructure& table, const QString& field) {
    const int position = table.fieldIndex(field);
    if (position < 0 || position >= tree.fields.size())
        return {};
    return table.fields[position].isAutoIncrement() ? tree.rows : tree.fields[position].integers;
}

/// What the relations of a table say of a tree being its own.
enum class Kinship { Refused, Possible, Certain };

Kinship kinshipOf(const LooseTree& tree, const MatchTarget& target,
                  const QList<MatchTarget>& targets, const KeysOf& keysOf) {
    Kinship kinship = Kinship::Possible;
    const TableStructure& table = target.table.structure;
    const auto compare = [&](const QSet<qint64>& fewer, const QSet<qint64>& more) {
        if (!more.contains(fewer))
            kinship = Kinship::Refused;
        else if (fewer == more && !fewer.isEmpty() && kinship != Kinship::Refused)
            kinship = Kinship::Certain;
    };
    for (const Relation& relation : table.relations) {
        if (relation.Fields.size() != 1)
            continue;
        const Relation::Pair& pair = relation.Fields.first();
        if (const auto parents = keysOf(relation.Table, pair.Name))
            compare(keysIn(tree, table, pair.ForeignName), *parents);
    }
    if (!target.isExpected)
        return kinship;
    for (const MatchTarget& other : targets) {
        for (const Relation& relation : other.table.structure.relations) {
            if (!sameName(relation.Table, table.name) || relation.Fields.size() != 1)
                continue;
            const Relation::Pair& pair = relation.Fields.first();
            if (const auto children = keysOf(other.table.structure.name, pair.ForeignName))
                compare(*children, keysIn(tree, table, pair.Name));
        }
    }
    return kinship;
}

/// The trees and targets with what joins them.
class Matcher {
public:
    Matcher(const QList<LooseTree>& trees, const QList<MatchTarget>& targets, const KeysOf& keysOf)
        : m_trees(trees), m_targets(targets), m_kinships(trees.size()) {
        for (qsizetype tree = 0; tree < trees.size(); ++tree) {
            for (const MatchTarget& target : targets) {
                const bool fits =
                    fitsGaps(trees[tree], target) && fitsStructure(trees[tree], target.table);
                m_kinships[tree] +=
                    fits ? kinshipOf(trees[tree], target, targets, keysOf) : Kinship::Refused;
            }
        }
    }

    QList<TreeMatch> matches() {
        while (matchSingle(Kinship::Possible) || matchSingle(Kinship::Certain)) {
        }
        matchByOrder();
        return m_matches;
    }

private:
    bool isFree(qsizetype target) const { return !m_fullTargets.contains(target); }

    QList<qsizetype> targetsOf(qsizetype tree, Kinship least) const {
        QList<qsizetype> found;
        for (qsizetype target = 0; target < m_targets.size(); ++target) {
            if (m_kinships[tree][target] >= least && isFree(target))
                found += target;
        }
        return found;
    }

    bool isOpen(qsizetype tree) const {
        return !m_matchedTrees.contains(tree) && !m_trees[tree].rows.isEmpty();
    }

    void match(qsizetype tree, qsizetype target) {
        m_matches += TreeMatch{tree, target};
        m_matchedTrees.insert(tree);
        if (!m_targets[target].isExpected)
            return;
        for (qsizetype other = 0; other < m_targets.size(); ++other) {
            if (sameName(m_targets[other].table.structure.name,
                         m_targets[target].table.structure.name))
                m_fullTargets.insert(other);
        }
    }

    /// Matches the trees that can be no other table's. True when one was.
    bool matchSingle(Kinship least) {
        QHash<qsizetype, QList<qsizetype>> treesOf;
        for (qsizetype tree = 0; tree < m_trees.size(); ++tree) {
            const QList<qsizetype> found =
                isOpen(tree) ? targetsOf(tree, least) : QList<qsizetype>();
            if (found.size() == 1)
                treesOf[found.first()] += tree;
        }
        bool matchedAny = false;
        for (auto each = treesOf.cbegin(); each != treesOf.cend(); ++each) {
            if (m_targets[each.key()].isExpected && each.value().size() > 1)
                continue;
            for (const qsizetype tree : each.value())
                match(tree, each.key());
            matchedAny = true;
        }
        return matchedAny;
    }

    /// Tables that are made one after the other have rising roots, as long as none was built again:
    /// first all, whose empty ones have a place too, then those of one series alone.
    void matchByOrder() {
        int lastSeries = 0;
        for (const MatchTarget& target : m_targets)
            lastSeries = std::max(lastSeries, target.table.series);
        const auto isAny = [](int series) { return series > 0; };
        matchInOrder(orderOf(isAny), treesFor(isAny, true));
        for (int each = 1; each <= lastSeries; ++each) {
            const auto isOfIt = [each](int series) { return series == each; };
            matchInOrder(orderOf(isOfIt), treesFor(isOfIt, false));
        }
    }

    /// The targets of series that still take a tree or have one, in order; none where their roots
    /// do not rise.
    template<typename IsMeant>
    QList<qsizetype> orderOf(IsMeant isMeant) const {
        QList<qsizetype> order;
        quint32 highest = 0;
        for (qsizetype target = 0; target < m_targets.size(); ++target) {
            const MatchTarget& each = m_targets[target];
            if (!isMeant(each.table.series) || !(isFree(target) || each.root > 0))
                continue;
            if (each.root > 0 && each.root < highest)
                return {};
            highest = std::max(highest, each.root);
            order += target;
        }
        return order;
    }

    /// The trees that are left and can be of those series alone.
    template<typename IsMeant>
    QList<qsizetype> treesFor(IsMeant isMeant, bool withEmpty) const {
        QList<qsizetype> found;
        for (qsizetype tree = 0; tree < m_trees.size(); ++tree) {
            const QList<qsizetype> targets = targetsOf(tree, Kinship::Possible);
            const bool isOfThem =
                isOpen(tree) && !targets.isEmpty() &&
                std::all_of(targets.begin(), targets.end(), [&](qsizetype target) {
                    return isMeant(m_targets[target].table.series);
                });
            const bool isEmpty =
                withEmpty && m_trees[tree].rows.isEmpty() && m_trees[tree].tree.gaps.isEmpty();
            if (isOfThem || isEmpty)
                found += tree;
        }
        return found;
    }

    void matchInOrder(const QList<qsizetype>& order, const QList<qsizetype>& trees) {
        QList<TreeMatch> found;
        if (placeInOrder(trees, order, found) != 1)
            return;
        for (const TreeMatch& each : std::as_const(found)) {
            if (isOpen(each.tree))
                match(each.tree, each.target);
        }
    }

    bool mayStand(qsizetype tree, qsizetype target) const {
        if (!m_targets[target].isExpected || !isFree(target))
            return false;
        return m_trees[tree].rows.isEmpty() ? m_trees[tree].tree.gaps.isEmpty()
                                            : m_kinships[tree][target] != Kinship::Refused;
    }

    /// How many ways there are to give each tree, in the order of the roots, a target, in theirs:
    /// 0, 1, or 2 for more. `found` is the one way.
    int placeInOrder(const QList<qsizetype>& trees, const QList<qsizetype>& order,
                     QList<TreeMatch>& found) const {
        // ways[i][j]: to place the trees from i on among the targets from j on.
        QList<QList<int>> ways(trees.size() + 1, QList<int>(order.size() + 1, 0));
        ways[trees.size()].fill(1);
        const auto canBe = [&](qsizetype i, qsizetype j) {
            const quint32 root = m_trees[trees[i]].tree.root;
            return mayStand(trees[i], order[j]) && isBetweenKnown(root, order, j);
        };
        for (qsizetype i = trees.size() - 1; i >= 0; --i) {
            for (qsizetype j = order.size() - 1; j >= 0; --j)
                ways[i][j] = std::min(ways[i][j + 1] + (canBe(i, j) ? ways[i + 1][j + 1] : 0), 2);
        }
        if (ways[0][0] != 1)
            return ways[0][0];
        for (qsizetype i = 0, j = 0; i < trees.size(); ++j) {
            if (!canBe(i, j) || ways[i + 1][j + 1] == 0)
                continue;
            found += TreeMatch{trees[i], order[j]};
            ++i;
        }
        return 1;
    }

    /// Whether a root lies behind those of the known tables in front and before those behind.
    bool isBetweenKnown(quint32 root, const QList<qsizetype>& order, qsizetype position) const {
        for (qsizetype j = 0; j < order.size(); ++j) {
            const quint32 known = m_targets[order[j]].root;
            if (known > 0 && (j < position) != (known < root))
                return false;
        }
        return true;
    }

    const QList<LooseTree>& m_trees;
    const QList<MatchTarget>& m_targets;
    QList<QList<Kinship>> m_kinships; ///< by tree and target
    QList<TreeMatch> m_matches;
    QSet<qsizetype> m_matchedTrees;
    QSet<qsizetype> m_fullTargets;
};

} // namespace

LooseTree profileOf(SalvageScan& scan, SalvagedTree tree) {
    LooseTree loose;
    scan.visit(tree, [&loose](qint64 row, const std::optional<SalvagedRecord>& record) {
        if (!record)
            return;
        const qsizetype count = record->values.size();
        const bool isFirst = loose.rows.isEmpty();
        loose.fewestFields = isFirst ? count : std::min(loose.fewestFields, count);
        loose.firstRow = isFirst ? row : std::min(loose.firstRow, row);
        loose.lastRow = isFirst ? row : std::max(loose.lastRow, row);
        loose.rows.insert(row);
        loose.fields.resize(std::max(loose.fields.size(), count));
        for (qsizetype i = 0; i < count && record->lostValues == 0; ++i)
            note(loose.fields[i], record->values[i]);
    });
    loose.tree = std::move(tree);
    return loose;
}

QList<TreeMatch> matchTrees(const QList<LooseTree>& trees, const QList<MatchTarget>& targets,
                            const KeysOf& keysOf) {
    return Matcher(trees, targets, keysOf).matches();
}

} // namespace dao
