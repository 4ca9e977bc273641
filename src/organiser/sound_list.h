#pragma once

#include <QStringList>

class Settings;

/// The sounds that a reminder is offered, by the paths of their wave files.

inline constexpr int MostKeptSounds = 10;

/// Those that were chosen before, the last first, then those that the desktop's list of recently
/// used files (recently-used.xbel) names, the newest first. Only files that are there, each once.
QStringList ReminderSounds(const Settings& settings, const QString& recentlyUsed);
/// The desktop's list of this person.
QString recentlyUsedFile();
/// Keeps a sound that was chosen.
void NoteReminderSound(Settings& settings, const QString& path);
