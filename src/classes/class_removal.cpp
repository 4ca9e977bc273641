#include "classes/class_removal.h"

#include "classes/class_tables.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

const QString DontAskCaption = u"Don't display this dialog again."_s;

/// The colour of windows, which a slot without a class has.
constexpr qint32 SystemWindowColour = static_cast<qint32>(0x80000005);

/// A plain search for the code within the name, broad on purpose: it meets the recordsets of a
/// class whose code contains this one too.
void closeRecordsetsOf(const dao::Database& database, const QString& classCode) {
    const QString inBrackets = QString(classCode).replace(u']', u"]]"_s);
    for (dao::Recordset recordset : database.Recordsets()) {
        const QString name = recordset.Name();
        if (name.contains(classCode) || name.contains(inBrackets))
            recordset.Close();
    }
}

void dropWhereThere(const dao::Database& database, const QString& table) {
    if (database.TableDefs().Contains(table))
        database.TableDefs().Delete(table);
}

/// Drops the seating plans that are tied to the class's pupils, whatever their names say: a plan of
/// class B in room A is called as that of a class A_B is.
void dropTiedPlans(const dao::Database& database, const QString& classCode) {
    for (const dao::Relation& relation : database.Relations().to(classTable(classCode))) {
        const std::optional<QString> extra = extraOfSeatingPlan(relation.ForeignTable);
        if (!extra)
            continue;
        dropWhereThere(database, relation.ForeignTable);
        dropWhereThere(database, *extra);
    }
}

/// Drops a default plan that is tied to no class.
void dropLoosePlan(const dao::Database& database, const QString& classCode) {
    const QString plan = seatingPlanTable(classCode);
    if (!database.Relations().from(plan).isEmpty())
        return;
    dropWhereThere(database, plan);
    dropWhereThere(database, seatingPlanExtraTable(classCode));
}

void dropTables(const dao::Database& database, const QString& classCode) {
    dropWhereThere(database, registerTable(classCode));
    dropWhereThere(database, marksTable(classCode));
    dropTiedPlans(database, classCode);
    dropLoosePlan(database, classCode);
    database.TableDefs().Delete(classTable(classCode));
}

void deleteLessonNotes(const dao::Database& database, const QString& classCode) {
    if (!database.TableDefs().Contains(LessonNotesTable))
        return;
    dao::Recordset notes = database.OpenRecordset(
        u"SELECT * FROM %1 WHERE Lcode = %2"_s.arg(LessonNotesTable, dao::writeText(classCode)));
    for (; !notes.EOF_(); notes.MoveNext())
        notes.Delete();
    notes.Close();
}

/// In one walk over the sheets, however many classes go: it takes longer than all else.
void clearFromPlanning(const dao::Database& database, const QStringList& classCodes,
                       int periodsPerDay) {
    QStringList fields;
    for (int period = 1; period <= periodsPerDay; ++period)
        fields += u"Class%1"_s.arg(period);
    dao::Recordset planning =
        database.OpenRecordset(u"SELECT %1 FROM %2"_s.arg(fields.join(u','), PlanningTable));
    for (; !planning.EOF_(); planning.MoveNext()) {
        for (const QString& field : std::as_const(fields)) {
            if (!classCodes.contains(planning.Collect(field).toText()))
                continue;
            if (planning.EditMode() == dao::EditMode::None)
                planning.Edit();
            planning.SetCollect(field, QString());
        }
        if (planning.EditMode() != dao::EditMode::None)
            planning.Update();
    }
    planning.Close();
}

void giveBackSlots(const dao::Database& database, const QString& table,
                   const std::array<QString, DaysOfTimetable>& digits) {
    dao::Recordset freeSlots = database.OpenRecordset(table);
    for (int day = 0; day < DaysOfTimetable; ++day) {
        for (const QChar period : digits[static_cast<size_t>(day)]) {
            freeSlots.AddNew();
            freeSlots.SetCollect(u"Day", day + 1);
            freeSlots.SetCollect(u"Period", QString(period));
            freeSlots.SetCollect(u"Colour", SystemWindowColour);
            freeSlots.Update();
        }
    }
    freeSlots.Close();
}

void deleteRecord(const dao::Database& database, const QString& classCode, bool twoWeeks) {
    dao::Recordset record = database.OpenRecordset(
        u"SELECT * FROM %1 WHERE Classcode = %2"_s.arg(ClasscodesTable, dao::writeText(classCode)));
    if (record.EOF_())
        return;
    const ClassPeriods periods = classPeriods(record);
    giveBackSlots(database, ExtraTTinfoTable, periods.weekA);
    if (twoWeeks)
        giveBackSlots(database, ExtraTTinfoBTable, periods.weekB);
    record.Delete();
    record.Close();
}

void deleteClasses(const dao::Database& database, const QStringList& classCodes,
                   const std::function<void(const QString&)>& next) {
    dao::Transaction transaction(database);
    dao::Recordset admin = database.OpenRecordset(AdminTable);
    const int periodsPerDay = static_cast<int>(admin.Collect(u"PeriodsPerDay").toInteger());
    const bool twoWeeks = admin.Collect(u"TTweekly").toInteger() == 1;
    admin.Close();
    for (const QString& classCode : classCodes) {
        if (next)
            next(classCode);
        dropTables(database, classCode);
        deleteLessonNotes(database, classCode);
        deleteRecord(database, classCode, twoWeeks);
    }
    clearFromPlanning(database, classCodes, periodsPerDay);
    transaction.commit();
}

void deletePupils(const dao::Database& database, const QString& classCode,
                  const QList<qint64>& pupils) {
    const QSet<qint64> leaving(pupils.begin(), pupils.end());
    dao::Transaction transaction(database);
    dao::Recordset records =
        database.OpenRecordset(u"SELECT ID FROM %1"_s.arg(dao::writeName(classTable(classCode))));
    for (; !records.EOF_(); records.MoveNext()) {
        if (leaving.contains(records.Collect(u"ID").toInteger()))
            records.Delete();
    }
    records.Close();
    transaction.commit();
}

constexpr FailureBox classUndeleted{u"Delete Class Error",
                                    u"Error number %2\n%1\nThis opperation will be undone! Please "
                                    u"restart the application to return to the previous state."};

} // namespace

DeleteClassAnswer askDeleteClass(Prompts& prompts, const QString& classCode, bool mayArchive,
                                 bool& dontAsk) {
    if (dontAsk)
        return DeleteClassAnswer::Yes;
    BoxLook look;
    if (mayArchive)
        look.captions = {u"Yes"_s, u"No"_s, u"Archive"_s};
    look.checkBox = DontAskCaption;
    const BoxAnswer answer = prompts.msg_Box(
        u"Deleting the class "_s + classCode +
            u" will result in the Register,\nMarks and Seating Plan being deleted also!"
            "\n\nYOU WILL NOT BE ABLE TO UNDO THESE CHANGES"
            "\n\nPlease consider using the 'Archive a class' feature before deleting."
            "\n\nAre you sure you want to delete this class?"_s,
        (mayArchive ? YesNoCancelButtons : YesNoButtons) | WarningIcon | SecondButtonDefault,
        u"Delete Class:"_s, look);
    dontAsk = answer.ticked && answer == AnswerYes;
    if (answer == AnswerYes)
        return DeleteClassAnswer::Yes;
    return answer == AnswerCancel ? DeleteClassAnswer::Archive : DeleteClassAnswer::No;
}

bool Delete_Class(const dao::Database& database, const QString& classCode, Prompts& prompts) {
    return Delete_Classes(database, {classCode}, prompts);
}

bool Delete_Classes(const dao::Database& database, const QStringList& classCodes, Prompts& prompts,
                    const std::function<void(const QString&)>& next) {
    return tryTelling(prompts, classUndeleted, [&] {
        for (const QString& classCode : classCodes)
            closeRecordsetsOf(database, classCode);
        deleteClasses(database, classCodes, next);
    });
}

bool Delete_Pupil(const dao::Database& database, const QString& classCode, qint64 pupil,
                  const PupilName& name, bool& dontAsk, Prompts& prompts) {
    const QString title = u"Delete Pupil:"_s;
    if (!dontAsk) {
        BoxLook look;
        look.checkBox = DontAskCaption;
        const BoxAnswer answer = prompts.msg_Box(
            u"Deleting a pupil from a class list will remove the registration and mark sheet data "
            "also.\n\nAre you sure you wish to remove "_s +
                name.firstname + u' ' + name.surname + u" from this class?\n"_s,
            YesNoButtons | QuestionIcon | SecondButtonDefault, title, look);
        dontAsk = answer.ticked && answer == AnswerYes;
        if (answer != AnswerYes)
            return false;
    }
    return tryTelling(prompts, {title}, [&] { deletePupils(database, classCode, {pupil}); });
}

bool Delete_All_Pupils(const dao::Database& database, const QString& classCode,
                       const QList<qint64>& pupils, Prompts& prompts) {
    const QString title = u"Remove ALL Pupils"_s;
    const BoxAnswer answer = prompts.msg_Box(
        u"Deleting All PUPILs from this class list will remove the registration and mark sheet "
        "data also.\nAre you sure you wish to remove ALL PUPILS from this class?"_s,
        YesNoButtons | QuestionIcon | SecondButtonDefault, title);
    return answer == AnswerYes &&
           tryTelling(prompts, {title}, [&] { deletePupils(database, classCode, pupils); });
}

void showNothingToDelete(Prompts& prompts) {
    prompts.PlainBox(u"There are no pupils in this class to delete!"_s, OkButton,
                     u"Delete Pupils"_s);
}
