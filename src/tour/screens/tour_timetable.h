#pragma once

class Session;

/// Gives the open sample year what a teacher adds to the timetable: rooms, what happens in the free
/// periods, and the breaks. Raises what the engine raises.
void fillTimetable(Session& session);
