#pragma once

class Session;

/// Writes what a school has in a month into today's page of the calendar of events. Raises what the
/// engine raises.
void fillEvents(Session& session);
