#pragma once

class MainWindow;
class Session;
class TourPictures;

/// Writes what a teacher might have planned on today's sheet of the sample year, which is made
/// where there is none. Raises what the engine raises.
void fillTodaysSheet(Session& session);

/// Writes what might be planned for the first class in the week of today and the one before.
void fillWeeks(Session& session);

/// Writes a short term plan for the first period of today's sheet. Raises what the engine raises.
void fillTodaysPlan(Session& session);

/// That plan, over the sheet.
void visitShortTermPlan(MainWindow& frame, TourPictures& pictures);
