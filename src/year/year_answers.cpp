#include "year/year_answers.h"

#include "calendar/term_weeks.h"
#include "classes/class_code.h"
#include "classes/class_tables.h"
#include "store/schema.h"
#include "store/table_names.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

AnswerCheck fault(const QString& field, const QString& title, const QString& text) {
    return AnswerFault{field, title, text};
}

QString indexed(const QString& list, qsizetype index) {
    return u"%1[%2]"_s.arg(list).arg(index);
}

bool hasControlCharacter(const QString& text) {
    return std::any_of(text.begin(), text.end(),
                       [](QChar each) { return each.category() == QChar::Other_Control; });
}

AnswerCheck checkPlainText(const QString& field, const QString& text, const QString& title) {
    if (!hasControlCharacter(text))
        return std::nullopt;
    return fault(field, title, u"A line break or control character can't stand here."_s);
}

AnswerCheck checkName(const YearAnswers& answers) {
    const QString field = u"name"_s;
    const QString title = u"Invalid Name"_s;
    if (answers.name.trimmed().isEmpty())
        return fault(field, title, u"You must enter a name for the Teacher"_s);
    const int size = schemaField(Table::Admin, u"Teacher").Size;
    if (teacherText(answers).size() > size)
        return fault(field, title,
                     u"The title and the name may be at most %1 characters long, the "
                     "blank between them included."_s.arg(size));
    return checkPlainText(field, answers.name, title);
}

AnswerCheck checkYear(const QString& year) {
    static const QRegularExpression shape(u"^[0-9]{4}-[0-9]{4}\\z"_s);
    if (shape.match(year).hasMatch() && year.right(4).toInt() == year.left(4).toInt() + 1)
        return std::nullopt;
    return fault(u"year"_s, u"Academic year error"_s,
                 u"The academic year must be two years with a hyphen between, such "
                 "as 2026-2027."_s);
}

AnswerCheck checkPeriods(int periods) {
    if (periods >= 1 && periods <= MaximumPeriods)
        return std::nullopt;
    return fault(u"periodsPerDay"_s, u"Periods per day"_s,
                 u"There must be 1 to %1 periods in a day."_s.arg(MaximumPeriods));
}

/// The two dates of a period as a message shows them.
QString periodText(const DatePeriod& term, const QLocale& locale) {
    return locale.toString(term.first, QLocale::ShortFormat) + u'\t' +
           locale.toString(term.last, QLocale::ShortFormat);
}

AnswerCheck checkTimetable(const YearAnswers& answers, QChar letter) {
    const QString title = u"Timetable"_s;
    const WeekTimetable& week = answers.week(letter);
    for (size_t day = 0; day < size_t(DaysOfTimetable); ++day) {
        const QString field = u"timetable.%1.%2"_s.arg(letter).arg(
            timetableField(static_cast<int>(day) + Monday, u'A'));
        if (week[day].size() > answers.periodsPerDay)
            return fault(field, title,
                         u"There are only %1 periods in a day."_s.arg(answers.periodsPerDay));
        for (qsizetype period = 0; period < week[day].size(); ++period) {
            const QString& code = week[day][period];
            if (!code.isEmpty() && !answers.classes.contains(code))
                return fault(indexed(field, period), title,
                             u"There is no class \"%1\"."_s.arg(code));
        }
    }
    return std::nullopt;
}

/// A date that can be rebuilt from its parts: one with a year of two digits would come back as
/// another.
bool isCalendarDate(QDate date) {
    return date.isValid() && dateFromParts(date.year(), date.month(), date.day()) == date;
}

AnswerCheck checkOverlaps(const QList<DatePeriod>& terms, const QLocale& locale) {
    for (qsizetype i = 1; i < terms.size(); ++i) {
        // A period may start on the very day on which the one before it ended.
        if (terms[i - 1].last.daysTo(terms[i].first) >= 0)
            continue;
        return fault(indexed(u"terms"_s, i), u"Period overlap"_s,
                     u"The end of the period "_s + periodText(terms[i - 1], locale) +
                         u" preceeds the start of the period "_s + periodText(terms[i], locale));
    }
    return std::nullopt;
}

AnswerCheck checkSpan(const QList<DatePeriod>& terms) {
    const QDate first = terms.first().first;
    const QDate sameDayNextYear = dateFromParts(first.year() + 1, first.month(), first.day());
    if (terms.last().last < sameDayNextYear)
        return std::nullopt;
    return fault(u"terms"_s, u"Academic year error"_s,
                 u"The overal teaching period cannot span more than one year!"_s);
}

AnswerCheck checkTeachingDays(const QList<DatePeriod>& terms) {
    QList<QDate> boundaries;
    for (const DatePeriod& term : terms)
        boundaries << term.first << term.last;
    if (!teachingDays(boundaries).isEmpty())
        return std::nullopt;
    return fault(u"terms"_s, u"Invalid Teaching period"_s,
                 u"There is no day from Monday to Friday in any teaching period."_s);
}

AnswerCheck checkColours(const YearAnswers& answers) {
    for (const QString& code : answers.colours.keys())
        if (!answers.classes.contains(code))
            return fault(u"colours."_s + code, u"Classcodes"_s,
                         u"There is no class \"%1\"."_s.arg(code));
    return std::nullopt;
}

} // namespace

QString teacherText(const YearAnswers& answers) {
    return answers.title + u' ' + answers.name;
}

QString classAt(const WeekTimetable& week, int weekday, int period) {
    return week[static_cast<size_t>(weekday)].value(period - 1);
}

AnswerCheck checkTerm(const DatePeriod& term) {
    const QString field = u"terms"_s;
    if (!isCalendarDate(term.first) || !isCalendarDate(term.last))
        return fault(field, u"Invalid entry"_s,
                     u"You must include a valid date for the start and the end of "
                     "each teaching period."_s);
    if (term.last < term.first)
        return fault(field, u"Invalid Teaching period"_s,
                     u"The date for end of this teaching period, preceeds the "
                     "starting date.  \nPlease check the term dates carefully."_s);
    return std::nullopt;
}

AnswerCheck checkTeacher(const YearAnswers& answers) {
    if (AnswerCheck found = checkPlainText(u"title"_s, answers.title, u"Invalid Name"_s))
        return found;
    if (AnswerCheck found = checkName(answers))
        return found;
    if (AnswerCheck found = checkYear(answers.year))
        return found;
    return checkPeriods(answers.periodsPerDay);
}

AnswerCheck checkClasses(const YearAnswers& answers) {
    if (answers.classes.isEmpty())
        return fault(u"classes"_s, u"Classcodes"_s, u"You must enter at least one classcode!"_s);
    QStringList inUse;
    for (const QString& code : answers.classes) {
        if (AnswerCheck found = checkClassCode(code, inUse)) {
            found->text = u"\"%1\": "_s.arg(code) + found->text;
            return found;
        }
        inUse.append(code);
    }
    return checkColours(answers);
}

AnswerCheck checkTimetables(const YearAnswers& answers) {
    if (AnswerCheck found = checkTimetable(answers, u'A'))
        return found;
    return answers.twoWeeks ? checkTimetable(answers, u'B') : std::nullopt;
}

AnswerCheck checkTerms(const YearAnswers& answers, const QLocale& locale) {
    if (answers.terms.isEmpty())
        return checkTerm({});
    for (qsizetype i = 0; i < answers.terms.size(); ++i) {
        if (AnswerCheck found = checkTerm(answers.terms[i])) {
            found->field = indexed(found->field, i);
            return found;
        }
    }
    if (AnswerCheck found = checkOverlaps(answers.terms, locale))
        return found;
    if (AnswerCheck found = checkSpan(answers.terms))
        return found;
    return checkTeachingDays(answers.terms);
}

AnswerCheck checkStartWeek(const YearAnswers& answers) {
    const bool isLetter =
        answers.startWeek == QLatin1String("A") || answers.startWeek == QLatin1String("B");
    if (!answers.twoWeeks || isLetter)
        return std::nullopt;
    return fault(u"startWeek"_s, u"Timetable"_s, u"The first week must have timetable A or B."_s);
}

AnswerCheck checkAnswers(const YearAnswers& answers, const QLocale& locale) {
    if (AnswerCheck found = checkTeacher(answers))
        return found;
    if (AnswerCheck found = checkClasses(answers))
        return found;
    if (AnswerCheck found = checkTimetables(answers))
        return found;
    if (AnswerCheck found = checkTerms(answers, locale))
        return found;
    return checkStartWeek(answers);
}
