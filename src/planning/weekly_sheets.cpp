#include "planning/weekly_sheets.h"

#include "calendar/term_weeks.h"
#include "core/clock.h"
#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "planning/upkeep.h"
#include "store/engine/error.h"
#include "store/engine/names.h"

#include <QLocale>

#include <algorithm>
#include <functional>

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

QList<dao::Value> valuesOf(const dao::Recordset& record) {
    QList<dao::Value> values;
    for (int column = 0; column < record.FieldCount(); ++column)
        values += record.Collect(column);
    return values;
}

void setTexts(dao::Recordset& record, int period, const SlotTexts& texts) {
    record.SetCollect(fieldOf({SheetBox::Lesson, period}), texts.lesson);
    record.SetCollect(fieldOf({SheetBox::Homework, period}), texts.homework);
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

bool WeeklySheets::Show_Week(int week, const QString& classCode) {
    QList<Record> records;
    QList<LessonSlot> found;
    QString heading;
    records.swap(m_records);
    try {
        const dao::Recordset rows = m_session.CurrentDB.OpenRecordset(
            u"SELECT * FROM Planning WHERE Week = %1 ORDER BY PlanDate"_s.arg(week + 1));
        for (int i = 0; i < rows.RecordCount(); ++i) {
            dao::Recordset clone = rows.Clone();
            clone.SetAbsolutePosition(i);
            m_records += {clone, valuesOf(clone)};
            readLessons(i, classCode, found);
        }
        if (hasSheets())
            heading = m_session.TTweekly == 1
                          ? u"Week "_s + m_records.first().clone.Collect(u"ABWeek").toText()
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
    const dao::Recordset& row = m_records.at(record).clone;
    const QDate date = sheetDate(row.Collect(u"PlanDate").toText());
    for (int period = 1; period <= m_session.PeriodsPerDay; ++period) {
        if (classCode.isEmpty() ||
            dao::compareText(row.Collect(classField(period)).toText(), classCode) != 0)
            continue;
        found += {captionOf(date, period),
                  sheetDateText(date),
                  row.Collect(fieldOf({SheetBox::Lesson, period})).toText(),
                  row.Collect(fieldOf({SheetBox::Homework, period})).toText(),
                  record,
                  period};
    }
}

bool WeeklySheets::Update_Records(const QList<SlotTexts>& texts) {
    if (m_slots.isEmpty())
        return true;
    try {
        dao::Transaction transaction(m_session.CurrentDB);
        for (qsizetype i = m_slots.size(); i-- > 0;) {
            if (isWritable(m_slots.at(i)))
                writeSlot(m_slots.at(i), texts.at(i));
        }
        transaction.commit();
        m_failureTold = false;
        return true;
    } catch (const dao::EngineError& error) {
        for (Record& record : m_records) {
            if (record.clone.isOpen() && record.clone.EditMode() != dao::EditMode::None)
                record.clone.CancelUpdate();
        }
        if (std::none_of(texts.begin(), texts.end(), std::mem_fn(&SlotTexts::isChanged)))
            return true; // the file holds all that the boxes do
        if (!m_failureTold)
            tellFailure(m_session.GetSeams().prompts, lessonsUnsaved, error);
        m_failureTold = true;
        return false;
    }
}

void WeeklySheets::writeSlot(const LessonSlot& slot, const SlotTexts& texts) {
    Record& record = m_records[slot.record];
    try {
        record.clone.Edit();
        setTexts(record.clone, captionPeriod(slot.caption), texts);
        record.clone.Update();
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::RecordDeleted)
            throw;
        if (!texts.isChanged)
            return;
        putRowBack(record, slot, texts);
    }
    record.clone.SetBookmark(record.clone.Bookmark()); // reads the row anew
    record.row = valuesOf(record.clone);
}

/// The row's number comes back with it, so that its place in the recordset is good again.
void WeeklySheets::putRowBack(Record& record, const LessonSlot& slot,
                              const SlotTexts& texts) const {
    dao::Recordset again = record.clone.OpenRecordset();
    again.AddNew();
    for (int column = 0; column < record.row.size(); ++column) {
        if (!record.row.at(column).isNull())
            again.SetCollect(column, record.row.at(column));
    }
    setTexts(again, captionPeriod(slot.caption), texts);
    again.Update();
    again.Close();
}
