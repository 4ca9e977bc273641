#pragma once

#include <QString>

class Session;

/// What becomes of a year whose file was moved, deleted or replaced by another program while it was
/// open. Its content is there as long as the program has it open, and nothing can be written any
/// more until it has a file with a name again.

/// Whether that has happened to the year that is open; with none open it has not.
bool HasMoved(const Session& session);

/// Tells it and offers to save the year as another file, where the work then goes on. What fails is
/// told, and another place asked for.
void TellMovedYear(Session& session);

/// The same before the year is left. Answers whether it may be: the year has a file, or the person
/// gives up what no other program has kept.
bool MayLeaveMovedYear(Session& session);
