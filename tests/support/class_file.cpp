#include "support/class_file.h"

void addPupils(const dao::Database& database, const QString& classCode, const QStringList& names) {
    dao::Transaction transaction(database);
    dao::Recordset pupils = database.OpenRecordset(classTable(classCode));
    for (const QString& name : names) {
        pupils.AddNew();
        pupils.SetCollect(u"Surname", name.section(u',', 0, 0));
        if (name.contains(u','))
            pupils.SetCollect(u"Firstname", name.section(u',', 1));
        pupils.Update();
        pupils.MoveLast();
        for (const QString& table : {registerTable(classCode), marksTable(classCode)}) {
            if (!database.TableDefs().Contains(table))
                continue;
            dao::Recordset own = database.OpenRecordset(table);
            own.AddNew();
            own.SetCollect(u"ID", pupils.Collect(u"ID"));
            own.Update();
        }
    }
    transaction.commit();
}

int cellOf(int period, int weekday) {
    return (period - 1) * DaysOfTimetable + weekday;
}

NewClass newClass(const dao::Database& database, const QString& code, const ClassPeriods& periods) {
    NewClass answers = readNewClass(database);
    answers.code = code;
    for (const QChar letter : {u'A', u'B'}) {
        for (int day = 0; day < DaysOfTimetable; ++day) {
            for (const QChar period : periods.week(letter)[static_cast<size_t>(day)])
                answers.week(letter)[cellOf(period.digitValue(), day)].caption = code;
        }
    }
    return answers;
}

QString marksInFile(const dao::Database& database, const QString& classCode, int pupil) {
    const QStringList values = rowsOf(database, u"SELECT * FROM %1 WHERE ID = %2"_s
                                                    .arg(dao::writeName(registerTable(classCode)))
                                                    .arg(pupil))
                                   .first()
                                   .split(u'|')
                                   .mid(1);
    QString marks;
    for (const QString& value : values)
        marks += value.isEmpty() || value == u"~" ? u"."_s : value;
    return marks;
}
