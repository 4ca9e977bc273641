#include "classes/sort_query.h"

#include "classes/pupil_sheet.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A name in brackets, whether it needs them or not.
QString bracketed(const QString& name) {
    return u'[' + QString(name).replace(u']', u"]]"_s) + u']';
}

QString withoutSemicolon(QString query) {
    if (query.endsWith(u';'))
        query.chop(1);
    return query;
}

QString cutAt(const QString& query, const QString& words) {
    const qsizetype place = query.indexOf(words, 0, Qt::CaseInsensitive);
    return place < 0 ? query : query.left(place);
}

QString withoutConditionAndOrder(const QString& query) {
    return cutAt(cutAt(withoutSemicolon(query), u" WHERE"_s), u" order by"_s);
}

/// Which fields count as numeric while a value is typed: Double is none of them.
bool isNumericField(const QueryField& field) {
    return field.type < dao::DataType::Currency || field.type == dao::DataType::Single;
}

} // namespace

QList<QueryField> queryFields(const dao::Database& database, const QString& classCode) {
    QList<QueryField> fields{{u"Surname"_s}, {u"Firstname"_s}, {u"Tutor"_s}};
    const dao::FieldCollection ofPupils = database.TableDefs()[classTable(classCode)].Fields();
    for (const dao::Field& field : database.TableDefs()[marksTable(classCode)].Fields()) {
        if (!dao::sameName(field.Name, u"ID"))
            fields.append({field.Name, field.Type,
                           ofPupils.Contains(field.Name) ? marksTable(classCode) : QString()});
    }
    return fields;
}

std::optional<QString> sortedQuery(const QString& query, const QString& classCode,
                                   const QList<QueryField>& fields, const QList<SortKey>& keys,
                                   Prompts& prompts) {
    const QString orderBy = u"order by"_s;
    const qsizetype place = query.indexOf(orderBy, 0, Qt::CaseInsensitive);
    QString sorted = place < 0 ? withoutSemicolon(query) + u" Order By "_s
                               : query.left(place + orderBy.size()) + u' ';
    QStringList order;
    for (const SortKey& key : keys) {
        if (key.field < 0)
            continue;
        const QString name = fields.at(key.field).name;
        order += (key.field < PupilFieldCount
                      ? dao::writeName(classTable(classCode)) + u'.' + name
                      : dao::writeName(marksTable(classCode)) + u'.' + bracketed(name)) +
                 (key.isDescending ? u" DESC"_s : u" ASC"_s);
    }
    if (order.isEmpty()) {
        prompts.PlainBox(u"You haven't selected any sort criteria fields."_s, OkButton,
                         u"Nothing to Sort"_s);
        return std::nullopt;
    }
    return sorted + order.join(u", "_s) + u';';
}

const QStringList& queryOperators() {
    static const QStringList operators{u"="_s, u"<>"_s, u">"_s,   u">="_s,
                                       u"<"_s, u"<="_s, u"Like"_s};
    return operators;
}

const QStringList& logicalOperators() {
    static const QStringList operators{u"AND"_s, u"OR"_s, u"XOR"_s, u"EQV"_s, u"IMP"_s};
    return operators;
}

std::optional<QString> Built_SQL(const QString& built, const QString& query,
                                 const QueryCondition& condition, Prompts& prompts) {
    if (!condition.field || condition.comparison.isEmpty() || condition.value.isEmpty()) {
        prompts.PlainBox(u"There is some missing query information. Please complete all the fields "
                         "and try again."_s,
                         OkButton, u"Missing Information"_s);
        return std::nullopt;
    }
    QString text = built.isEmpty() ? withoutConditionAndOrder(query) + u" WHERE "_s
                                   : withoutSemicolon(built) + u' ' + condition.logical + u' ';
    if (!condition.field->table.isEmpty())
        text += dao::writeName(condition.field->table) + u'.';
    text += bracketed(condition.field->name) + u' ' + condition.comparison + u' ';
    text += dao::isTextual(condition.field->type)
                ? u'\'' + condition.value + u'\''
                : dao::numberText(dao::Value(condition.value).toDouble());
    return text + u';';
}

bool checkValueKey(const std::optional<QueryField>& field, QChar key, Prompts& prompts) {
    if (!field || !key.isPrint())
        return true;
    if (dao::isTextual(field->type))
        return !QStringView(u"\"<=>").contains(key);
    if (!isNumericField(*field))
        return true;
    if ((key >= u'0' && key <= u'9') || QStringView(u".TO").contains(key))
        return true;
    prompts.PlainBox(
        u"The Field: %1 is a numeric field.\nPlease use only numeric characters."_s.arg(
            field->name),
        OkButton, u"Numeric Field"_s);
    return false;
}

QStringList fieldValues(const PupilSheet& sheet, const QString& field) {
    QStringList values;
    const int column = sheet.columnOf(field);
    for (int row = 0; column >= 0 && row < sheet.rowCount(); ++row) {
        if (!sheet.value(row, column).isNull() && !values.contains(sheet.text(row, column)))
            values += sheet.text(row, column);
    }
    return values;
}

bool checkQuery(const dao::Database& database, const QString& built, Prompts& prompts) {
    if (built.isEmpty()) {
        prompts.PlainBox(u"There is no current Query!"_s, OkButton, u"No Query!"_s);
        return false;
    }
    try {
        dao::Recordset found = database.OpenRecordset(built, dao::RecordsetType::Snapshot);
        const bool isAny = !found.EOF_();
        found.Close();
        if (!isAny)
            prompts.PlainBox(u"There are no records for this Query!"_s, OkButton, u"No Records"_s);
        return isAny;
    } catch (const dao::EngineError& error) {
        tellFailure(prompts, QueryFailure, error);
        return false;
    }
}
