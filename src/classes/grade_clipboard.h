#pragma once

#include "classes/pupil_sheet_model.h"

#include <QLocale>

class Prompts;

/// The grades as text for the clipboard and from it, as spreadsheets write a table: a line a pupil,
/// with tabs between the cells. A cell that holds a tab or a line break, or begins with a double
/// quote, stands in double quotes, those inside doubled.

/// "Copy student names": a line a pupil, first name before surname.
QString studentNames(const PupilSheet& sheet);
/// The box behind "Copy All data".
void showDataCopied(Prompts& prompts);
/// "Copy All data": the fields' names, then a line a pupil. The names are taken, and the columns
/// that `isVisible` says. A line ends behind the sheet's last field: where that is not taken the
/// lines run on, odd and kept.
QString allData(const PupilSheet& sheet, const std::function<bool(int column)>& isVisible);
/// Some cells alone; without a line end where it is one line.
QString cellsText(const PupilSheet& sheet, const QList<int>& rows, const QList<int>& columns);

/// The cells of a table that was copied, line by line. A quote that is never closed is one of the
/// text.
QList<QStringList> readTable(const QString& text);
/// Puts a table into the grades of the pupils from `firstRow` on, into as many of `columns` as it
/// has. All of it or nothing: where it is larger than the place for it, or a cell does not fit its
/// column, that is told.
void pasteGrades(PupilSheetModel& model, int firstRow, const QList<int>& columns,
                 const QList<QStringList>& table, const QLocale& locale, Prompts& prompts);
