#include "classes/register_lessons.h"

#include "classes/pupil_sheet.h"
#include "classes/register_keys.h"
#include "core/dates.h"
#include "core/prompts.h"
#include "core/typed_date.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A date must lie more than so many days ahead.
constexpr int TooNear = 1;

/// The first column that holds a lesson for which `fits` is true.
template<typename Condition>
std::optional<int> firstLesson(const PupilSheet& sheet, Condition fits) {
    for (int column = PupilSheet::FirstOwnColumn; column < sheet.columnCount(); ++column) {
        const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
        if (lesson && fits(*lesson))
            return column;
    }
    return std::nullopt;
}

int lessonCount(const PupilSheet& sheet) {
    return std::max(sheet.columnCount() - PupilSheet::FirstOwnColumn, 0);
}

bool isInAcademicYear(QDate date, const QString& academicYear) {
    const QString year = QString::number(date.year());
    return year == academicYear.left(4) || year == academicYear.right(4);
}

void showInvalidDate(Prompts& prompts, const QString& text) {
    prompts.PlainBox(text, OkButton | WarningIcon, u"Invalid Date"_s);
}

} // namespace

std::optional<RegisterColumn> lessonAt(const PupilSheet& sheet, int column) {
    if (column < PupilSheet::FirstOwnColumn || column >= sheet.columnCount())
        return std::nullopt;
    return readRegisterColumn(sheet.columns()[column]);
}

std::optional<int> currentLessonColumn(const PupilSheet& sheet, QDate today) {
    return firstLesson(sheet,
                       [today](const RegisterColumn& lesson) { return lesson.date >= today; });
}

int firstColumnInView(int currentColumn, int previousDates) {
    return std::max(currentColumn - previousDates, 0);
}

QString currentLessonText(const PupilSheet& sheet, QDate today) {
    const std::optional<int> next =
        firstLesson(sheet, [today](const RegisterColumn& lesson) { return lesson.date > today; });
    const int number = next ? lessonAt(sheet, *next)->number : 0;
    const int lessons = lessonCount(sheet);
    return u"%1 Pupils.\n%2 Total Lessons.\n%3 Remaining."_s.arg(sheet.rowCount())
        .arg(lessons)
        .arg(lessons - number);
}

std::optional<int> Attendance::percent() const {
    if (lessons == 0)
        return std::nullopt;
    const int hundredfold = (lessons - absent) * 100;
    const int whole = hundredfold / lessons;
    const int twiceTheRest = 2 * (hundredfold % lessons);
    const bool up = twiceTheRest > lessons || (twiceTheRest == lessons && whole % 2 == 1);
    return up ? whole + 1 : whole;
}

Attendance attendance(const PupilSheet& sheet, int row, QDate today) {
    Attendance result;
    for (int column = PupilSheet::FirstOwnColumn; column < sheet.columnCount(); ++column) {
        const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
        if (!lesson || lesson->date >= today)
            break;
        result.lessons = lesson->number;
        if (sheet.text(row, column) == AbsentMark)
            ++result.absent;
    }
    return result;
}

void showAttendance(const PupilSheet& sheet, int row, QDate today, Prompts& prompts) {
    const Attendance counts = attendance(sheet, row, today);
    QString text =
        sheet.text(row, PupilSheet::FirstnameColumn) + u' ' +
        sheet.text(row, PupilSheet::SurnameColumn) +
        u" has been absent %1 out of %2 lessons."_s.arg(counts.absent).arg(counts.lessons);
    if (const std::optional<int> percent = counts.percent())
        text += u"\n%1% attendance."_s.arg(*percent);
    prompts.PlainBox(text, OkButton | InformationIcon, u"Attendance"_s);
}

int lessonsRemaining(const PupilSheet& sheet, QDate today, QDate last) {
    int count = 0;
    for (int column = PupilSheet::FirstOwnColumn; column < sheet.columnCount(); ++column) {
        const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
        if (lesson && lesson->date >= today && lesson->date <= last)
            ++count;
    }
    return count;
}

void showLessonsRemaining(const PupilSheet& sheet, QDate today, const QString& academicYear,
                          const QLocale& locale, Prompts& prompts) {
    const QString format = typedDateFormat(locale);
    const QString typed = prompts.input_box(
        u"Select Date:\n\nTo calculate the lessons remaining from now until a specified date, ORVA "
        "requires a valid date for the accademic year "_s +
            academicYear + u" ,to be entered below:\n\nVALID DATE FORMAT : "_s + format,
        OkCancelButtons, u"Enter a valid date"_s);
    if (typed.isEmpty())
        return;
    const QDate last = typedDate(typed, locale);
    if (!last.isValid() || !isInAcademicYear(last, academicYear)) {
        showInvalidDate(prompts,
                        u"This date ("_s + typed +
                            u") is not a valid date within the accademic year "_s + academicYear +
                            u"\n\nPlease check it was entered in the correct format: "_s + format);
        return;
    }
    if (today.daysTo(last) <= TooNear) {
        showInvalidDate(prompts, u"This date has already past!"_s);
        return;
    }
    prompts.PlainBox(u"There are %1 lessons from now until the %2 (inclusive)."_s
                         .arg(lessonsRemaining(sheet, today, last))
                         .arg(locale.toString(last, u"dd MMM yyyy"_s)),
                     OkButton | InformationIcon, u"Lessons Remaining"_s);
}

std::optional<QDate> planningDate(const PupilSheet& sheet, int currentColumn,
                                  const QList<int>& selectedColumns) {
    const int column = selectedColumns.size() == 1 ? selectedColumns.first() : currentColumn;
    const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
    return lesson ? std::optional(lesson->date) : std::nullopt;
}

std::optional<int> lessonPeriod(const PupilSheet& sheet, int column, const ClassPeriods& periods,
                                QChar letter) {
    const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
    if (!lesson || !isSchoolWeekday(lesson->date))
        return std::nullopt;
    int place = 0;
    for (int before = column - 1;; --before, ++place) {
        const std::optional<RegisterColumn> earlier = lessonAt(sheet, before);
        if (!earlier || earlier->date != lesson->date)
            break;
    }
    const QString& digits =
        periods.week(letter)[static_cast<size_t>(weekdayOf(lesson->date) - Monday)];
    return place < digits.size() ? std::optional(digits[place].digitValue()) : std::nullopt;
}
