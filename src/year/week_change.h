#pragma once

#include <QString>

class Session;

/// The change of the week allocations of the open year: from a week on, weeks A become weeks B and
/// the other way round.

/// How a change ended. Callers know the values by number.
enum WeekChange : qint16 {
    WeeksUnchanged = 0, ///< the year is as it was
    WeeksChanged = 1,
    WeeksHalfChanged = 2, ///< the sheets are changed, the registers lack the lessons from then on
};

/// Changes the letter, and with it the classes, of all planning sheets from the teaching week
/// `week` on, and the lessons in the registers of all classes. The plans of these sheets and the
/// marks of these lessons are lost.
///
/// No window may work on the year. The file is backed up first, and nothing is done where that
/// fails; it is closed, compacted and opened again on the way. What goes wrong is told. Where the
/// file could not be opened again the session has none, and the change is at most half done:
/// `OfferToFinishWeekChange` goes on with that.
WeekChange ReallocateWeeks(Session& session, short week);

/// Why the weeks can't be changed from one on; empty where they can. Raises what the engine raises.
QString faultOfWeekChange(const Session& session, short week);

/// For a year that came open, before its windows do: where a change of its weeks was broken off in
/// the middle, says what is missing and offers to finish it. Answers whether nothing is missing
/// now, as nothing is with no year open.
bool OfferToFinishWeekChange(Session& session);

/// The title of the boxes of a change.
QString weekChangeTitle();
