#pragma once

#include <QString>
#include <QStringView>

#include <optional>

/// The names of a year's tables and relations: the only place that puts them together from a class
/// code or takes them apart. They stand in files: do not change them.

inline const QString PlanningTable = QStringLiteral("Planning");
inline const QString CalendarTable = QStringLiteral("Calendar");
inline const QString AdminTable = QStringLiteral("Admin");
inline const QString ClasscodesTable = QStringLiteral("Classcodes");
inline const QString ExtraTTinfoTable = QStringLiteral("ExtraTTinfo");
inline const QString ExtraTTinfoBTable = QStringLiteral("ExtraTTinfoB");
inline const QString TermDatesTable = QStringLiteral("TermDates");
inline const QString LessonNotesTable = QStringLiteral("Lesson_Notes");
inline const QString FileLinksTable = QStringLiteral("FileLinks");
inline const QString STPdataTable = QStringLiteral("STPdata");
inline const QString RoomIDTable = QStringLiteral("RoomID");
inline const QString ClassTempTable = QStringLiteral("Class_Temp");
inline const QString TempTable = QStringLiteral("Temp");
inline const QString WeekChangeTable = QStringLiteral("WeekChange");
inline const QString SchedulesTable = QStringLiteral("Schedules");
inline const QString PostItTable = QStringLiteral("Post-It");
inline const QString IncidentNamesTable = QStringLiteral("IncidentNames");
inline const QString IncidentDetailsTable = QStringLiteral("IncidentDetails");
inline const QString ContactsTable = QStringLiteral("Contacts"); ///< in the address book's file

/// The prefixes of a class's own tables; the class code follows unchanged.
inline const QString ClassPrefix = QStringLiteral("Class_");
inline const QString RegisterPrefix = QStringLiteral("REG_");
inline const QString MarksPrefix = QStringLiteral("Marks_");
inline const QString SeatingPlanPrefix = QStringLiteral("sPlan_");
inline const QString SeatingPlanExtraPrefix = QStringLiteral("sPlanExtra_");
/// The prefix of the fields of `Class_`C that hold a note category; the category's title follows.
inline const QString NoteFieldPrefix = QStringLiteral("NTS_");

/// The primary index that every table with an `ID` of its own has.
inline const QString IdIndex = QStringLiteral("ID_index");

QString classTable(const QString& classCode);
QString registerTable(const QString& classCode);
QString marksTable(const QString& classCode);
/// A class's plan in a room, its default plan with an empty one. The room stands in front.
QString seatingPlanTable(const QString& classCode, const QString& room = {});
QString seatingPlanExtraTable(const QString& classCode, const QString& room = {});

QString registerRelation(const QString& classCode); ///< from a class's table to its register
QString marksRelation(const QString& classCode);    ///< from a class's table to its grades

/// The class whose table of pupils a table is, by its name; none for every other table and for
/// `Class_Temp`. Prefixes match without regard to case.
std::optional<QString> classOfClassTable(const QString& table);
std::optional<QString> classOfRegisterTable(const QString& table);
std::optional<QString> classOfMarksTable(const QString& table);
/// The room of one of a class's plans, by the name of its pupil table: empty for the default plan,
/// none for a table that is no plan of this class. The room ends at the first underline, and
/// `sPlan_A_B` counts as a plan of class B in room A, even if a class A_B exists.
std::optional<QString> roomOfSeatingPlan(const QString& table, const QString& classCode);
/// The extra table that goes with a plan's pupil table; none for a table that is no plan.
std::optional<QString> extraOfSeatingPlan(const QString& table);
