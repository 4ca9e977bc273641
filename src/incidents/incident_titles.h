#pragma once

#include <QString>
#include <QStringList>

class Settings;

/// The titles that are offered for a report of an incident: the program's own seven, and those of
/// the teacher behind them. Adding and removing is kept at once.

/// The teacher's own titles, in their order.
QStringList ownIncidentTitles(const Settings& settings);
/// All of them.
QStringList incidentTitles(const Settings& settings);
/// Nothing for an empty text or a title that is there.
void addIncidentTitle(Settings& settings, const QString& title);
/// Removes one of the teacher's own.
void removeIncidentTitle(Settings& settings, const QString& title);
