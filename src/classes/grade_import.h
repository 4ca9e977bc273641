#pragma once

#include "classes/class_views.h"
#include "classes/import_source.h"
#include "store/engine/database.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// Grades from spreadsheets and other years. They go to the pupils of the same name
/// (pupil_match.h); rows of nobody in the class are passed over. An import is one transaction: a
/// failure is told and leaves the grades as they were. There is no undo.
///
/// All imports REQUIRE that no recordset has `Marks_`C open, since they add columns.

/// A whole sheet, each of its columns into a new one: asks whether to, and for the file and the
/// columns. The row chosen is that of the titles, which are looked for in the columns A to Z.
bool confirmExcelSheet(Prompts& prompts);
std::optional<SheetSource> askExcelSheet(Session& session);
/// Titles that stand in row 1, surnames in column A and first names in B.
SpreadsheetChoice usualExcelSheetChoice();
/// Adds a column of text for each title up to the first empty one, but for those that there are
/// already, and fills it. A title that no column can have, one given twice and more columns than
/// there can be are refused before anything is changed. Answers the titles added; none where it
/// failed.
std::optional<QStringList> ImportExcelSheet(const dao::Database& database, const QString& classCode,
                                            const SheetSource& source, Prompts& prompts);

/// One column of a sheet into one that is there, whose grades are overwritten.
bool confirmSelectedColumn(const QString& title, Prompts& prompts);
std::optional<SheetSource> askSelectedColumn(Session& session, const QString& title);
/// Surnames in column A, first names in B and grades in C, from row 2 on.
SpreadsheetChoice usualSelectedColumnChoice();
/// `field` may be the pupils' `Tutor` too, which stands among the columns. Answers how many pupils
/// got their grade; none where it failed.
std::optional<int> importSelectedColumn(const dao::Database& database, const QString& classCode,
                                        const QString& field, const SheetSource& source,
                                        Prompts& prompts);
/// The box for an import into the selected column with none, or several, selected.
void showNoColumnToImport(Prompts& prompts);

/// The grades of a class of another year, as they were read.
struct ForeignGrades {
    struct Row {
        PupilName pupil;
        QList<dao::Value> grades; ///< as `columns`
    };
    QList<dao::Field> columns;
    QList<Row> rows; ///< by surname
};

bool confirmFromMDB(Prompts& prompts);
/// Asks whether to, and for the file and the class; reads its grades.
std::optional<ForeignGrades> askForeignGrades(Session& session);
/// None where they can't be read, which is told.
std::optional<ForeignGrades> readForeignGrades(const dao::Database& source,
                                               const QString& sourceClass, Prompts& prompts);
/// Adds the columns that the class lacks and copies the grades, over those that there are. Answers
/// the titles added; none where it failed.
std::optional<QStringList> ImportFromMDB(const dao::Database& database, const QString& classCode,
                                         const ForeignGrades& grades, Prompts& prompts);
