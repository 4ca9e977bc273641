#pragma once

#include "core/engine_failure.h"

class PupilGrid;
class PupilSheetModel;
class QMenu;

/// Adds "Undo" and "Redo" to the menu of a view with a grid, and their keys to the grid. The cell
/// that changes becomes the current one; a step of pupils who do not show is told, and not taken.
/// `failure` is the box for what the engine raises.
void addUndoEntries(QMenu& menu, PupilGrid& grid, PupilSheetModel& records, Prompts& prompts,
                    const FailureBox& failure);
