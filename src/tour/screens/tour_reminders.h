#pragma once

class MainWindow;
class Session;
class TourPictures;

/// Writes the reminders of a teacher's week into the open year. Raises what the engine raises.
void fillReminders(Session& session);
/// The panel in which a reminder is written, and a reminder on the screen.
void visitReminders(Session& session, MainWindow& frame, TourPictures& pictures);
