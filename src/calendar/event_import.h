#pragma once

#include <QString>

class Prompts;
class Session;

/// The calendar of events taken over from another year's file.

/// Asks whether it may overwrite the open year's; answers yes or no.
bool confirmEventImport(Prompts& prompts);

/// Copies the calendar of events of another file, a genuine Jet file too, over that of the open
/// year: record by record in the order of the tables, to the end of the shorter one, whole or not
/// at all. A record of the open year for a month that the copied ones do not have, outside the
/// academic year, is kept behind them. Asks for the password of a protected file. No recordset may
/// have the open year's table open.
///
/// Answers whether it was done, which the notices tell; where not, the person has been told why,
/// unless it was called off.
bool importEvents(Session& session, const QString& path);
