#pragma once

#include "core/engine_failure.h"
#include "store/engine/database.h"

#include <QString>
#include <QStringList>

#include <optional>

class PupilSheet;
class Settings;

/// The notes on pupils: note categories, rich text in a memo field of `Class_`C each, and lesson
/// notes, plain text by pupil and day in `Lesson_Notes`.

/// The field of a category.
QString noteField(const QString& category);
/// A class's categories, in the order of their fields. Raises what the engine raises.
QStringList noteCategories(const dao::Database& database, const QString& classCode);

/// Asks for a new category; empty when it was cancelled.
QString askNotesCategory(Prompts& prompts);
/// Adds a category; a failure is told. Answers whether it is there. REQUIRES, as the next, that no
/// recordset has `Class_`C open: the engine refuses to change the structure of a table in use.
bool addNotesCategory(const dao::Database& database, const QString& classCode,
                      const QString& category, Prompts& prompts);
bool askDeleteCategory(const QString& category, Prompts& prompts);
/// Deletes a category with the notes of all pupils in it; a failure is told. Answers whether it is
/// gone.
bool deleteNotesCategory(const dao::Database& database, const QString& classCode,
                         const QString& category, Prompts& prompts);
/// The box for a failure while a category is shown.
inline constexpr FailureBox BindNotesFailure{u"Bind Notes Error", u"Error numnber %2",
                                             OkButton | WarningIcon};

/// Makes `Lesson_Notes` in an older file that lacks it. Raises what the engine raises.
void AddLessonNotesTable(const dao::Database& database);

/// What a lesson note is for. Two lessons of one day have one note.
struct LessonNotePlace {
    QString date; ///< dd/mm/yy, as the register's column has it
    QString classCode;
    qint64 pupil = 0;

    bool operator==(const LessonNotePlace&) const = default;
};
/// The place of a register's cell; none where that is no lesson.
std::optional<LessonNotePlace> lessonNotePlace(const PupilSheet& sheet, const QString& classCode,
                                               int row, int column);
/// The note of a place; empty where there is none. Raises what the engine raises, as the next.
QString lessonNote(const dao::Database& database, const LessonNotePlace& place);
/// Keeps a note where it has changed; an empty one is deleted.
void storeLessonNote(const dao::Database& database, const LessonNotePlace& place,
                     const QString& note);
/// Whether the teacher has turned lesson notes off, and what their frame then says.
bool lessonNotesAreOff(const Settings& settings);
QString lessonNotesOffText();
/// The box for a failure while a lesson note is read or kept.
inline constexpr FailureBox GetNotesFailure{u"Get Notes Error",
                                            u"An error occurred whilst getting pupil notes for "
                                            u"this lesson:\nThe error is %1\nError Number %2",
                                            OkButton | WarningIcon};
