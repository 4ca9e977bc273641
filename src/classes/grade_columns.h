#pragma once

#include "classes/pupil_sheet.h"
#include "core/engine_failure.h"
#include "core/new_field.h"
#include "store/engine/database.h"

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>

/// The columns of a class's grades: fields of `Marks_`C, in their order, behind `ID`. A column's
/// title is the field's name.
///
/// All changes REQUIRE that no recordset has `Marks_`C open, since the engine refuses to change the
/// structure of a table in use (3211).

/// What can be done to the columns that are selected.
struct ColumnCommands {
    bool remove = false;
    bool rename = false;
    bool moveLeft = false;
    bool moveRight = false;
    bool hide = false;
    bool importInto = false;

    bool operator==(const ColumnCommands&) const = default;
};
/// The grid's columns, from left to right: those selected, and those of grades that show.
ColumnCommands gradeColumnCommands(const QList<int>& selected, const QList<int>& shownGrades);

/// Asks for a new column; none when it was cancelled.
std::optional<NewField> askGradeColumn(Prompts& prompts);
/// Adds a column, last. In one for text, pupils who were absent from the first lesson of the date
/// that the work was set get "ABS". Whole or not at all; a failure is told. Answers whether the
/// column is there.
bool addGradeColumn(const dao::Database& database, const QString& classCode, const NewField& field,
                    Prompts& prompts);

/// Whether a field of this name stands beside the grades wherever they are read: no column of
/// theirs can have it.
bool isPupilField(const QString& name);

enum class MoveDirection { Left, Right };
/// "LEFT" and "RIGHT" in any case.
std::optional<MoveDirection> moveDirection(const QString& text);
/// Moves a column past its neighbour, and past those that are hidden before it. Nothing for a field
/// that is none of the grades', at the ends, and where it fails. Answers whether it moved.
bool MoveColumn(const dao::Database& database, const QString& classCode, const QString& field,
                MoveDirection direction, const QStringList& hidden = {});

/// Asks for another title of a column; empty when it was cancelled.
QString askColumnTitle(const QString& title, Prompts& prompts);
/// Gives a column another title. A title that is taken or can't be one leaves the old one, without
/// a word. Answers whether it has changed.
bool renameGradeColumn(const dao::Database& database, const QString& classCode,
                       const QString& field, const QString& title);

/// Asks whether to remove columns, by their titles, the last selected first; `Tutor` and `ID` are
/// no columns of the grades. Answers those to remove: none when declined or nothing is selected,
/// which is told.
QStringList askRemoveColumns(const QStringList& selected, Prompts& prompts);
/// Removes columns with all grades in them, all or none. A failure is told. Answers whether they
/// are gone.
bool removeGradeColumns(const dao::Database& database, const QString& classCode,
                        const QStringList& fields, Prompts& prompts);

/// What a cell of this type holds for a text that was typed: a number with the decimal point of
/// `locale` is one, nothing at all is Null where the column is for numbers.
dao::Value gradeValue(const QString& text, dao::DataType type, const QLocale& locale);
/// What a text that was typed changes in a cell: nothing where it stands there already.
RowChange gradeChange(const PupilSheet& sheet, int row, int column, const QString& text,
                      const QLocale& locale);

/// The box for "Hide the selected Column(s)" with none selected.
void showNothingToHide(Prompts& prompts);
/// Tells that a column of this type did not take what was typed, and what it takes.
void tellGradeRefused(Prompts& prompts, const dao::EngineError& error, dao::DataType type);
/// The box for a failure while a grade is stored.
inline constexpr FailureBox AfterUpdateFailure{u"After Update Error", u"%1\nError Number %2",
                                               OkButton | WarningIcon};
