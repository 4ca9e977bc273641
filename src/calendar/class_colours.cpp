#include "calendar/class_colours.h"

#include "core/session.h"
#include "store/table_names.h"

QList<ClassColour> readClasses(const dao::Database& database) {
    QList<ClassColour> classes;
    dao::Recordset records = database.OpenRecordset(ClasscodesTable);
    const dao::RecordsetField code = records.Fields(u"Classcode");
    const dao::RecordsetField colour = records.Fields(u"Colour");
    for (; !records.EOF_(); records.MoveNext())
        classes += {code.text(),
                    colour.isNull() ? WhiteClassColour : static_cast<qint32>(colour.integer())};
    records.Close();
    return classes;
}

void LoadClassColours(Session& session) {
    session.ClassColours = readClasses(session.CurrentDB);
}
