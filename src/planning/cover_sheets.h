#pragma once

#include "office/word_document.h"
#include "planning/planned_lessons.h"

/// The lessons of a day, without their texts, that can have a cover sheet: those of the year's
/// classes. What stands for a class on a sheet and is none is passed over. Raises what the engine
/// raises.
QList<PlannedLesson> coverLessons(const Session& session, QDate date);

/// The cover sheets of lessons, a page each: what to do, to be written by the teacher, beside the
/// class's register. Answers whether the document was made; a refusal or a failure was told then.
bool CreateCoverSheets(const Session& session, const DocumentPlace& place,
                       const QList<PlannedLesson>& lessons);

/// Asks for which lessons of the day, and makes their cover sheets. A day without lessons is
/// refused.
bool ExportCoverSheets(const Session& session, const DocumentPlace& place, QDate date);
