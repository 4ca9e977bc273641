#pragma once

class Session;

/// Writes what a teacher might have planned on today's sheet of the sample year, which is made
/// where there is none. Raises what the engine raises.
void fillTodaysSheet(Session& session);

/// Writes what might be planned for the first class in the week of today and the one before.
void fillWeeks(Session& session);
