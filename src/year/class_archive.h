#pragma once

#include "store/engine/database.h"
#include "year/backup_files.h"

#include <QString>
#include <QStringList>

class Session;

/// The archive of a class: a year's file of its own, that is a copy of the open one without the
/// other classes. Their registers, grades, notes and seating plans are not in it, nor in what is
/// left over of a deletion; the sheets, the calendar of events, the incident reports and all else
/// that the classes share are.
///
/// It is built beside its place and takes its name when it is whole. Whatever ends the work, that
/// name stands for what it stood for before or for the whole archive, and the year is as it was.

/// The codes of the year's classes, in the order of their table. Raises what the engine raises.
QStringList Load_data(const dao::Database& year);

/// Makes the archive of a class of the open year at a path, over any file there; the archive has
/// the year's password, and its backup 1 is the archive before its compaction. Answers whether it
/// is made; what goes wrong is told. No window may work on the year: it is closed on the way, and
/// open again afterwards, or the session has none, which is told.
bool ArchiveClass(Session& session, const QString& classCode, const QString& target);

/// The same, and asks what to go on with, once it is made: the archive, which then is the session's
/// year, or the year.
bool Archive_NOW(Session& session, const QString& classCode, const QString& target);

/// For the start of the program: removes what is left of an archive where making it was cut off.
void RemoveInterruptedArchive(const BackupContext& context);

/// What the window says of itself, and its question when it is given up.
QString archiveExplanation();
bool asksToCancelArchive(Prompts& prompts);
