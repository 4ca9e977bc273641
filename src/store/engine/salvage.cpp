#include "store/engine/salvage.h"

#include "store/engine/database.h"
#include "store/engine/database_core.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/engine/salvage_copy.h"
#include "store/engine/salvage_match.h"
#include "store/engine/salvage_scan.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

const QString SequenceTable = u"sqlite_sequence"_s; ///< the library's: the numbers given by tables

/// A table that the definitions name.
struct KnownTable {
    ExpectedTable table;
    QStringList indexStatements = {};
    bool isCut = false; ///< the end of its definition can't be read
    SalvagedTree tree;
};

/// The structure of a table by its statement; of one that is cut off up to the last whole part.
TableStructure structureOf(const SalvagedDefinition& definition) {
    const QString& whole = definition.statement;
    const QString statement =
        definition.isCut ? whole.left(std::max<qsizetype>(whole.lastIndexOf(u", "), 0)) : whole;
    TableStructure structure = readCreateStatement(statement);
    structure.name = definition.name;
    for (Relation& relation : structure.relations)
        relation.ForeignTable = definition.name;
    return structure;
}

Field furtherField(const QString& name, const FieldProfile& profile) {
    Field field{.Name = name, .Type = DataType::Memo, .AllowZeroLength = true};
    if (profile.hasBinary)
        field.Type = DataType::LongBinary;
    else if (!profile.hasText && profile.hasReal)
        field.Type = DataType::Double;
    else if (!profile.hasText && profile.hasInteger)
        field.Type = DataType::Long;
    field.Size = defaultSize(field.Type);
    return field;
}

/// Adds the fields that records have and no description tells of.
void addFurtherFields(ExpectedTable& table, const LooseTree& records) {
    QList<Field>& fields = table.structure.fields;
    const QString name = table.furtherFields.isEmpty() ? u"Field "_s : table.furtherFields;
    for (qsizetype i = fields.size(); i < records.fields.size(); ++i)
        fields += furtherField(name + QString::number(i + 1), records.fields[i]);
}

/// A table of its own for records that no table can be told for.
TableStructure recoveredTable(int number, const LooseTree& records) {
    ExpectedTable table;
    table.structure.name = u"Recovered %1"_s.arg(number);
    const FieldProfile first = records.fields.value(0);
    if (first.hasNull && !first.hasText && !first.hasInteger && !first.hasBinary && !first.hasReal)
        table.structure.fields +=
            Field{.Name = u"ID"_s, .Type = DataType::Long, .Size = 4, .Attributes = AutoIncrement};
    addFurtherFields(table, records);
    return table.structure;
}

bool hasNumberingField(const TableStructure& table) {
    return std::any_of(table.fields.begin(), table.fields.end(),
                       [](const Field& field) { return field.isAutoIncrement(); });
}

/// Whether a description says what is left of a definition, and how it goes on.
bool goesOn(const TableStructure& start, const TableStructure& whole) {
    return start.fields.size() <= whole.fields.size() &&
           std::equal(
               start.fields.begin(), start.fields.end(), whole.fields.begin(),
               [](const Field& one, const Field& other) { return sameName(one.Name, other.Name); });
}

class Salvage {
public:
    Salvage(const PageFile& file, DatabaseCore& core, const Database& copy,
            const RepairKnowledge& knowledge)
        : m_scan(file), m_copy(core.connection), m_database(copy), m_knowledge(knowledge) {}

    QList<RepairedTable> run() {
        readKnown();
        writeKnown();
        readLoose();
        while (isOpen() && placeMore()) {
        }
        writeRest();
        return m_copy.finish(m_lastNumbers);
    }

private:
    void readKnown();
    void readLastNumbers(const SalvagedTree& tree);
    void writeKnown();
    void writeWhole(const KnownTable& known);
    void readLoose();
    bool isOpen() const { return !m_loose.isEmpty() || !m_cut.isEmpty() || lacksDefinitions(); }
    bool lacksDefinitions() const { return !m_scan.hasAllDefinitions(); }
    QList<ExpectedTable> expectedTables() const;
    bool placeMore();
    bool placeCut(const QList<ExpectedTable>& expected);
    QList<MatchTarget> targetsAmong(const QList<ExpectedTable>& expected) const;
    void placeLoose(const LooseTree& loose, const MatchTarget& target);
    void writeCut(KnownTable table);
    void writeRest();
    void write(const TableStructure& table, const SalvagedTree& tree,
               const QStringList& indexStatements = {});

    SalvageScan m_scan;
    SalvageCopy m_copy;
    const Database& m_database; ///< the copy, as the rules see it
    const RepairKnowledge& m_knowledge;
    QList<KnownTable> m_known;
    QList<KnownTable> m_cut; ///< those of m_known that are still to be written
    QList<LooseTree> m_loose;
    QHash<QString, quint32> m_roots;      ///< by folded name: of the tables that are written
    QHash<QString, qint64> m_lastNumbers; ///< by folded name
    bool m_hasAllNumbers = false;
};

void Salvage::readKnown() {
    for (const SalvagedDefinition& definition : m_scan.definitions()) {
        const bool isTable = definition.type == u"table" &&
                             definition.statement.startsWith(u"CREATE TABLE", Qt::CaseInsensitive);
        if (isTable && definition.name == SequenceTable)
            readLastNumbers(m_scan.takeTree(definition.root));
        else if (isTable && !definition.name.startsWith(u"sqlite_"))
            m_known += KnownTable{.table = {.structure = structureOf(definition)},
                                  .isCut = definition.isCut,
                                  .tree = m_scan.takeTree(definition.root)};
    }
    for (const SalvagedDefinition& definition : m_scan.definitions()) {
        if (definition.type != u"index" || definition.isCut || definition.statement.isEmpty())
            continue;
        for (KnownTable& known : m_known) {
            if (sameName(known.table.structure.name, definition.table))
                known.indexStatements += definition.statement;
        }
    }
}

void Salvage::readLastNumbers(const SalvagedTree& tree) {
    m_hasAllNumbers = tree.gaps.isEmpty();
    m_scan.visit(tree, [this](qint64, const std::optional<SalvagedRecord>& record) {
        if (record && record->values.size() == 2)
            m_lastNumbers.insert(folded(record->values[0].toText()), record->values[1].toInteger());
    });
}

void Salvage::write(const TableStructure& table, const SalvagedTree& tree,
                    const QStringList& indexStatements) {
    m_copy.createTable(table, indexStatements);
    m_copy.addRecords(table.name, m_scan, tree);
    m_copy.noteGaps(table.name, tree.gaps);
    m_roots.insert(folded(table.name), tree.root);
}

void Salvage::writeKnown() {
    for (const KnownTable& known : std::as_const(m_known)) {
        if (m_copy.hasTable(known.table.structure.name))
            continue;
        if (known.isCut)
            m_cut += known;
        else if (!known.table.structure.fields.isEmpty())
            writeWhole(known);
    }
}

/// A definition that can't be right costs its table the name, and no record.
void Salvage::writeWhole(const KnownTable& known) {
    try {
        write(known.table.structure, known.tree, known.indexStatements);
    } catch (const EngineError& error) {
        if (error.number() != SyntaxError)
            throw;
        m_loose += profileOf(m_scan, known.tree);
    }
}

void Salvage::readLoose() {
    const bool hasGaps = std::any_of(m_known.begin(), m_known.end(), [](const KnownTable& known) {
        return !known.tree.gaps.isEmpty();
    });
    if (!hasGaps && !lacksDefinitions())
        return; // then nothing is missing, and a page that is in no table is in none
    for (SalvagedTree& tree : m_scan.takeLooseTrees()) {
        LooseTree loose = profileOf(m_scan, std::move(tree));
        const bool isSequence = m_lastNumbers.isEmpty() && lacksDefinitions() &&
                                loose.fields.size() == 2 && loose.fields[0].hasText &&
                                !loose.fields[0].hasNull && loose.fields[1].hasInteger &&
                                !loose.fields[1].hasText;
        if (isSequence)
            readLastNumbers(loose.tree);
        else
            m_loose += std::move(loose);
    }
}

QList<ExpectedTable> Salvage::expectedTables() const {
    return m_knowledge.expected ? m_knowledge.expected(m_database) : QList<ExpectedTable>();
}

bool Salvage::placeMore() {
    const QList<ExpectedTable> expected = expectedTables();
    bool hasPlaced = placeCut(expected);
    const QList<MatchTarget> targets = targetsAmong(expected);
    QHash<QString, QSet<qint64>> known;
    const auto keysOf = [&](const QString& table,
                            const QString& field) -> std::optional<QSet<qint64>> {
        if (!m_copy.isWhole(table))
            return std::nullopt;
        const QString name = folded(table) + u'.' + folded(field);
        if (!known.contains(name))
            known.insert(name, m_copy.keys(table, field));
        return known.value(name);
    };
    QSet<qsizetype> placed;
    for (const TreeMatch& match : matchTrees(m_loose, targets, keysOf)) {
        placeLoose(m_loose[match.tree], targets[match.target]);
        placed.insert(match.tree);
    }
    QList<LooseTree> left;
    for (qsizetype i = 0; i < m_loose.size(); ++i) {
        if (!placed.contains(i))
            left += m_loose[i];
    }
    m_loose = left;
    return hasPlaced || !placed.isEmpty();
}

bool Salvage::placeCut(const QList<ExpectedTable>& expected) {
    QList<KnownTable> left;
    for (KnownTable& cut : m_cut) {
        const auto found =
            std::find_if(expected.begin(), expected.end(), [&cut](const ExpectedTable& each) {
                return sameName(each.structure.name, cut.table.structure.name) &&
                       goesOn(cut.table.structure, each.structure);
            });
        if (found == expected.end()) {
            left += cut;
            continue;
        }
        cut.table = *found;
        writeCut(cut);
    }
    const bool hasPlaced = left.size() < m_cut.size();
    m_cut = left;
    return hasPlaced;
}

void Salvage::writeCut(KnownTable table) {
    addFurtherFields(table.table, profileOf(m_scan, table.tree));
    if (!table.table.structure.fields.isEmpty())
        write(table.table.structure, table.tree, table.indexStatements);
}

/// The tables to which trees can belong, in the order in which tables are made as a rule.
QList<MatchTarget> Salvage::targetsAmong(const QList<ExpectedTable>& expected) const {
    QList<MatchTarget> targets;
    const auto findKnown = [this](const QString& name) {
        return std::find_if(m_known.begin(), m_known.end(), [&name](const KnownTable& known) {
            return sameName(known.table.structure.name, name);
        });
    };
    for (const ExpectedTable& each : expected) {
        const QString name = folded(each.structure.name);
        const bool isNumbered = m_hasAllNumbers && hasNumberingField(each.structure);
        MatchTarget target{.table = each,
                           .isExpected = !m_roots.contains(name),
                           .gaps = {},
                           .root = m_roots.value(name),
                           .lastNumber = m_lastNumbers.value(name, isNumbered ? 0 : -1)};
        const auto known = findKnown(each.structure.name);
        if (known != m_known.end()) {
            target.isExpected = false;
            target.gaps = known->tree.gaps;
            target.root = known->tree.root;
            target.table.structure = known->table.structure;
            target.table.fewestFields = 1;
        }
        if (!target.isExpected || lacksDefinitions())
            targets += target;
    }
    for (const KnownTable& known : m_known) {
        const bool isThere = std::any_of(targets.begin(), targets.end(), [&](const auto& each) {
            return sameName(each.table.structure.name, known.table.structure.name);
        });
        if (!isThere)
            targets += MatchTarget{
                {known.table.structure, 1}, false, known.tree.gaps, known.tree.root, -1};
    }
    return targets;
}

void Salvage::placeLoose(const LooseTree& loose, const MatchTarget& target) {
    ExpectedTable table = target.table;
    if (m_copy.hasTable(table.structure.name))
        return m_copy.addRecords(table.structure.name, m_scan, loose.tree);
    QList<Field>& fields = table.structure.fields;
    if (table.fewestFields >
        0) // the rest is of later files; where no record has it it was not there
        fields = fields.first(
            std::clamp<qsizetype>(loose.fields.size(), table.fewestFields, fields.size()));
    addFurtherFields(table, loose);
    write(table.structure, loose.tree);
}

/// What could not be told stays apart, and tables that must be there are made.
void Salvage::writeRest() {
    for (const KnownTable& cut : std::exchange(m_cut, {}))
        writeCut(cut);
    if (lacksDefinitions()) {
        QList<TableStructure> missing;
        for (const ExpectedTable& each : expectedTables()) {
            if (each.isNeeded && !m_copy.hasTable(each.structure.name))
                missing += each.structure;
        }
        const auto empty = std::count_if(m_loose.begin(), m_loose.end(),
                                         [](const auto& each) { return each.rows.isEmpty(); });
        for (const TableStructure& table : std::as_const(missing)) {
            if (m_copy.hasTable(table.name))
                continue;
            m_copy.createTable(table);
            if (empty < missing.size()) // else there was none that had a record
                m_copy.noteGaps(table.name, {RowRange()});
        }
    }
    int number = 0;
    for (const LooseTree& loose : std::as_const(m_loose)) {
        if (!loose.rows.isEmpty())
            write(recoveredTable(++number, loose), loose.tree);
    }
}

} // namespace

QList<RepairedTable> salvage(const PageFile& file, DatabaseCore& core, const Database& copy,
                             const RepairKnowledge& knowledge) {
    QList<RepairedTable> tables = Salvage(file, core, copy, knowledge).run();
    const bool isEmpty = std::all_of(tables.begin(), tables.end(), [](const RepairedTable& each) {
        return each.saved == 0 && each.mayLackMore;
    });
    if (isEmpty)
        throw EngineError(DamagedDatabase, u"Nothing of the file can be read."_s);
    return tables;
}

} // namespace dao
