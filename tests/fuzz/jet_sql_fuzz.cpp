#include "store/engine/error.h"
#include "support/engine_sqlite.h"

#include <QDebug>

#include <cstdlib>

using namespace dao;

namespace {

TableStructure table(const QString& name) {
    TableStructure made;
    made.name = name;
    const std::pair<const char16_t*, DataType> fields[] = {
        {u"ID", DataType::Long},  {u"a", DataType::Text},    {u"n", DataType::Double},
        {u"m", DataType::Memo},   {u"b", DataType::Boolean}, {u"p", DataType::LongBinary},
        {u"x]y", DataType::Text},
    };
    for (const auto& [fieldName, type] : fields) {
        Field field;
        field.Name = QString::fromUtf16(fieldName);
        field.Type = type;
        made.fields.append(field);
    }
    return made;
}

/// Whatever the translation lets pass, SQLite must take.
void requireAccepted(const BareSqlite& sqlite, const QString& statement) {
    const QStringList answer = sqlite.run(u"EXPLAIN "_s + statement);
    if (!answer.isEmpty() && answer.first().startsWith(u'!')) {
        qCritical() << answer.first() << statement;
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::unique_ptr<BareSqlite> sqlite = [] {
        auto made = std::make_unique<BareSqlite>();
        made->addTable(table(u"T"_s));
        made->addTable(table(u"U"_s));
        return made;
    }();
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    const sql::Query query = sql::tableQuery(sqlite->finder()(u"T"));
    const sql::ResolveField resolve = [&](const QString& qualifier, const QString& name,
                                          sql::FieldSql& out) {
        for (const sql::Column& column : query.columns) {
            if (qualifier.isEmpty() && sameName(column.name, name)) {
                out = {column.sql, column.field.Type};
                return true;
            }
        }
        return false;
    };
    sql::looksLikeStatement(text);
    try {
        requireAccepted(*sqlite,
                        BareSqlite::statement(sql::translateSelect(text, sqlite->finder())));
    } catch (const EngineError&) {
    }
    try {
        sql::Query condition = query;
        condition.where = sql::translateCondition(text, resolve);
        requireAccepted(*sqlite, BareSqlite::statement(condition));
    } catch (const EngineError&) {
    }
    try {
        sql::Query order = query;
        order.orderBy = sql::translateOrder(text, resolve);
        requireAccepted(*sqlite, BareSqlite::statement(order));
    } catch (const EngineError&) {
    }
    return 0;
}
