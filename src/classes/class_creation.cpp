#include "classes/class_creation.h"

#include "calendar/sheet_letters.h"
#include "calendar/term_weeks.h"
#include "core/class_colour.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

void showTooManyLessons(Prompts& prompts, qsizetype lessons) {
    prompts.PlainBox(
        u"Error : The register table for this class has been limited because it contains too many "
        "fields. Your term dates show that the class is registered "_s +
            QString::number(lessons) +
            u" times during the year. Microsoft Access allows a maximum of 255 fields per table."
            "\n\nIf you have correctly entered only the teaching days when setting up the database "
            "you may need to seperate this class into 2 classes in order to create full registers "
            "otherwise it is suggested that you setup the database again and only enter the days "
            "that you will be teaching on for the academic year."_s,
        OkButton | WarningIcon, u"Too many fields"_s);
}

void addRecord(const dao::Database& database, const QString& classCode,
               const ClassPeriods& periods) {
    dao::Recordset classcodes = database.OpenRecordset(ClasscodesTable);
    addClassRecord(classcodes, classCode, periods, WhiteClassColour);
    classcodes.Close();
}

/// Takes the periods of one week from the slots of the timetable that no class has.
void takeFreeSlots(const dao::Database& database, const QString& table,
                   const std::array<QString, DaysOfTimetable>& digits) {
    dao::Recordset freeSlots = database.OpenRecordset(table);
    for (int day = 0; day < DaysOfTimetable; ++day) {
        for (const QChar period : digits[static_cast<size_t>(day)]) {
            if (FindInRecordset(freeSlots, u"Day=%1 AND Period=%2"_s.arg(day + 1).arg(period)))
                freeSlots.Delete();
        }
    }
    freeSlots.Close();
}

/// Writes the class into the sheet of each lesson's date, in all its periods of that day. A date
/// without a sheet is passed over; of two sheets of one date the first gets it.
void writeIntoPlanning(const dao::Database& database, const QString& classCode,
                       const ClassPeriods& periods, const QList<Lesson>& lessons) {
    dao::Recordset planning = database.OpenRecordset(PlanningTable);
    QDate written;
    for (const Lesson& lesson : lessons) {
        if (lesson.date == written)
            continue;
        written = lesson.date;
        if (!FindInRecordset(planning,
                             u"PlanDate = "_s + dao::writeText(sheetDateText(lesson.date))))
            continue;
        const auto weekday = static_cast<size_t>(weekdayOf(lesson.date) - Monday);
        planning.Edit();
        for (const QChar period : periods.week(lesson.letter)[weekday])
            planning.SetCollect(u"Class"_s + period, classCode);
        planning.Update();
    }
    planning.Close();
}

/// The letters of the teaching days: those of their weeks' sheets, else by turns from the first
/// week's on.
QList<QChar> dayLetters(const dao::Database& database, const QList<QDate>& days,
                        const QString& startWeek) {
    QList<QChar> letters = weekLetters(days, startLetter(startWeek));
    const QHash<int, QChar> ofSheets = sheetLetters(database);
    const QList<short> weeks = weekNumbers(days);
    for (qsizetype i = 0; i < days.size(); ++i)
        letters[i] = ofSheets.value(weeks[i], letters[i]);
    return letters;
}

void createClass(const dao::Database& database, const NewClass& answers,
                 const ClassPeriods& periods, const QList<Lesson>& lessons) {
    dao::Transaction transaction(database);
    addRecord(database, answers.code, periods);
    takeFreeSlots(database, ExtraTTinfoTable, periods.weekA);
    if (answers.twoWeeks)
        takeFreeSlots(database, ExtraTTinfoBTable, periods.weekB);
    createPupilTable(database, answers.code);
    if (hasRegister(lessons))
        writeIntoPlanning(database, answers.code, periods, lessons);
    createRegisterAndMarks(database, answers.code, lessons);
    transaction.commit();
}

} // namespace

QList<Lesson> yearLessons(const dao::Database& database, const ClassPeriods& periods) {
    const QList<QDate> days = GetTermDays(database).days.mid(1);
    dao::Recordset admin = database.OpenRecordset(AdminTable);
    QList<QChar> letters;
    if (admin.Collect(u"TTweekly").toInteger() == 1)
        letters = dayLetters(database, days, admin.Collect(u"StartWeek").toText());
    admin.Close();
    return classLessons(days, letters, periods);
}

bool createClass(const dao::Database& database, const NewClass& answers, Prompts& prompts) {
    QList<Lesson> lessons;
    try {
        const ClassPeriods periods = pickedPeriods(answers);
        lessons = yearLessons(database, periods);
        createClass(database, answers, periods, lessons);
    } catch (const dao::EngineError& error) {
        if (error.number() == dao::TooManyFields)
            showTooManyLessons(prompts, lessons.size());
        else
            tellFailure(prompts,
                        {u"Create Class Error", u"Error Creating Class : \nError number : %2\n%1"},
                        error);
        return false;
    }
    if (exceedsRegister(lessons))
        showTooManyLessons(prompts, lessons.size());
    return true;
}
