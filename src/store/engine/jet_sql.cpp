#include "store/engine/jet_sql.h"

#include "store/engine/error.h"
#include "store/engine/jet_sql_expression.h"
#include "store/engine/jet_sql_parser.h"
#include "store/engine/names.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao::sql {
namespace {

constexpr size_t MaximumSources = 32;
constexpr qsizetype MaximumColumns = 1000;
constexpr int FirstExpressionName = 1000; ///< Expr1000, Expr1001, ...

QString fieldSql(const Source& source, const Field& field) {
    return source.sqlAlias + u'.' + quoteName(field.Name);
}

Column fieldColumn(const QList<Source>& sources, int source, int field) {
    Column column;
    column.field = sources[source].table->fields[field];
    column.name = column.field.Name;
    column.source = source;
    column.sql = fieldSql(sources[source], column.field);
    return column;
}

QList<Column> fieldColumns(const QList<Source>& sources, int source) {
    QList<Column> columns;
    for (int field = 0; field < sources[source].table->fields.size(); ++field)
        columns.append(fieldColumn(sources, source, field));
    return columns;
}

bool isPosition(const Expression& expression) {
    return expression.operation == Operation::Number &&
           std::all_of(expression.text.begin(), expression.text.end(),
                       [](QChar character) { return character.isDigit(); });
}

QString sourceSql(const Source& source) {
    return quoteName(source.table->name) + QLatin1String(" AS ") + source.sqlAlias;
}

/// Takes a parsed SELECT to a Query, clause by clause.
class SelectTranslator {
public:
    SelectTranslator(const Select& select, const FindTable& findTable)
        : m_select(select), m_findTable(findTable) {}

    Query translate() {
        addSources();
        addColumns();
        qualifySharedNames();
        m_query.from = fromClause();
        if (m_select.where)
            m_query.where = translateTruth(*m_select.where, resolverOfAll());
        m_query.orderBy = orderClause();
        return std::move(m_query);
    }

private:
    void addSources() {
        if (m_select.tables.size() > MaximumSources)
            throw EngineError(SyntaxError, u"Too many tables in the query."_s);
        for (const FromTable& table : m_select.tables) {
            Source source;
            source.table = m_findTable(table.name);
            if (!source.table)
                throw EngineError(
                    NoSuchTable,
                    u"The engine cannot find the input table or query '%1'. Make "
                    "sure it exists and that its name is spelled correctly."_s.arg(table.name));
            source.alias = table.alias.isEmpty() ? source.table->name : table.alias;
            if (sourceOf(source.alias) >= 0)
                throw EngineError(
                    SyntaxError,
                    u"The name '%1' stands twice in the FROM clause."_s.arg(source.alias));
            source.sqlAlias = u"t%1"_s.arg(m_query.sources.size());
            m_query.sources.append(source);
        }
    }

    /// The source that goes by a name, -1 for none.
    int sourceOf(QStringView name) const {
        const auto found =
            std::find_if(m_query.sources.begin(), m_query.sources.end(),
                         [&](const Source& source) { return sameName(source.alias, name); });
        return found == m_query.sources.end() ? -1 : int(found - m_query.sources.begin());
    }

    struct Place {
        int source = -1;
        int field = -1;
    };

    /// Where a field stands among the sources from `first` to before `end`; without a source where
    /// there is none.
    Place find(const QString& qualifier, const QString& name, int first, int end) const {
        Place place;
        for (int i = first; i < end; ++i) {
            const Source& source = m_query.sources[i];
            if (!qualifier.isEmpty() && !sameName(source.alias, qualifier))
                continue;
            const int field = source.table->fieldIndex(name);
            if (field < 0)
                continue;
            if (place.source >= 0)
                throw EngineError(AmbiguousField,
                                  u"The specified field '%1' could refer to more than one table "
                                  "listed in the FROM clause of your SQL statement."_s.arg(name));
            place = {i, field};
        }
        return place;
    }

    ResolveField resolver(int first, int end) const {
        return [this, first, end](const QString& qualifier, const QString& name, FieldSql& out) {
            const Place place = find(qualifier, name, first, end);
            if (place.source < 0)
                return false;
            const Source& source = m_query.sources[place.source];
            const Field& field = source.table->fields[place.field];
            out = {fieldSql(source, field), field.Type};
            return true;
        };
    }

    ResolveField resolverOfAll() const { return resolver(0, int(m_query.sources.size())); }

    void addColumns() {
        for (const SelectItem& item : m_select.items) {
            if (item.all)
                addAllFields(item.qualifier);
            else
                addColumn(item);
            if (m_query.columns.size() > MaximumColumns)
                throw EngineError(TooManyFields, u"Too many fields defined."_s);
        }
    }

    void addAllFields(const QString& qualifier) {
        const int only = qualifier.isEmpty() ? -1 : sourceOf(qualifier);
        if (!qualifier.isEmpty() && only < 0)
            throw EngineError(UnknownFieldInSql, u"Too few parameters. Expected 1."_s);
        for (int i = 0; i < m_query.sources.size(); ++i) {
            if (only < 0 || i == only)
                m_query.columns.append(fieldColumns(m_query.sources, i));
        }
    }

    void addColumn(const SelectItem& item) {
        const Expression& expression = item.expression;
        Column column;
        if (expression.operation == Operation::Field) {
            const Place place =
                find(expression.qualifier, expression.text, 0, int(m_query.sources.size()));
            if (place.source >= 0)
                column = fieldColumn(m_query.sources, place.source, place.field);
        }
        if (column.source < 0) {
            const Translated value = translateValue(expression, resolverOfAll());
            column.sql = value.sql;
            column.field.Type = value.type;
            if (item.alias.isEmpty())
                column.name = u"Expr%1"_s.arg(m_nextExpressionName++);
        }
        if (!item.alias.isEmpty())
            column.name = item.alias;
        m_query.columns.append(column);
    }

    /// Gives every field whose name comes from several sources its source's name in front.
    void qualifySharedNames() {
        QHash<QString, int> owners;
        QSet<QString> shared;
        for (const Column& column : std::as_const(m_query.columns)) {
            if (!bearsFieldName(column))
                continue;
            const QString name = folded(column.name);
            if (owners.value(name, column.source) != column.source)
                shared.insert(name);
            owners.insert(name, column.source);
        }
        for (Column& column : m_query.columns) {
            if (bearsFieldName(column) && shared.contains(folded(column.name)))
                column.name = m_query.sources[column.source].alias + u'.' + column.name;
        }
    }
    static bool bearsFieldName(const Column& column) {
        return column.source >= 0 && column.name == column.field.Name;
    }

    /// All joins are inner ones, so the conditions may stand together behind the last table.
    QString fromClause() const {
        QStringList tables;
        for (const Source& source : m_query.sources)
            tables.append(sourceSql(source));
        QStringList conditions;
        for (const JoinCondition& join : m_select.joins)
            conditions.append(
                translateTruth(join.condition, resolver(int(join.first), int(join.end))));
        QString from = tables.join(QLatin1String(" INNER JOIN "));
        if (!conditions.isEmpty())
            from += QLatin1String(" ON ") + conditions.join(QLatin1String(" AND "));
        return from;
    }

    QString orderClause() const {
        QStringList terms;
        for (const OrderTerm& term : m_select.order)
            terms.append(orderTerm(orderValue(term.expression), term.descending));
        return terms.join(QLatin1String(", "));
    }

    /// What a term of ORDER BY sorts by: a whole number that stands alone is a column's position.
    Translated orderValue(const Expression& expression) const {
        if (!isPosition(expression))
            return translateValue(expression, resolverOfAll());
        const qlonglong position = expression.text.toLongLong();
        if (position < 1 || position > m_query.columns.size())
            throw EngineError(SyntaxError, u"The ORDER BY clause names a column by a position "
                                           "that the query does not have."_s);
        const Column& column = m_query.columns[position - 1];
        return {column.sql, kindOf(column.field.Type), column.field.Type, column.source >= 0};
    }

    const Select& m_select;
    const FindTable& m_findTable;
    Query m_query;
    int m_nextExpressionName = FirstExpressionName;
};

} // namespace

Query tableQuery(const std::shared_ptr<const TableStructure>& table) {
    Query query;
    query.sources.append({table, table->name, u"t0"_s});
    query.columns = fieldColumns(query.sources, 0);
    query.from = sourceSql(query.sources.first());
    return query;
}

Query translateSelect(const QString& jetSql, const FindTable& findTable) {
    const Select select = parseSelect(jetSql);
    return SelectTranslator(select, findTable).translate();
}

QString translateCondition(const QString& jetCondition, const ResolveField& resolve) {
    return translateTruth(parseCondition(jetCondition), resolve);
}

QString translateOrder(const QString& jetOrder, const ResolveField& resolve) {
    QStringList terms;
    for (const OrderTerm& term : parseOrder(jetOrder)) {
        if (isPosition(term.expression))
            throw EngineError(SyntaxError, u"A sort order names its fields, not positions."_s);
        terms.append(orderTerm(translateValue(term.expression, resolve), term.descending));
    }
    return terms.join(QLatin1String(", "));
}

bool looksLikeStatement(const QString& text) {
    static const QStringView commands[] = {
        u"INSERT",     u"UPDATE",  u"DELETE", u"CREATE", u"ALTER",  u"DROP",   u"TRANSFORM",
        u"PARAMETERS", u"EXECUTE", u"EXEC",   u"WITH",   u"PRAGMA", u"ATTACH", u"DETACH"};
    const QStringView statement = QStringView(text).trimmed();
    const auto wordEnd = std::find_if_not(statement.begin(), statement.end(), [](QChar character) {
        return character.unicode() < 0x80 && (character.isLetterOrNumber() || character == u'_');
    });
    const QStringView word = statement.first(wordEnd - statement.begin());
    if (word.size() == statement.size())
        return false;
    const auto isWord = [word](QStringView command) {
        return word.compare(command, Qt::CaseInsensitive) == 0;
    };
    return isWord(u"SELECT") ||
           (wordEnd->isSpace() && std::any_of(std::begin(commands), std::end(commands), isWord));
}

QString rowNumber(const Source& source) {
    return source.sqlAlias + u'.' + rowNumberName(*source.table);
}

} // namespace dao::sql
