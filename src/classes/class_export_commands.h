#pragma once

#include "core/engine_failure.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class PupilSheet;
namespace dao {
class Database;
}
class Session;

/// What the class window's commands of export ask before and after a file is written
/// (class_exports.h): what is wanted of the pupils, where to, what to do with a file that is there
/// already, and whether to look at the new one. The records handed in stay where they are.

/// What can be exported of the pupils besides their names, in the order of the list.
struct DetailItem {
    QString caption;
    QString key; ///< how programs without windows name it
    QStringList fields;
};
const QList<DetailItem>& detailItems();
/// The SELECT of a class's names and these items. A field that the file has not got yet is left
/// out.
QString detailsSource(const dao::Database& year, const QString& classCode, const QList<int>& items);

/// The lines of the notes table: its titles, then the names and the plain text of each chosen
/// category for every pupil of the records. Raises what the engine raises.
QList<QStringList> notesTable(const Session& session, const QString& classCode,
                              const PupilSheet& records, const QStringList& categories);
/// The box where no category is chosen.
void showNoCategory(Prompts& prompts);

/// The SELECT of the lesson notes on a pupil, and the box where there are none.
QString lessonNotesSource(const QString& classCode, qint64 pupil);
void showNoLessonNotes(Prompts& prompts, const QString& name);

/// Whether a file may be written: where one stands already, whether it is to be replaced is asked.
bool mayOverwrite(const QString& file, Prompts& prompts);

/// Exports the class list with details that are asked for.
void Export_to_Excel(Session& session, const QString& classCode);
/// Exports the notes under these categories.
void NotesTOExcel(Session& session, const QString& classCode, const PupilSheet& records,
                  const QStringList& categories);
/// Exports the records of the grades view, with the columns that show.
void exportGradesView(Session& session, const PupilSheet& records,
                      const std::function<bool(int column)>& isVisible);
/// Exports the records of the register view.
void exportRegisterView(Session& session, const QString& classCode, const PupilSheet& records);
/// Exports the lesson notes on a pupil.
void exportNotesOfPupil(Session& session, const QString& classCode, qint64 pupil,
                        const QString& name);

/// The box for a failure while what is to be exported is read.
inline constexpr FailureBox ExportDataFailure{u"Export Data", u"%1\nError %2",
                                              OkButton | WarningIcon};
inline constexpr FailureBox ExportFailure{u"Export Error", u"%1\nError number %2",
                                          OkButton | WarningIcon};
