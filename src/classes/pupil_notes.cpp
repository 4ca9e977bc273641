#include "classes/pupil_notes.h"

#include "classes/class_settings.h"
#include "classes/pupil_sheet.h"
#include "classes/register_columns.h"
#include "classes/register_lessons.h"
#include "core/new_field.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"
#include "store/table_structure.h"

using namespace Qt::StringLiterals;

namespace {

dao::FieldCollection pupilFields(const dao::Database& database, const QString& classCode) {
    return database.TableDefs()[classTable(classCode)].Fields();
}

void showCategoryError(const dao::EngineError& error, Prompts& prompts) {
    if (!showNameRefused(prompts, error, u"category"_s, u"Category already exist"_s,
                         u"Invalid Category Name"_s))
        tellFailure(prompts, {u"Error Adding Notes Category", u"Error Number %2"}, error);
}

dao::Recordset openNote(const dao::Database& database, const LessonNotePlace& place) {
    return database.OpenRecordset(
        u"SELECT * FROM %1 WHERE LDate = %2 AND Lcode = %3 AND  Lpupil = %4;"_s.arg(
            LessonNotesTable, dao::writeText(place.date), dao::writeText(place.classCode),
            QString::number(place.pupil)));
}

} // namespace

void AddLessonNotesTable(const dao::Database& database) {
    if (!TableExists(database, LessonNotesTable))
        CreateLessonNotesTable(database);
}

QString noteField(const QString& category) {
    return NoteFieldPrefix + category;
}

QStringList noteCategories(const dao::Database& database, const QString& classCode) {
    QStringList categories;
    for (const dao::Field& field : pupilFields(database, classCode)) {
        if (field.Name.startsWith(NoteFieldPrefix))
            categories += field.Name.mid(NoteFieldPrefix.size());
    }
    return categories;
}

QString askNotesCategory(Prompts& prompts) {
    NewFieldRequest request;
    request.title = u"Create Notes Category"_s;
    request.text = u"Here you can create a Note Category ready to hold the data you want to enter "
                   "or import."_s;
    request.memoOnly = true;
    request.showCalendar = false;
    const std::optional<NewField> field = prompts.ReturnString(request);
    return field ? field->name : QString();
}

bool addNotesCategory(const dao::Database& database, const QString& classCode,
                      const QString& category, Prompts& prompts) {
    try {
        dao::Field field = dao::TableDef::CreateField(noteField(category), dao::DataType::Memo);
        field.AllowZeroLength = true;
        pupilFields(database, classCode).Append(field);
        return true;
    } catch (const dao::EngineError& error) {
        showCategoryError(error, prompts);
        return false;
    }
}

bool askDeleteCategory(const QString& category, Prompts& prompts) {
    return prompts.PlainBox(u"You are about to delete the whole category "_s + category +
                                u". All information for each student within this category will be "
                                "lost.\n\nAre you sure you wish to continue?"_s,
                            YesNoButtons | QuestionIcon | SecondButtonDefault,
                            u"Delete Category"_s) == AnswerYes;
}

bool deleteNotesCategory(const dao::Database& database, const QString& classCode,
                         const QString& category, Prompts& prompts) {
    return tryTelling(prompts, {u"Delete Category error", u"Error Number %2"},
                      [&] { pupilFields(database, classCode).Delete(noteField(category)); });
}

std::optional<LessonNotePlace> lessonNotePlace(const PupilSheet& sheet, const QString& classCode,
                                               int row, int column) {
    const std::optional<RegisterColumn> lesson = lessonAt(sheet, column);
    if (!lesson || row < 0 || row >= sheet.rowCount())
        return std::nullopt;
    return LessonNotePlace{registerDateText(lesson->date), classCode, sheet.pupil(row)};
}

QString lessonNote(const dao::Database& database, const LessonNotePlace& place) {
    if (!database.TableDefs().Contains(LessonNotesTable))
        return {};
    dao::Recordset record = openNote(database, place);
    const QString note = record.EOF_() ? QString() : record.Collect(u"Lnotes").toText();
    record.Close();
    return note;
}

void storeLessonNote(const dao::Database& database, const LessonNotePlace& place,
                     const QString& note) {
    if (lessonNote(database, place) == note)
        return;
    dao::Transaction transaction(database);
    if (!database.TableDefs().Contains(LessonNotesTable))
        CreateLessonNotesTable(database);
    dao::Recordset record = openNote(database, place);
    if (note.isEmpty()) {
        record.Delete();
    } else {
        if (record.EOF_()) {
            record.AddNew();
            record.SetCollect(u"Lcode", place.classCode);
            record.SetCollect(u"Ldate", place.date);
            record.SetCollect(u"Lpupil", place.pupil);
        } else {
            record.Edit();
        }
        record.SetCollect(u"Lnotes", note);
        record.Update();
    }
    record.Close();
    transaction.commit();
}

bool lessonNotesAreOff(const Settings& settings) {
    return settings.get(setting::DontUsePupilNotes);
}

QString lessonNotesOffText() {
    return u"Lesson notes have been turned off in the settings panel\n"_s;
}
