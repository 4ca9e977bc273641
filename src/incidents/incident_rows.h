#pragma once

#include "classes/pupil_names.h"
#include "store/engine/engine.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

/// The rows of `IncidentNames` and `IncidentDetails`: reports on pupils by name, whatever class
/// they are or were in. All here raises what the engine raises.

/// Makes the tables where they are missing, gives those of an older program the fields that they
/// lack, and moves the reports of its one flat table `Incidents`, which then goes. Whole or not at
/// all. Answers how many of the moved texts were too long for their fields and were cut.
int Check_Incident_Tables(const dao::Database& year);

struct IncidentPupil {
    qint64 id = 0; ///< of the row
    QString forename = {};
    QString surname = {};

    QString name() const { return forename + u' ' + surname; }
};

/// A report as the tree lists it.
struct IncidentReport {
    qint64 id = 0;
    QString date = {}; ///< as stored, "yy-mm-dd"; may be empty, or make no sense
};

struct PupilIncidents {
    IncidentPupil pupil;
    QList<IncidentReport> reports; ///< the last first
};

/// All pupils with reports, by surname, then by forename.
QList<PupilIncidents> readIncidents(const dao::Database& year);

/// The day of a report, whose years are those from 2000 on; invalid for a text that makes no sense.
QDate incidentDate(const QString& stored);
/// The same for people, in a format of QLocale's. A date that makes no sense is shown as it stands,
/// so that its report can be reached.
QString incidentDateText(const QString& stored, const QString& dateFormat);
/// The days that a report can have.
inline const QDate FirstIncidentDate{2000, 1, 1};
inline const QDate LastIncidentDate{2099, 12, 31};

struct NewIncident {
    /// Whom it is about, where that is known; else it is found by the name.
    std::optional<qint64> pupil = {};
    QString surname = {};
    QString forename = {};
    QString tutor = {};
    QDate date = {}; ///< between the first and the last
    QString event = {};

    bool operator==(const NewIncident&) const = default;
};
/// The most characters of the texts of a report and of its pupil's name.
int longestIncidentText(QStringView field);

/// Adds a report, and its pupil unless one of that name is there. Answers the report's `ID`.
qint64 addIncident(const dao::Database& year, const NewIncident& incident);
/// Deletes a pupil with all reports.
void deletePupilIncidents(const dao::Database& year, qint64 pupil);
/// Deletes a report; with the last one its pupil goes too.
void deleteIncident(const dao::Database& year, qint64 report);

/// The row of a report, to be bound to boxes; without a current record where it is gone.
dao::Recordset openIncident(const dao::Database& year, qint64 report);

/// Whom a report is about; nothing where the row is gone.
std::optional<IncidentPupil> pupilOfReport(const dao::Database& year, qint64 report);

/// What stands in a text for "#": the forename up to the first blank and with it, its first letter
/// a capital and all others small.
QString insertedForename(const IncidentPupil& pupil);

/// The tutor of the one pupil of that name in a class; empty where there is none, or are several.
QString tutorOf(const dao::Database& year, const QString& classCode, const ClassPupil& pupil);
