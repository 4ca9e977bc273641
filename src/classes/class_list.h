#pragma once

#include "core/class_colour.h"
#include "store/engine/database.h"

#include <QList>
#include <QString>

class Prompts;

/// The classes of a year, and what their tables need before the class window shows them.

/// Brings the tables of an older file up to date: `Photo` and `PID` in every table of pupils that
/// lacks them, and the spare table `Class_Temp`. Whole or not at all; does nothing to a file that
/// has everything. Raises what the engine raises. The class window does so each time it loads: a
/// class made a moment ago gets its `PID` there.
void UpdateClassTables(const dao::Database& database);

/// Where a class stands among those listed, for a window that is asked to open on it; -1 for a code
/// that is not there.
int classIndex(const QList<ClassColour>& classes, const QString& classCode);

/// The box of a year without any class; the class window then closes.
void showNoClasses(Prompts& prompts);
/// The box of a view that needs pupils, for a class without any.
void showNoPupils(Prompts& prompts, const QString& classCode);
