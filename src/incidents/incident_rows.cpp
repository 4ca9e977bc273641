#include "incidents/incident_rows.h"

#include "core/dates.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QHash>
#include <QLocale>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The one table of an older program.
const QString FlatTable = u"Incidents"_s;

/// What moves from it beside the pupil's name.
const std::array movedFields{u"Tutor"_s,    u"Date"_s, u"Event"_s,  u"Location"_s,
                             u"Incident"_s, u"Home"_s, u"Action"_s, u"Further"_s};

void ensureTables(const dao::Database& year) {
    if (!TableExists(year, IncidentNamesTable))
        year.TableDefs().Append(schemaTableDef(Table::IncidentNames));
    if (!TableExists(year, IncidentDetailsTable))
        year.TableDefs().Append(schemaTableDef(Table::IncidentDetails));
    dao::FieldCollection fields = year.TableDefs()[IncidentDetailsTable].Fields();
    if (fields.Contains(u"SendTo"))
        return;
    for (const QString& field : {u"SendTo"_s, u"CC"_s}) {
        if (!fields.Contains(field))
            fields.Append(schemaField(Table::IncidentDetails, field));
    }
}

QString isText(const QString& field, const QString& text) {
    return text.isEmpty() ? field + u" Is Null"_s : field + u" = "_s + dao::writeText(text);
}

dao::Value valueOrNull(const QString& text) {
    return text.isEmpty() ? dao::Value() : dao::Value(text);
}

/// The `ID` of the pupil of that name, who is added where there is none.
qint64 pupilOf(dao::Recordset& names, const QString& surname, const QString& forename) {
    const QString criterion =
        isText(u"Surname"_s, surname) + u" AND "_s + isText(u"Forename"_s, forename);
    if (!FindInRecordset(names, criterion)) {
        names.AddNew();
        names.SetCollect(u"Surname", valueOrNull(surname));
        names.SetCollect(u"Forename", valueOrNull(forename));
        names.Update();
        names.SetBookmark(names.LastModified());
    }
    return names.Collect(u"ID").toInteger();
}

/// Fields that no row of an older program's table has are left as they are.
int moveRow(const dao::Recordset& old, dao::Recordset& names, dao::Recordset& details) {
    int cutTexts = 0;
    const auto fitting = [&](QStringView field) {
        const QString text = old.HasField(field) ? old.Collect(field).toText() : QString();
        const int longest = longestIncidentText(field);
        if (longest > 0 && text.size() > longest)
            ++cutTexts;
        return longest > 0 ? text.left(longest) : text;
    };
    const QString surname = fitting(u"Surname");
    const qint64 pupil = pupilOf(names, surname, fitting(u"Forename"));
    details.AddNew();
    details.SetCollect(u"NameID", pupil);
    for (const QString& field : movedFields) {
        const QString text = fitting(field);
        if (!text.isEmpty())
            details.SetCollect(field, text);
    }
    details.Update();
    return cutTexts;
}

int moveFlatTable(const dao::Database& year) {
    int cutTexts = 0;
    dao::Recordset old = year.OpenRecordset(FlatTable, dao::RecordsetType::Snapshot);
    dao::Recordset names = year.OpenRecordset(IncidentNamesTable);
    dao::Recordset details = year.OpenRecordset(IncidentDetailsTable);
    for (; !old.EOF_(); old.MoveNext())
        cutTexts += moveRow(old, names, details);
    for (dao::Recordset* each : {&old, &names, &details})
        each->Close();
    year.TableDefs().Delete(FlatTable);
    return cutTexts;
}

dao::Recordset rowOf(const dao::Database& year, const QString& table, QStringView key, qint64 id) {
    return year.OpenRecordset(
        u"SELECT * FROM %1 WHERE %2 = %3"_s.arg(table, key, QString::number(id)));
}

} // namespace

int Check_Incident_Tables(const dao::Database& year) {
    dao::Transaction whole(year);
    ensureTables(year);
    const int cutTexts = TableExists(year, FlatTable) ? moveFlatTable(year) : 0;
    whole.commit();
    return cutTexts;
}

QList<PupilIncidents> readIncidents(const dao::Database& year) {
    QList<PupilIncidents> pupils;
    QHash<qint64, qsizetype> places;
    dao::Recordset names = year.OpenRecordset(
        u"SELECT ID,Surname,Forename FROM IncidentNames ORDER BY Surname,Forename;"_s,
        dao::RecordsetType::Snapshot);
    for (; !names.EOF_(); names.MoveNext()) {
        const qint64 id = names.Collect(0).toInteger();
        places.insert(id, pupils.size());
        pupils += PupilIncidents{{id, names.Collect(2).toText(), names.Collect(1).toText()}, {}};
    }
    dao::Recordset details = year.OpenRecordset(
        u"SELECT ID,NameID,Date FROM IncidentDetails ORDER BY Date DESC,ID DESC;"_s,
        dao::RecordsetType::Snapshot);
    for (; !details.EOF_(); details.MoveNext()) {
        const auto place = places.constFind(details.Collect(1).toInteger());
        if (place != places.constEnd())
            pupils[*place].reports +=
                IncidentReport{details.Collect(0).toInteger(), details.Collect(2).toText()};
    }
    return pupils;
}

QDate incidentDate(const QString& stored) {
    constexpr int century = 2000;
    constexpr qsizetype monthPlace = 3;
    const auto number = [&](const QString& digits) {
        bool isNumber = false;
        const int value = digits.toInt(&isNumber);
        return isNumber ? value : -1;
    };
    const int year = number(stored.left(2));
    return year < 0
               ? QDate()
               : QDate(century + year, number(stored.mid(monthPlace, 2)), number(stored.right(2)));
}

int longestIncidentText(QStringView field) {
    const bool isName = field == u"Surname" || field == u"Forename";
    return schemaField(isName ? Table::IncidentNames : Table::IncidentDetails, field).Size;
}

qint64 addIncident(const dao::Database& year, const NewIncident& incident) {
    dao::Transaction whole(year);
    dao::Recordset names = year.OpenRecordset(IncidentNamesTable);
    const qint64 pupil =
        incident.pupil ? *incident.pupil : pupilOf(names, incident.surname, incident.forename);
    dao::Recordset details = year.OpenRecordset(IncidentDetailsTable);
    details.AddNew();
    details.SetCollect(u"NameID", pupil);
    details.SetCollect(u"Date", sheetDateText(incident.date));
    if (!incident.tutor.isEmpty())
        details.SetCollect(u"Tutor", incident.tutor);
    if (!incident.event.isEmpty())
        details.SetCollect(u"Event", incident.event);
    details.Update();
    details.SetBookmark(details.LastModified());
    const qint64 report = details.Collect(u"ID").toInteger();
    whole.commit();
    return report;
}

void deletePupilIncidents(const dao::Database& year, qint64 pupil) {
    dao::Transaction whole(year);
    for (dao::Recordset reports = rowOf(year, IncidentDetailsTable, u"NameID", pupil);
         !reports.EOF_(); reports.MoveNext())
        reports.Delete();
    dao::Recordset name = rowOf(year, IncidentNamesTable, u"ID", pupil);
    if (!name.EOF_())
        name.Delete();
    whole.commit();
}

void deleteIncident(const dao::Database& year, qint64 report) {
    dao::Transaction whole(year);
    dao::Recordset row = openIncident(year, report);
    if (row.EOF_())
        return;
    const qint64 pupil = row.Collect(u"NameID").toInteger();
    row.Delete();
    if (rowOf(year, IncidentDetailsTable, u"NameID", pupil).EOF_())
        deletePupilIncidents(year, pupil);
    whole.commit();
}

dao::Recordset openIncident(const dao::Database& year, qint64 report) {
    return rowOf(year, IncidentDetailsTable, u"ID", report);
}

std::optional<IncidentPupil> pupilOfReport(const dao::Database& year, qint64 report) {
    const dao::Recordset row = openIncident(year, report);
    if (row.EOF_())
        return {};
    const qint64 id = row.Collect(u"NameID").toInteger();
    const dao::Recordset name = rowOf(year, IncidentNamesTable, u"ID", id);
    if (name.EOF_())
        return {};
    return IncidentPupil{id, name.Collect(u"Forename").toText(), name.Collect(u"Surname").toText()};
}

QString incidentDateText(const QString& stored, const QString& dateFormat) {
    const QDate date = incidentDate(stored);
    if (date.isValid())
        return QLocale().toString(date, dateFormat);
    return stored.isEmpty() ? u"(no date)"_s : stored;
}

QString insertedForename(const IncidentPupil& pupil) {
    const QString name = pupil.name();
    const QString forename = name.left(name.indexOf(u' ') + 1);
    return forename.left(1).toUpper() + forename.mid(1).toLower();
}

QString tutorOf(const dao::Database& year, const QString& classCode, const ClassPupil& pupil) {
    const dao::Recordset rows = year.OpenRecordset(
        u"SELECT Tutor FROM %1 WHERE %2 AND %3"_s.arg(dao::writeName(classTable(classCode)),
                                                      isText(u"Surname"_s, pupil.surname),
                                                      isText(u"Firstname"_s, pupil.forename)),
        dao::RecordsetType::Snapshot);
    return rows.RecordCount() == 1 ? rows.Collect(0).toText() : QString();
}
