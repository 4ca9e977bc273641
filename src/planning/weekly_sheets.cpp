#include "planning/weekly_sheets.h"

#include "calendar/class_colours.h"
#include "calendar/term_weeks.h"
#include "core/clock.h"
#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "planning/sheet_fields.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/row_binding.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Three letters of the month, whatever the language.
QString captionOf(QDate date, int period) {
    const QLocale locale;
    return locale.dayName(date.dayOfWeek()) + date.toString(u" dd/"_s) +
           MonthName(date.month(), locale).left(3) + date.toString(u"/yyyy"_s) +
           u" : Lesson %1"_s.arg(period);
}

QList<QDate> firstDays(const QList<QDate>& days) {
    QList<QDate> first;
    for (qsizetype i = 1; i < days.size(); ++i) {
        if (i == 1 || weekDifference(days[i - 1], days[i]) != 0)
            first += days[i];
    }
    return first;
}

QString textOf(const KeptRow& row, QStringView field) {
    return row.value(row.columnOf(field)).toText();
}

bool isTyped(const SlotTexts& texts) {
    return texts.lesson || texts.homework;
}

constexpr FailureBox weeksUnread{
    u"Weekly Plan Error",
    u"The weeks and classes could not be read.\n\nError : %1\nError number %2"};
constexpr FailureBox lessonsUnread{
    u"Weekly Plan Error",
    u"The lessons of the week could not be read.\n\nError : %1\nError number %2"};
constexpr FailureBox lessonsUnsaved{
    u"Weekly Plan Error",
    u"The lessons of the week could not be saved.\n\nError : %1\nError number %2"};

} // namespace

int captionPeriod(QStringView caption) {
    return caption.isEmpty() ? 0 : caption.last(1).toInt();
}

bool isWritable(const LessonSlot& slot) {
    return captionPeriod(slot.caption) == slot.period;
}

QString longLessonNotice(QStringView lesson) {
    if (lesson.size() <= LargestBoundText)
        return {};
    const QLocale locale;
    return u"Saved, but the daily planning sheet cannot save changes to it: %1 characters with the "
           "formatting, and %2 can be saved there."_s.arg(locale.toString(lesson.size()),
                                                          locale.toString(LargestBoundText));
}

QString weekEntry(QDate firstDay) {
    return QLocale().dayName(firstDay.dayOfWeek()) + firstDay.toString(u" dd/MM/yyyy"_s);
}

bool WeeklySheets::load() {
    try {
        m_weeks = firstDays(GetTermDays(m_session.CurrentDB).days);
        m_classes = readClasses(m_session.CurrentDB);
        return true;
    } catch (const dao::EngineError& error) {
        tellFailure(m_session.GetSeams().prompts, weeksUnread, error);
        return false;
    }
}

int WeeklySheets::currentWeek() const {
    const QDate today = m_session.GetSeams().clock.today();
    const auto found = std::find_if(m_weeks.begin(), m_weeks.end(), [today](QDate first) {
        return weekDifference(first, today) == 0;
    });
    return found == m_weeks.end() ? 0 : static_cast<int>(found - m_weeks.begin());
}

bool WeeklySheets::showWeek(int week, const QString& classCode) {
    QList<KeptRow> records;
    QList<LessonSlot> found;
    QString heading;
    records.swap(m_records);
    try {
        const dao::Recordset rows = m_session.CurrentDB.OpenRecordset(
            u"SELECT * FROM Planning WHERE Week = %1 ORDER BY PlanDate"_s.arg(week + 1));
        for (int i = 0; i < rows.RecordCount(); ++i) {
            dao::Recordset clone = rows.Clone();
            clone.SetAbsolutePosition(i);
            m_records += KeptRow(clone);
            m_records.last().read();
            readLessons(i, classCode, found);
        }
        if (hasSheets())
            heading = m_session.TTweekly == 1 ? u"Week "_s + textOf(m_records.first(), u"ABWeek")
                                              : u"Weekly Plan %1"_s.arg(week + 1);
    } catch (const dao::EngineError& error) {
        m_records = records;
        tellFailure(m_session.GetSeams().prompts, lessonsUnread, error);
        return false;
    }
    m_slots = found;
    m_heading = heading;
    return true;
}

void WeeklySheets::readLessons(int record, const QString& classCode,
                               QList<LessonSlot>& found) const {
    const KeptRow& row = m_records.at(record);
    const QDate date = sheetDate(textOf(row, u"PlanDate"));
    for (int period = 1; period <= m_session.PeriodsPerDay; ++period) {
        if (classCode.isEmpty() ||
            dao::compareText(textOf(row, classField(period)), classCode) != 0)
            continue;
        found += {captionOf(date, period),
                  sheetDateText(date),
                  textOf(row, fieldOf({SheetBox::Lesson, period})),
                  textOf(row, fieldOf({SheetBox::Homework, period})),
                  record,
                  period};
    }
}

bool WeeklySheets::writeLessons(const QList<SlotTexts>& texts) {
    if (std::none_of(texts.begin(), texts.end(), isTyped))
        return true;
    const QList<KeptRow> before = m_records;
    try {
        dao::Transaction transaction(m_session.CurrentDB);
        for (qsizetype i = 0; i < m_slots.size(); ++i) {
            const QList<KeptRow::Change> changes = changesOf(m_slots.at(i), texts.at(i));
            if (!changes.isEmpty())
                m_records[m_slots.at(i).record].write(changes);
        }
        transaction.commit();
        m_failure.reset();
        return true;
    } catch (const dao::EngineError& error) {
        m_records = before;
        if (m_failure.first())
            tellFailure(m_session.GetSeams().prompts, lessonsUnsaved, error);
        return false;
    }
}

QList<KeptRow::Change> WeeklySheets::changesOf(const LessonSlot& slot,
                                               const SlotTexts& texts) const {
    QList<KeptRow::Change> changes;
    const auto add = [&](SheetBox box, const std::optional<QString>& text) {
        const KeptRow& row = m_records.at(slot.record);
        const int column = row.columnOf(fieldOf({box, captionPeriod(slot.caption)}));
        if (text && !(row.value(column).isNull() && text->isEmpty()))
            changes += {column, *text};
    };
    if (isWritable(slot)) {
        add(SheetBox::Lesson, texts.lesson);
        add(SheetBox::Homework, texts.homework);
    }
    return changes;
}
