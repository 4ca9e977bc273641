#pragma once

#include "classes/export_steps.h"

#include <QList>
#include <QStringList>

class PupilSheet;
namespace dao {
class Database;
class Recordset;
} // namespace dao

/// The writers that leave class data as workbooks. Each answers whether the file is there, and has
/// told why where it is not (export_steps.h).

/// The class list with details: every field of the records but `ID`, under the fields' names.
bool exportClassDetails(const PupilSheet& records, const ExportTarget& target);

/// A table of notes: the first line of texts is its titles.
bool exportNotesTable(const QList<QStringList>& lines, const ExportTarget& target);

/// The grades: the names, then the columns that `isVisible` says; `ID` is left out.
bool exportGrades(const PupilSheet& records, const std::function<bool(int column)>& isVisible,
                  const ExportTarget& target);

/// The lesson notes on one pupil, whose name stands above them. `records` are of `Lesson_Notes`.
bool exportLessonNotes(dao::Recordset records, const QString& pupil, const ExportTarget& target);

/// The register, a sheet a term, with the lessons of the term. A lesson that lies in no term is on
/// no sheet. `classCode` stands at the head of the pages.
bool exportRegister(const dao::Database& database, const PupilSheet& records,
                    const QString& classCode, const ExportTarget& target);
