#pragma once

#include "core/class_colour.h"
#include "store/kept_row.h"

#include <QDate>
#include <QList>
#include <QString>

#include <optional>

class Session;

namespace dao {
class EngineError;
}

/// A lesson of the class in the week: one period of one sheet.
struct LessonSlot {
    QString caption;  ///< "Monday 09/Sep/2024 : Lesson 3"
    QString planDate; ///< "yy-mm-dd"
    QString lesson;   ///< rich text; empty for Null
    QString homework; ///< the same
    int record = 0;   ///< which row of the week, from 0
    int period = 0;   ///< in the row it was read from
};

/// What was typed in a slot's boxes, rich text; nothing for a box as it was read.
struct SlotTexts {
    std::optional<QString> lesson;
    std::optional<QString> homework;
};

/// The period that a caption names: its last character, one digit. Kept on purpose: a tenth period
/// reads as 0.
int captionPeriod(QStringView caption);
/// Whether a slot can be written back: not from period 10 on, which its caption can't tell.
bool isWritable(const LessonSlot& slot);

/// What stands beside a lesson that has become longer than the daily sheet can write back; empty
/// for others.
QString longLessonNotice(QStringView lesson);

/// A date as the list of weeks shows it: "Monday 09/09/2024".
QString weekEntry(QDate firstDay);

/// The two lines that stand where lessons would, for a class without any in the week.
inline const QString NoLessonsNotice =
    QStringLiteral("THERE ARE NO LESSONS \n\tFOR THIS CLASS THIS WEEK");

/// The lessons of one class over one teaching week, read from `Planning` and written back.
class WeeklySheets {
public:
    explicit WeeklySheets(Session& session) : m_session(session) {}

    /// Reads the weeks and the classes. Answers whether it could; a failure is told.
    bool load();
    /// The first teaching day of each teaching week; element i is of week i + 1.
    const QList<QDate>& weeks() const { return m_weeks; }
    const QList<ClassColour>& classes() const { return m_classes; }
    /// The element of `weeks` whose week holds today; 0 where none does.
    int currentWeek() const;

    /// Reads the lessons of a class in a week (an element of `weeks`). What was shown has to be
    /// written back before. Answers whether it could; a failure is told and leaves what was shown.
    /// Without a class, in a year that has none, there are no lessons.
    bool showWeek(int week, const QString& classCode);
    /// In the order of dates and periods. Empty for a class without lessons in the week.
    const QList<LessonSlot>& lessons() const { return m_slots; }
    /// Whether the week has sheets at all.
    bool hasSheets() const { return !m_records.isEmpty(); }
    /// "Week A", "Weekly Plan 3"; empty for a week without sheets. Kept on purpose: "Week " without
    /// a letter where the first sheet of the week has none.
    const QString& heading() const { return m_heading; }

    /// Writes what was typed, whole or not at all; texts of any length, unlike the daily sheet.
    /// `texts` has an element for
    /// each of `lessons`. What nobody typed in stays as it was read, and so does Null whose box is
    /// empty again. A row that was deleted meanwhile is put back with all that it held. Answers
    /// false where something could not be written, which is told once until a write succeeds.
    bool writeLessons(const QList<SlotTexts>& texts);

private:
    void readLessons(int record, const QString& classCode, QList<LessonSlot>& found) const;
    QList<KeptRow::Change> changesOf(const LessonSlot& slot, const SlotTexts& texts) const;

    Session& m_session;
    QList<QDate> m_weeks;
    QList<ClassColour> m_classes;
    QList<KeptRow> m_records; ///< a walk over the rows of the week for each, which stands on it
    QList<LessonSlot> m_slots;
    QString m_heading;
    ToldOnce m_failure;
};
