#pragma once

#include <QString>

class Session;
class mdiORVA;

/// Plays the tour: makes the sample year in a folder, opens it, and leaves a picture of every
/// window there, `<name>.png`. Answers false, with a sentence on standard error, when something
/// failed.
bool playTour(Session& session, mdiORVA& frame, const QString& folder);
