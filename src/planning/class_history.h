#pragma once

#include <QList>
#include <QString>

class Session;

/// One lesson of a class: a period of a sheet that has the class.
struct HistoryEntry {
    QString planDate; ///< "yy-mm-dd"
    QString lesson;   ///< rich text; empty for Null
    QString homework; ///< the same
};

/// What a class has done so far and is to do: its lessons in the order of dates and periods. Two
/// periods on a day are two entries of the same date.
using ClassHistory = QList<HistoryEntry>;

/// Reads the history of a class from the sheets of the open year. They hold the code as text, so
/// that it is none of a class whose code was changed since. Empty for an empty code. Raises what
/// the engine raises.
ClassHistory LoadClassHistory(const Session& session, const QString& classCode);

/// The viewer's list runs the other way round: its entry k, from 0, is the k-th newest lesson.
const HistoryEntry& listEntry(const ClassHistory& history, qsizetype k);
/// How it names a lesson: "   Sep 09 2024 --- Monday".
QString listText(const HistoryEntry& entry);
/// The place in the list that is selected at first: the lesson before the one on the daily sheet
/// (`Session::CurrentDate`), failing that this one, failing that the newest. Of several lessons on
/// that day the first one counts.
qsizetype previousLesson(const Session& session, const ClassHistory& history);
/// The viewer's title, with the place in the list counted from 1.
QString historyTitle(const QString& classCode, qsizetype place, qsizetype count);
