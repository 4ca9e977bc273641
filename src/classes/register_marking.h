#pragma once

#include "classes/pupil_sheet_model.h"
#include "core/engine_failure.h"

#include <QRect>
#include <QString>

#include <optional>

/// How marks get into a register, each to the disk at once.

/// The column that a mark in `column` is copied to: the next one, when it is the same day's and the
/// class has exactly two periods on that weekday, one straight after the other. Only week A's
/// periods are looked at: odd, and kept. Raises what the engine raises.
std::optional<int> doubleLessonColumn(const dao::Database& database, const QString& classCode,
                                      const PupilSheet& sheet, int column);

/// Writes a mark into a pupil's lesson, and into the next one of a double lesson. Raises what the
/// engine raises; nothing is then changed.
void enterMark(const dao::Database& database, const QString& classCode, PupilSheetModel& model,
               int row, int column, const QString& mark);

/// Whether a text fits a register's cell: at most one character. If not it is told below the cell,
/// which stands there on the screen, and the cell keeps what it had.
bool checkMarkText(const QString& text, const QRect& cell, Prompts& prompts);

/// What "Fill Register" does.
enum class RegisterFill {
    Present, ///< "/" where nothing stands
    Absent,  ///< "O" where nothing stands
    ClearAll ///< nothing anywhere
};
/// Whether the items of "Fill Register" can be used: on a lesson, not on `Tutor`.
bool canFill(int column);
/// Fills the column of a lesson for all pupils shown, all or none of them. Raises what the engine
/// raises. REQUIRES: canFill(column).
void fillRegister(PupilSheetModel& model, int column, RegisterFill what);

/// The boxes for a failure of the engine while a cell is stored and while a key is handled.
inline constexpr FailureBox ColumnUpdateFailure{u"Column Update Error", u"Err number %2",
                                                OkButton | WarningIcon};
inline constexpr FailureBox KeyPressFailure{
    u"KeyPress error", u"Error %1\nPlease report error number %2 to the author.",
    OkButton | WarningIcon};
