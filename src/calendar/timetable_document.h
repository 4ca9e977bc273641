#pragma once

#include "office/word_document.h"

/// Which weeks of a timetable of two weeks; of one week it is the first.
enum class TimetableWeeks { First, Second, Both };

/// The timetable as a document that lies across, a page each week. Answers whether it was made; a
/// refusal or a failure was told then.
bool CreateTimetableDocument(const Session& session, const DocumentPlace& place,
                             TimetableWeeks weeks);

/// Asks for the weeks, where the timetable has two, and makes the document.
bool ExportTimetable(const Session& session, const DocumentPlace& place);
