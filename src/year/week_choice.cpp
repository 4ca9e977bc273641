#include "year/week_choice.h"

#include "calendar/term_weeks.h"

using namespace Qt::StringLiterals;

QList<QDate> weekStarts(const dao::Database& database) {
    const QList<QDate> days = GetTermDays(database).days.mid(1);
    QList<QDate> starts;
    for (qsizetype i = 0; i < days.size(); ++i) {
        if (i == 0 || weekDifference(days[i - 1], days[i]) != 0)
            starts += days[i];
    }
    return starts;
}

QString weekStartText(QDate date, const QLocale& locale) {
    return locale.toString(date, u"dddd dd/MM/yyyy"_s);
}

QString weekChangeSummary(const dao::Database& database, short week) {
    const dao::Recordset sheets = database.OpenRecordset(
        u"SELECT * FROM Planning WHERE Week = %1 ORDER BY PlanDate"_s.arg(week),
        dao::RecordsetType::Snapshot);
    if (sheets.EOF_())
        return u"There is no planning sheet in this week."_s;
    const QString letter = sheets.Collect(u"ABWeek").toText();
    return u"The selected Week start date is currently a Week '%1'\n\n"
           "This week will be changed to a week '%2'\n"
           "following weeks will be changed in accordance."_s.arg(letter,
                                                                  letter == u"A" ? u"B"_s : u"A"_s);
}

QString load_Week_information(const dao::Database& database, short week) {
    return weekChangeSummary(database, week) +
           u"\n\nClick on [Finish >>] to continue with the database alterations or click on "
           "[Cancel] to abort."_s;
}

QString weekChangeExplanation() {
    return u"If your school breaks the turns of week A and week B, this wizard swaps the two from "
           u"a "
           "week that you choose to the end of the year: each week A becomes a week B, and each "
           "week B a week A.\n\n"
           "Your classes are entered into the planning sheets of these weeks by the other "
           "timetable, and the registers get the lessons that there are now.\n\n"
           "ALL PLANS OF THESE WEEKS WILL BE CLEARED: lessons, homework and notes. The marks in "
           "the registers from that week on are lost also. Earlier weeks stay as they are.\n\n"
           "A backup of the database is made first."_s;
}

QString weekChangeReport(const QString& weekStart) {
    return u"Week allocations have been changed from week %1 onwards.\n\n"
           "Daily/Weekly planning sheets and the Class registers have been changed "
           "respectively."_s.arg(weekStart);
}
