#include "store/engine/jet_content.h"

#include "store/engine/jet_mdb.h"

#include <QLocale>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

constexpr quint32 CataloguePage = 2;

/// A table of the engine's own, read by the names of its fields.
class SystemTable {
public:
    explicit SystemTable(JetTable table) : m_table(std::move(table)) {}

    const QList<QList<Value>>& rows() const { return m_table.rows; }
    const Value& value(const QList<Value>& row, QStringView field) const {
        const auto& fields = m_table.structure.fields;
        for (qsizetype i = 0; i < fields.size(); ++i) {
            if (fields[i].Name.compare(field, Qt::CaseInsensitive) == 0)
                return row[i];
        }
        raiseDamaged();
    }

private:
    JetTable m_table;
};

/// The names in front of the properties, to which these refer by position.
QStringList readPropertyNames(JetBytes bytes, JetFormat format) {
    QStringList names;
    while (bytes.size() > 0) {
        const auto length = bytes.number<quint16>(0);
        names.append(jetText(bytes.mid(2, length), format));
        bytes = bytes.from(2 + length);
    }
    return names;
}

/// The properties of one field, or of the table itself, whose name is empty.
void readPropertiesOf(JetBytes bytes, const QStringList& names, JetFormat format,
                      JetTableRules& rules) {
    const auto nameLength = bytes.number<quint16>(4);
    JetFieldRules& field = rules[jetText(bytes.mid(6, nameLength), format)];
    bytes = bytes.from(6 + nameLength);
    while (bytes.size() > 0) {
        constexpr int head = 8;
        const auto length = bytes.number<quint16>(0);
        if (length < head)
            raiseDamaged();
        const QString name = names.value(bytes.number<quint16>(4));
        const bool isSet = length > head && bytes.number<quint8>(head) != 0;
        if (name == u"AllowZeroLength"_s)
            field.allowZeroLength = isSet;
        else if (name == u"Required"_s)
            field.required = isSet;
        bytes = bytes.from(length);
    }
}

/// The properties that the catalogue keeps for a table: behind a mark of 4 bytes, blocks of a
/// length, a kind and content.
JetTableRules readProperties(const QByteArray& stored, JetFormat format) {
    constexpr int mark = 4;
    constexpr int head = 6;
    constexpr int namesBlock = 0x80;
    JetTableRules rules;
    QStringList names;
    if (stored.isEmpty())
        return rules;
    for (JetBytes bytes = JetBytes(stored).from(mark); bytes.size() > 0;) {
        const auto length = bytes.number<quint32>(0);
        if (length < head)
            raiseDamaged();
        const JetBytes block = bytes.mid(0, length).from(head);
        if (bytes.number<quint16>(4) == namesBlock)
            names = readPropertyNames(block, format);
        else
            readPropertiesOf(block, names, format, rules);
        bytes = bytes.from(length);
    }
    return rules;
}

/// Where the year's order of rows counts and the file's does not hold it, restores it.
/// Where a month stands in the year, by the first three letters of its English name or of that in
/// the person's language; -1 for no month.
int monthPosition(const QString& text) {
    for (const QLocale& locale : {QLocale::c(), QLocale()}) {
        for (int month = 1; month <= 12; ++month) {
            if (text.left(3).compare(locale.standaloneMonthName(month).left(3),
                                     Qt::CaseInsensitive) == 0)
                return month;
        }
    }
    return -1;
}

/// The calendar's months in the order of the year, if all of them are known.
void restoreMonths(QList<QList<Value>>& rows, qsizetype column) {
    const auto position = [column](const QList<Value>& row) {
        return monthPosition(row[column].toText());
    };
    if (std::all_of(rows.begin(), rows.end(),
                    [&](const QList<Value>& row) { return position(row) > 0; }))
        std::stable_sort(rows.begin(), rows.end(),
                         [&](const auto& a, const auto& b) { return position(a) < position(b); });
}

void restoreOrder(JetTable& table) {
    const auto& fields = table.structure.fields;
    const auto named = [&](QStringView tableName, QStringView fieldName) {
        return std::find_if(fields.begin(), fields.end(), [&](const Field& field) {
            return table.structure.name.compare(tableName, Qt::CaseInsensitive) == 0 &&
                   field.Name.compare(fieldName, Qt::CaseInsensitive) == 0;
        });
    };
    if (const auto month = named(u"Calendar", u"Month"); month != fields.end())
        return restoreMonths(table.rows, month - fields.begin());
    auto key = std::find_if(fields.begin(), fields.end(),
                            [](const Field& field) { return field.isAutoIncrement(); });
    if (key == fields.end())
        key = named(u"TermDates", u"Term");
    if (key == fields.end())
        key = named(u"Planning", u"PlanDate");
    if (key == fields.end())
        return;

    const qsizetype column = key - fields.begin();
    // A date's text begins with its year in two digits, of which those below 30 are the later.
    const auto sortText = [](const Value& value) {
        const QString text = value.toText();
        return (text < u"30"_s ? u'1' : u'0') + text;
    };
    const auto before = [&](const QList<Value>& a, const QList<Value>& b) {
        return a[column].isText() || b[column].isText()
                   ? sortText(a[column]) < sortText(b[column])
                   : a[column].toInteger() < b[column].toInteger();
    };
    std::stable_sort(table.rows.begin(), table.rows.end(), before);
}

bool isPersonal(const QString& name, qint64 flags) {
    constexpr qint64 systemFlags = 0x80000002;
    return (flags & systemFlags) == 0 && !name.startsWith(u"MSys", Qt::CaseInsensitive) &&
           !name.startsWith(u'~');
}

JetTable* findTable(JetContent& content, const QString& name) {
    for (JetTable& table : content.tables) {
        if (table.structure.name.compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

/// Adds the relations between tables of the person. Each field of one has a row of its own.
void addRelations(const SystemTable& stored, JetContent& content) {
    QList<QList<Value>> rows = stored.rows();
    std::stable_sort(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
        return stored.value(a, u"icolumn").toInteger() < stored.value(b, u"icolumn").toInteger();
    });
    for (const QList<Value>& row : rows) {
        const QString name = stored.value(row, u"szRelationship").toText();
        const QString tableName = stored.value(row, u"szReferencedObject").toText();
        JetTable* foreign = findTable(content, stored.value(row, u"szObject").toText());
        const JetTable* table = findTable(content, tableName);
        constexpr qint64 notEnforced = 2;
        const qint64 attributes = stored.value(row, u"grbit").toInteger();
        if (!foreign || !table || (attributes & notEnforced))
            continue;
        QList<Relation>& relations = foreign->structure.relations;
        auto relation = std::find_if(relations.begin(), relations.end(),
                                     [&](const Relation& r) { return r.Name == name; });
        if (relation == relations.end()) {
            Relation made;
            made.Name = name;
            made.Table = table->structure.name;
            made.ForeignTable = foreign->structure.name;
            made.Attributes = static_cast<int>(attributes);
            relation = relations.insert(relations.end(), made);
        }
        relation->Fields.append({stored.value(row, u"szReferencedColumn").toText(),
                                 stored.value(row, u"szColumn").toText()});
    }
}

} // namespace

JetContent readJetContent(const QByteArray& file) {
    // A whole file holds fewer values than that, also where most are Null; one that holds more has
    // them lie in the same bytes many times.
    constexpr qint64 slack = 64 << 20;
    JetFile jet(file, 8 * file.size() + slack);
    const SystemTable catalogue(jet.readTable(u"MSysObjects"_s, CataloguePage));

    JetContent content;
    std::optional<SystemTable> relations;
    for (const QList<Value>& row : catalogue.rows()) {
        constexpr int tableType = 1;
        constexpr quint32 pageOfId = 0x00FFFFFF;
        if (catalogue.value(row, u"Type").toInteger() != tableType)
            continue;
        const QString name = catalogue.value(row, u"Name").toText();
        const quint32 page =
            static_cast<quint32>(catalogue.value(row, u"Id").toInteger()) & pageOfId;
        if (name == u"MSysRelationships"_s) {
            relations.emplace(jet.readTable(name, page));
        } else if (isPersonal(name, catalogue.value(row, u"Flags").toInteger())) {
            if (name.isEmpty() || findTable(content, name))
                raiseDamaged();
            const JetTableRules rules =
                readProperties(catalogue.value(row, u"LvProp").toBinary(), jet.format());
            content.tables.append(jet.readTable(name, page, rules));
            restoreOrder(content.tables.last());
        }
    }
    if (relations)
        addRelations(*relations, content);
    return content;
}

} // namespace dao
