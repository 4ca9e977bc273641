#include "classes/pupil_photo.h"

#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

QImage pupilPhoto(const dao::Database& database, const QString& classCode, qint64 pupil) {
    dao::Recordset record =
        database.OpenRecordset(u"SELECT Photo FROM %1 WHERE ID = %2;"_s.arg(
                                   dao::writeName(classTable(classCode)), QString::number(pupil)),
                               dao::RecordsetType::Snapshot);
    return record.EOF_() ? QImage() : QImage::fromData(record.Collect(u"Photo").toBinary());
}
