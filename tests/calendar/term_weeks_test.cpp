#include "calendar/term_weeks.h"

#include "support/year_file.h"

namespace {

QDate day(const char* iso) {
    return QDate::fromString(QLatin1String(iso), Qt::ISODate);
}

/// Dates in ISO form with blanks between.
QList<QDate> dates(const char* isos) {
    QList<QDate> result;
    for (const QString& iso : QString::fromLatin1(isos).split(u' ', Qt::SkipEmptyParts))
        result.append(QDate::fromString(iso, Qt::ISODate));
    return result;
}

TermDays termDays(const char* boundaries) {
    TermDays terms;
    terms.boundaries = dates(boundaries);
    terms.days = QList<QDate>{QDate()} + teachingDays(terms.boundaries);
    return terms;
}

TEST(Dates, TwoDigitYearsAndRollingParts) {
    const struct {
        int year, month, day;
        const char* expected;
    } cases[] = {
        {0, 1, 1, "2000-01-01"},     {79, 12, 31, "2079-12-31"},  {80, 1, 1, "1980-01-01"},
        {99, 12, 31, "1999-12-31"},  {2024, 2, 30, "2024-03-01"}, {2025, 2, 30, "2025-03-02"},
        {2024, 13, 1, "2025-01-01"}, {2024, 0, 15, "2023-12-15"}, {2024, 3, 0, "2024-02-29"},
        {2031, 5, 6, "2031-05-06"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(dateFromParts(each.year, each.month, each.day), day(each.expected))
            << each.expected;
    EXPECT_FALSE(dateFromParts(32767, 32767, 32767).isValid());
    EXPECT_FALSE(dateFromParts(-5, 1, 1).isValid());
}

TEST(Dates, SheetTextGoesThereAndBack) {
    for (const QDate date : dates("1980-01-01 1999-12-31 2000-01-03 2079-12-31 2024-02-29"))
        EXPECT_EQ(sheetDate(sheetDateText(date)), date);
    EXPECT_EQ(sheetDateText(day("2080-01-02")), u"80-01-02"_s);
    EXPECT_EQ(sheetDate(u"80-01-02"), day("1980-01-02"));
    for (const char16_t* text : {u"", u"24", u"yy-mm-dd", u"24-0x-01", u"--------"})
        EXPECT_FALSE(sheetDate(QStringView(text)).isValid());
}

TEST(Dates, WeeksRunFromSundayToSaturday) {
    const struct {
        const char* from;
        const char* to;
        int weeks;
    } cases[] = {
        {"2024-09-08", "2024-09-14", 0},  {"2024-09-07", "2024-09-08", 1},
        {"2024-09-08", "2024-09-07", -1}, {"2024-09-06", "2024-09-23", 3},
        {"1999-12-31", "2000-01-02", 1},  {"2029-12-31", "2030-01-05", 0},
        {"2024-09-14", "2024-09-08", 0},
    };
    for (const auto& each : cases)
        EXPECT_EQ(weekDifference(day(each.from), day(each.to)), each.weeks) << each.from;
    EXPECT_EQ(weekdayOf(day("2024-09-08")), Sunday);
    EXPECT_EQ(weekdayOf(day("2024-09-14")), Saturday);
    EXPECT_EQ(DayName(1), u"Sunday"_s);
    EXPECT_EQ(DayName(7), u"Saturday"_s);
    EXPECT_TRUE(DayName(0).isEmpty() && DayName(8).isEmpty());
    EXPECT_EQ(MonthName(2, QLocale(QLocale::German)), u"Februar"_s);
}

TEST(TermWeeks, TeachingDaysNumbersAndLetters) {
    const struct {
        const char* what;
        const char* boundaries;
        const char* days;
        QList<short> weeks;
        const char* letters;
    } cases[] = {
        {"a one-day term and the next in a later week",
         "2024-09-04 2024-09-04 2024-09-23 2024-09-23",
         "2024-09-04 2024-09-23",
         {1, 2},
         "AB"},
        {"a term from Saturday to Sunday",
         "2024-09-07 2024-09-15",
         "2024-09-09 2024-09-10 2024-09-11 2024-09-12 2024-09-13",
         {1, 1, 1, 1, 1},
         "AAAAA"},
        {"two terms in a week",
         "2024-09-09 2024-09-09 2024-09-13 2024-09-16",
         "2024-09-09 2024-09-13 2024-09-16",
         {1, 1, 2},
         "AAB"},
        {"Christmas changes the letter once",
         "1999-12-16 1999-12-17 2000-01-06 2000-01-10",
         "1999-12-16 1999-12-17 2000-01-06 2000-01-07 2000-01-10",
         {1, 1, 2, 2, 3},
         "AABBA"},
        {"into 2030",
         "2029-12-28 2030-01-01",
         "2029-12-28 2029-12-31 2030-01-01",
         {1, 2, 2},
         "ABB"},
        {"a term begun on the last one's end",
         "2024-09-09 2024-09-10 2024-09-10 2024-09-10",
         "2024-09-09 2024-09-10 2024-09-10",
         {1, 1, 1},
         "AAA"},
        {"one that ends before it starts, and a date without its fellow",
         "2024-09-10 2024-09-09 2024-09-12",
         "",
         {},
         ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const QList<QDate> days = teachingDays(dates(each.boundaries));
        EXPECT_EQ(days, dates(each.days));
        EXPECT_EQ(weekNumbers(days), each.weeks);
        QString letters;
        QString lettersByNumber;
        for (const QChar letter : weekLetters(days, u'A'))
            letters += letter;
        for (const short week : weekNumbers(days))
            lettersByNumber += weekLetter(week, u'A');
        EXPECT_EQ(letters, QLatin1String(each.letters));
        EXPECT_EQ(lettersByNumber, QLatin1String(each.letters));
    }
}

TEST(TermWeeks, NumberOfAnyDatesWeek) {
    const TermDays terms =
        termDays("2024-09-04 2024-09-06 2024-09-10 2024-09-12 2024-09-30 2024-10-02");
    const struct {
        const char* what;
        const char* date;
        short week;
    } cases[] = {
        {"before the first week", "2024-08-31", -1},
        {"the Sunday of the first week", "2024-09-01", 1},
        {"the first day", "2024-09-04", 1},
        {"the Saturday of a teaching week", "2024-09-07", 1},
        {"a Sunday in front of teaching days", "2024-09-08", 2},
        {"a free Monday in a teaching week", "2024-09-09", 2},
        {"a free Friday behind the last day of its week", "2024-09-13", 2},
        {"a week without teaching days", "2024-09-18", -1},
        {"a Sunday in front of such a week", "2024-09-15", -1},
        {"the last day", "2024-10-02", 3},
        {"the day behind the last one, in its week", "2024-10-03", -1},
    };
    for (const auto& each : cases)
        EXPECT_EQ(GetWeekNumber(terms, day(each.date)), each.week) << each.what;
    EXPECT_EQ(GetWeekNumber(termDays(""), day("2024-09-04")), -1);
}

TEST(TermWeeks, TimetableOfAWeek) {
    const struct {
        int twoWeekly;
        const char* startWeek;
        int week;
        const char* letter;
    } cases[] = {
        {1, "A", 1, "A"}, {1, "A", 2, "B"}, {1, "B", 1, "B"}, {1, "B", 2, "A"}, {1, "A", -1, "A"},
        {0, "B", 2, "A"}, {0, "", 1, "A"},  {1, "", 1, ""},   {1, "b", 1, ""},  {2, "B", 1, "A"},
    };
    for (const auto& each : cases) {
        const std::optional<QChar> letter =
            timetableLetter(each.twoWeekly, QLatin1String(each.startWeek), each.week);
        EXPECT_EQ(letter ? QString(*letter) : QString(), QLatin1String(each.letter))
            << each.startWeek << each.week;
    }
    EXPECT_EQ(timetableField(Monday, u'A'), u"Mon"_s);
    EXPECT_EQ(timetableField(day("2024-09-13"), u'B'), u"FriB"_s);
    EXPECT_TRUE(timetableField(day("2024-09-14"), u'A').isEmpty());
}

TEST(TermWeeks, HolidaysRunToDay30OfTheLastMonth) {
    const struct {
        const char* what;
        const char* boundaries;
        const char* first;
        const char* last;
    } cases[] = {
        {"31 days: the 31st is left out", "2024-09-04 2025-01-10", "2024-09-02", "2025-01-30"},
        {"February runs into March", "2024-09-02 2025-02-10", "2025-02-11", "2025-02-28"},
        {"February of a leap year, to 1 March", "2023-09-01 2024-02-12", "2024-02-13",
         "2024-03-01"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        const QList<QDate> holidays = FillHolsArray(termDays(each.boundaries));
        ASSERT_FALSE(holidays.isEmpty());
        EXPECT_EQ(holidays.first(), day(each.first));
        EXPECT_EQ(holidays.last(), day(each.last));
        for (const QDate holiday : holidays)
            EXPECT_TRUE(isSchoolWeekday(holiday));
    }
    EXPECT_TRUE(FillHolsArray(termDays("")).isEmpty());
}

TEST(TermWeeks, ReadFromAFile) {
    YearFile file(twoWeekAnswers());
    const dao::Database database = file.open();
    const TermDays terms = GetTermDays(database);
    ASSERT_EQ(terms.boundaries.size(), file.answers().terms.size() * 2);
    EXPECT_EQ(terms.boundaries.first(), file.answers().terms.first().first);
    EXPECT_EQ(terms.days.first(), QDate());
    EXPECT_EQ(terms.days.mid(1), teachingDays(terms.boundaries));
    EXPECT_EQ(GetWeekNumber(database, terms.days.at(1)), 1);
}

TEST(TermWeeks, LetterOfTheCurrentWeek) {
    YearFile file(twoWeekAnswers()); // 4 to 13 September from week B on, then 23 to 27 September
    const dao::Database database = file.open();
    const struct {
        const char* what;
        const char* today;
        const char* letter;
    } cases[] = {
        {"a teaching day", "2024-09-04", "B"},
        {"its weekend: the next sheet", "2024-09-07", "A"},
        {"a holiday", "2024-09-17", "B"},
        {"before the year", "2023-10-01", "B"},
        {"behind the last sheet", "2024-11-02", "B"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(IsWeek2(database, day(each.today)), QLatin1String(each.letter)) << each.what;
    YearFile single(oneWeekAnswers());
    EXPECT_TRUE(IsWeek2(single.open(), day("2024-09-04")).isEmpty());
}

} // namespace
