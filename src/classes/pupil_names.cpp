#include "classes/pupil_names.h"

#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

QList<ClassPupil> classPupils(const dao::Database& year, const QString& classCode) {
    QList<ClassPupil> pupils;
    dao::Recordset rows =
        year.OpenRecordset(u"SELECT Surname,Firstname FROM %1 ORDER BY Surname;"_s.arg(
                               dao::writeName(classTable(classCode))),
                           dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext())
        pupils += {.forename = rows.Collect(1).toText(), .surname = rows.Collect(0).toText()};
    return pupils;
}
