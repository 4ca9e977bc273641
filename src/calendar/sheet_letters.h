#pragma once

#include "store/engine/database.h"

#include <QChar>
#include <QHash>

/// The letters of the teaching weeks, by their numbers, as the planning sheets have them. Once
/// weeks have been changed they no longer follow from the first week's, so the sheets are asked
/// first.
///
/// A week has the letter of most of its sheets: one that was added by hand may have none, or none
/// of its week's. A week whose sheets have no letter is left out; all are in a year with one
/// timetable. Raises what the engine raises.
QHash<int, QChar> sheetLetters(const dao::Database& database);
