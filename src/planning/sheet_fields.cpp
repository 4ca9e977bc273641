#include "planning/sheet_fields.h"

#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

QString fieldOf(const SheetPlace& place) {
    switch (place.box) {
    case SheetBox::Lesson:
        return u"Lesson"_s + QString::number(place.period);
    case SheetBox::Homework:
        return u"Homework"_s + QString::number(place.period);
    case SheetBox::Dinner:
        return u"Dinner"_s;
    case SheetBox::AfterSchool:
        return u"AfterSchool"_s;
    case SheetBox::Notes:
        break;
    }
    return u"Notes"_s;
}

QString classField(int period) {
    return u"Class"_s + QString::number(period);
}

QString blockCaption(SheetBox box) {
    return box == SheetBox::Dinner        ? u"Dinner Time"_s
           : box == SheetBox::AfterSchool ? u"After School"_s
                                          : u"Notes"_s;
}

dao::Recordset readSheet(const dao::Database& database, const QString& planDate) {
    dao::Recordset sheet = database.OpenRecordset(
        u"SELECT * FROM %1 WHERE PlanDate = %2;"_s.arg(PlanningTable, dao::writeText(planDate)),
        dao::RecordsetType::Snapshot);
    if (sheet.EOF_())
        throw dao::EngineError(dao::NoCurrentRecord, u"There is no planning sheet of that day."_s);
    return sheet;
}
