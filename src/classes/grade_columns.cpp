#include "classes/grade_columns.h"

#include "classes/register_columns.h"
#include "classes/register_keys.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString AbsentGrade = u"ABS"_s;

dao::FieldCollection gradeFields(const dao::Database& database, const QString& classCode) {
    return database.TableDefs()[marksTable(classCode)].Fields();
}

/// The first lesson of a date in a class's register; empty where there is none.
QString firstLessonField(const dao::Database& database, const QString& classCode, QDate date) {
    if (!date.isValid() || !database.TableDefs().Contains(registerTable(classCode)))
        return {};
    for (const dao::Field& field : database.TableDefs()[registerTable(classCode)].Fields()) {
        const std::optional<RegisterColumn> lesson = readRegisterColumn(field.Name);
        if (lesson && lesson->date == date)
            return field.Name;
    }
    return {};
}

bool holdsAbsentGrade(const NewField& field) {
    return field.type == dao::DataType::Memo ||
           (field.type == dao::DataType::Text && field.size >= AbsentGrade.size());
}

/// Gives those who were absent on the day of the work their "ABS".
void markAbsentees(const dao::Database& database, const QString& classCode, const NewField& field) {
    const QString lesson = firstLessonField(database, classCode, field.date);
    if (lesson.isEmpty() || !holdsAbsentGrade(field))
        return;
    dao::Recordset absentees = database.OpenRecordset(
        u"SELECT %1.%3 FROM %1 INNER JOIN %2 ON %1.ID = %2.ID WHERE %2.%4 = %5"_s.arg(
            dao::writeName(marksTable(classCode)), dao::writeName(registerTable(classCode)),
            dao::writeName(field.name), dao::writeName(lesson), dao::writeText(AbsentMark)));
    for (; !absentees.EOF_(); absentees.MoveNext()) {
        absentees.Edit();
        absentees.SetCollect(0, AbsentGrade);
        absentees.Update();
    }
    absentees.Close();
}

/// What a column for numbers takes, in words.
QString takenBy(dao::DataType type) {
    switch (type) {
    case dao::DataType::Byte:
        return u"whole numbers from 0 to 255"_s;
    case dao::DataType::Integer:
        return u"whole numbers from -32,768 to 32,767"_s;
    case dao::DataType::Long:
        return u"whole numbers from -2,147,483,648 to 2,147,483,647"_s;
    default:
        return u"numbers"_s;
    }
}

void showGradeError(const dao::EngineError& error, Prompts& prompts) {
    const QString title = u"Grade Error"_s;
    if (!showNameRefused(prompts, error, u"column"_s, title, u"Invalid Characters"_s))
        tellFailure(prompts, {title, u"Error %1\nError number : %2"}, error);
}

} // namespace

ColumnCommands gradeColumnCommands(const QList<int>& selected, const QList<int>& shownGrades) {
    ColumnCommands can;
    if (selected.isEmpty())
        return can;
    const bool isTutorAlone = selected == QList<int>{PupilSheet::TutorColumn};
    can.remove = can.hide = !isTutorAlone;
    if (selected.size() > 1)
        return can;
    const int column = selected.first();
    can.importInto = true;
    can.rename = column >= PupilSheet::FirstOwnColumn;
    can.moveLeft = shownGrades.isEmpty() || column != shownGrades.first();
    can.moveRight = shownGrades.isEmpty() || column != shownGrades.last();
    return can;
}

std::optional<NewField> askGradeColumn(Prompts& prompts) {
    NewFieldRequest request;
    request.title = u"Create New Field"_s;
    request.text = u"Here you can create a new data field ready to hold the data you want to enter "
                   "or import."_s;
    request.label = u"If this field is a grades column, enter the date that the work was set:"_s;
    return prompts.ReturnString(request);
}

bool addGradeColumn(const dao::Database& database, const QString& classCode, const NewField& field,
                    Prompts& prompts) {
    try {
        if (isPupilField(field.name))
            throw dao::EngineError(dao::FieldExists, field.name);
        dao::Transaction transaction(database);
        dao::Field made = dao::TableDef::CreateField(field.name, field.type, field.size);
        made.AllowZeroLength = dao::isTextual(field.type);
        gradeFields(database, classCode).Append(made);
        markAbsentees(database, classCode, field);
        transaction.commit();
        return true;
    } catch (const dao::EngineError& error) {
        showGradeError(error, prompts);
        return false;
    }
}

/// A column of the same name would make every SELECT of grades with their pupils ambiguous.
bool isPupilField(const QString& name) {
    const QStringList fields{u"Surname"_s, u"Firstname"_s, u"Tutor"_s};
    return std::any_of(fields.begin(), fields.end(),
                       [&name](const QString& field) { return dao::sameName(field, name); });
}

std::optional<MoveDirection> moveDirection(const QString& text) {
    if (text.toUpper() == u"LEFT")
        return MoveDirection::Left;
    if (text.toUpper() == u"RIGHT")
        return MoveDirection::Right;
    return std::nullopt;
}

bool MoveColumn(const dao::Database& database, const QString& classCode, const QString& field,
                MoveDirection direction, const QStringList& hidden) {
    try {
        dao::FieldCollection fields = gradeFields(database, classCode);
        if (!fields.Contains(field))
            return false;
        const int step = direction == MoveDirection::Left ? -1 : 1;
        int target = fields[field].OrdinalPosition + step;
        const auto isThere = [&] { return target >= 1 && target < fields.Count(); }; // behind ID
        while (isThere() && hidden.contains(fields[target].Name))
            target += step;
        if (!isThere())
            return false;
        fields.SetOrdinalPosition(field, target);
        return true;
    } catch (const dao::EngineError&) {
        return false;
    }
}

QString askColumnTitle(const QString& title, Prompts& prompts) {
    NewFieldRequest request;
    request.title = u"Rename Column"_s;
    request.text = u"Here you can rename the selected column:\n"_s + title;
    request.label = u"Change the title of the selected column below:"_s;
    request.name = title;
    request.showTypes = false;
    request.showCalendar = false;
    const std::optional<NewField> field = prompts.ReturnString(request);
    return field ? field->name : QString();
}

bool renameGradeColumn(const dao::Database& database, const QString& classCode,
                       const QString& field, const QString& title) {
    if (isPupilField(title))
        return false;
    try {
        gradeFields(database, classCode).Rename(field, title);
        return true;
    } catch (const dao::EngineError&) {
        return false;
    }
}

QStringList askRemoveColumns(const QStringList& selected, Prompts& prompts) {
    const QString title = u"Remove Grades"_s;
    QStringList columns;
    for (auto field = selected.rbegin(); field != selected.rend(); ++field) {
        if (*field != u"Tutor" && *field != u"ID")
            columns += *field;
    }
    if (columns.isEmpty()) {
        prompts.PlainBox(u"You must select the whole of a column (or columns) to remove by "
                         "clicking on the title."_s,
                         OkButton, title);
        return {};
    }
    const PromptAnswer answer = prompts.PlainBox(
        u"Are you sure you want to remove these Grades column(s) : "_s + columns.join(u", "_s),
        YesNoButtons | QuestionIcon | SecondButtonDefault, title);
    return answer == AnswerYes ? columns : QStringList();
}

bool removeGradeColumns(const dao::Database& database, const QString& classCode,
                        const QStringList& fields, Prompts& prompts) {
    try {
        dao::Transaction transaction(database);
        for (const QString& field : fields)
            gradeFields(database, classCode).Delete(field);
        transaction.commit();
        return true;
    } catch (const dao::EngineError& error) {
        showGradeError(error, prompts);
        return false;
    }
}

RowChange gradeChange(const PupilSheet& sheet, int row, int column, const QString& text,
                      const QLocale& locale) {
    if (text == sheet.text(row, column))
        return {row, {}};
    const dao::DataType type = sheet.records().Fields(column).Type();
    return {row, {{column, gradeValue(text, type, locale)}}};
}

dao::Value gradeValue(const QString& text, dao::DataType type, const QLocale& locale) {
    if (dao::isTextual(type))
        return text;
    return text.isEmpty() ? dao::Value()
                          : dao::Value(QString(text).replace(locale.decimalPoint(), u"."_s));
}

void tellGradeRefused(Prompts& prompts, const dao::EngineError& error, dao::DataType type) {
    FailureBox box = AfterUpdateFailure;
    QString text = box.text.toString();
    if (error.number() == dao::ConversionError)
        text.prepend(u"This column takes %1.\n"_s.arg(takenBy(type)));
    box.text = text;
    tellFailure(prompts, box, error);
}

void showNothingToHide(Prompts& prompts) {
    prompts.PlainBox(u"You must select a column or columns to Hide\n"
                     "Please select a column by clicking on the column heading."_s,
                     OkButton, u"Hide Column(s)"_s);
}
