#pragma once

#include <QString>
#include <QStringList>

class Prompts;
class Settings;

/// The lists of the settings dialog that the teacher adds to.

/// Asks for a mark of the register and its meaning. Answers the row "L=Late"; empty where none was
/// given, or was refused, which is told.
QString askRegisterKey(Prompts& prompts, const QStringList& present);

/// The teacher's own titles of incidents, in their order. Adding and removing is kept at once.
QStringList incidentTitles(const Settings& settings);
/// Nothing for an empty text or a title that is there.
void addIncidentTitle(Settings& settings, const QString& title);
void removeIncidentTitle(Settings& settings, const QString& title);
