#include "classes/register_table.h"

#include "store/table_names.h"

QStringList registerTables(const dao::Database& database) {
    QStringList tables;
    for (const QString& table : database.TableDefs().names()) {
        if (classOfRegisterTable(table))
            tables += table;
    }
    return tables;
}

QList<dao::Field> registerFields(const dao::Database& database, const QString& table) {
    return database.TableDefs()[table].structure().fields;
}

bool isLessonFrom(const dao::Field& field, QDate date) {
    const auto column = readRegisterColumn(field.Name);
    return column && column->date >= date;
}

std::optional<RegisterColumn> lastLesson(const QList<dao::Field>& fields) {
    for (auto field = fields.crbegin(); field != fields.crend(); ++field) {
        if (const auto column = readRegisterColumn(field->Name))
            return column;
    }
    return std::nullopt;
}
