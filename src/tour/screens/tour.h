#pragma once

#include <QString>

class Session;
class MainWindow;

/// Plays the tour: makes the sample year in a folder, opens it, and leaves a picture of every
/// window there, `<name>.png`: of the frame with each tool window, of every page of the wizard, and
/// of a prompt of each kind. Answers false, with a sentence on standard error, when something
/// failed.
bool playTour(Session& session, MainWindow& frame, const QString& folder);
