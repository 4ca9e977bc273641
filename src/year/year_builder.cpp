#include "year/year_builder.h"

#include "calendar/event_rows.h"
#include "calendar/term_weeks.h"
#include "core/class_colour.h"
#include "core/progress.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "year/long_register.h"

using namespace Qt::StringLiterals;

namespace {

int percentBuilt(qsizetype done, qsizetype all) {
    return static_cast<int>(done * 100 / all);
}

std::array<QString, DaysOfTimetable> periodsInWeek(const YearAnswers& answers, QChar letter,
                                                   const QString& classCode) {
    std::array<QString, DaysOfTimetable> digits;
    for (int day = 0; day < DaysOfTimetable; ++day)
        for (int period = 1; period <= answers.periodsPerDay; ++period)
            if (classAt(answers.week(letter), day, period) == classCode)
                digits[static_cast<size_t>(day)] += QString::number(period);
    return digits;
}

} // namespace

QString monthKey(int month, const QLocale& locale) {
    return MonthName(month, locale).left(3) + u'1';
}

ClassPeriods classPeriods(const YearAnswers& answers, const QString& classCode) {
    ClassPeriods periods;
    periods.weekA = periodsInWeek(answers, u'A', classCode);
    if (answers.twoWeeks)
        periods.weekB = periodsInWeek(answers, u'B', classCode);
    return periods;
}

YearBuilder::YearBuilder(const dao::Database& database, const YearAnswers& answers,
                         Progress& progress, Prompts& prompts, const QLocale& locale)
    : m_database(database)
    , m_answers(answers)
    , m_progress(progress)
    , m_prompts(prompts)
    , m_locale(locale) {
    QList<QDate> boundaries;
    for (const DatePeriod& term : answers.terms)
        boundaries << term.first << term.last;
    m_days = teachingDays(boundaries);
    if (answers.twoWeeks)
        m_letters = weekLetters(m_days, startLetter(answers.startWeek));
}

void YearBuilder::build() {
    createPlanning();
    createCalendar();
    createAdmin();
    createClasscodes();
    createExtraTTinfo(u'A');
    if (m_answers.twoWeeks)
        createExtraTTinfo(u'B');
    createTermDates();
    fillPlanning();
    createClasses();
}

dao::Recordset YearBuilder::createAndOpen(Table table) {
    const YearShape shape{m_answers.periodsPerDay, m_answers.twoWeeks};
    const dao::TableDef definition = schemaTableDef(table, shape);
    m_database.TableDefs().Append(definition);
    return m_database.OpenRecordset(definition.Name());
}

void YearBuilder::createPlanning() {
    m_progress.UpdateProgress(0, u"Creating Planning Table"_s);
    dao::Recordset planning = createAndOpen(Table::Planning);
    planning.Close();
    m_progress.UpdateProgress(100, u"Appending Planning Table"_s);
}

void YearBuilder::createCalendar() {
    m_progress.UpdateProgress(0, u"Creating Calendar Table"_s);
    for (int day = 1; day <= DaysOfCalendar; ++day)
        m_progress.UpdateProgress(percentBuilt(day, DaysOfCalendar), u"Adding Day Fields"_s);
    dao::Recordset calendar = createAndOpen(Table::DateField);
    for (int month = 1; month <= MonthsPerYear; ++month) {
        calendar.AddNew();
        calendar.SetCollect(u"Month", baseMonthKey(month, m_locale));
        calendar.Update();
        m_progress.UpdateProgress(percentBuilt(month, MonthsPerYear), u"Creating Month Records"_s);
    }
    calendar.Close();
}

void YearBuilder::createAdmin() {
    m_progress.UpdateProgress(0, u"Creating Admin Table"_s);
    dao::Recordset admin = createAndOpen(Table::Admin);
    m_progress.UpdateProgress(100, u"Filling Admin Data"_s);
    admin.AddNew();
    admin.SetCollect(u"Teacher", teacherText(m_answers));
    admin.SetCollect(u"Year", m_answers.year);
    admin.SetCollect(u"PeriodsPerDay", m_answers.periodsPerDay);
    admin.SetCollect(u"TTweekly", m_answers.twoWeeks ? 1 : 0);
    if (m_answers.twoWeeks)
        admin.SetCollect(u"StartWeek", m_answers.startWeek);
    for (const QStringView field : {u"Break1", u"Break2", u"Break3"})
        admin.SetCollect(field, 0);
    admin.Update();
    admin.Close();
}

void YearBuilder::createClasscodes() {
    m_progress.UpdateProgress(0, u"Creating Classcodes Table"_s);
    dao::Recordset classcodes = createAndOpen(Table::Classcodes);
    qsizetype done = 0;
    for (const QString& code : m_answers.classes) {
        addClassRecord(classcodes, code, classPeriods(m_answers, code),
                       m_answers.colours.value(code, WhiteClassColour));
        m_progress.UpdateProgress(percentBuilt(++done, m_answers.classes.size()),
                                  u"Filling Classcodes Data"_s);
    }
    classcodes.Close();
}

void YearBuilder::createExtraTTinfo(QChar letter) {
    m_progress.UpdateProgress(0, u"Creating Extra Timetable info Table"_s);
    dao::Recordset freeSlots =
        createAndOpen(letter == u'B' ? Table::ExtraTTinfoB : Table::ExtraTTinfo);
    for (int period = 1; period <= m_answers.periodsPerDay; ++period) {
        for (int day = 0; day < DaysOfTimetable; ++day) {
            if (!classAt(m_answers.week(letter), day, period).isEmpty())
                continue;
            freeSlots.AddNew();
            freeSlots.SetCollect(u"Day", day + 1);
            freeSlots.SetCollect(u"Period", period);
            freeSlots.Update();
        }
    }
    freeSlots.Close();
}

void YearBuilder::createTermDates() {
    m_progress.UpdateProgress(0, u"Creating the Term Dates Table"_s);
    dao::Recordset termDates = createAndOpen(Table::TermDates);
    const qsizetype count = m_answers.terms.size() * 2;
    int number = 0;
    for (const DatePeriod& term : m_answers.terms) {
        for (const QDate date : {term.first, term.last}) {
            termDates.AddNew();
            termDates.SetCollect(u"Term", ++number);
            termDates.SetCollect(u"Year", date.year());
            termDates.SetCollect(u"Month", date.month());
            termDates.SetCollect(u"Day", date.day());
            termDates.Update();
            m_progress.UpdateProgress(percentBuilt(number, count));
        }
    }
    termDates.Close();
}

void YearBuilder::fillPlanning() {
    m_progress.UpdateProgress(0, u"Adding the Planning Table Data"_s);
    const QList<short> weeks = weekNumbers(m_days);
    dao::Recordset planning = m_database.OpenRecordset(PlanningTable);
    for (qsizetype i = 0; i < m_days.size(); ++i) {
        const QChar letter = m_answers.twoWeeks ? m_letters[i] : QChar(u'A');
        planning.AddNew();
        planning.SetCollect(u"PlanDate", sheetDateText(m_days[i]));
        for (int period = 1; period <= m_answers.periodsPerDay; ++period)
            planning.SetCollect(
                u"Class%1"_s.arg(period),
                classAt(m_answers.week(letter), weekdayOf(m_days[i]) - Monday, period));
        planning.SetCollect(u"Week", weeks[i]);
        // The stored letter goes by the week's number; it is the letter of the day's classes,
        // since every numbered week is one change of the week.
        if (m_answers.twoWeeks)
            planning.SetCollect(u"ABWeek",
                                QString(weekLetter(weeks[i], startLetter(m_answers.startWeek))));
        planning.Update();
        m_progress.UpdateProgress(percentBuilt(i + 1, m_days.size()));
    }
    planning.Close();
}

void YearBuilder::createClasses() {
    const QString line = u"Creating the Register,Marks and Info tables"_s;
    const qsizetype count = m_answers.classes.size();
    qsizetype done = 0;
    for (const QString& code : m_answers.classes) {
        createPupilTable(m_database, code);
        m_progress.UpdateProgress(percentBuilt(++done, count), line);
    }
    done = 0;
    for (const QString& code : m_answers.classes) {
        createRegisterAndMarks(code);
        m_progress.UpdateProgress(percentBuilt(++done, count), line);
    }
}

void YearBuilder::createRegisterAndMarks(const QString& classCode) {
    const QList<Lesson> lessons =
        classLessons(m_days, m_letters, classPeriods(m_answers, classCode));
    if (exceedsRegister(lessons))
        warnOfLongRegister(m_prompts, classCode, lessons.size());
    ::createRegisterAndMarks(m_database, classCode, lessons);
}
