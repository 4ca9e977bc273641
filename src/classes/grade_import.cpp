#include "classes/grade_import.h"

#include "classes/grade_columns.h"
#include "classes/import_texts.h"
#include "classes/pupil_match.h"
#include "core/password_retry.h"
#include "core/session.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QFileInfo>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

const QString GradeImportTitle = u"Import Data"_s;
constexpr FailureBox SheetImportFailure{u"Import Data Error - Excel Sheet", u"%1\nError number: %2",
                                        OkButton | WarningIcon};
constexpr FailureBox ColumnImportFailure{u"Import Data Error", u"%1\nError number: %2",
                                         OkButton | WarningIcon};
constexpr FailureBox YearImportFailure{u"Import MDB Data Error ", u"%1\nError number: %2",
                                       OkButton | WarningIcon};

enum SheetColumn { GradeSurname, GradeFirstname, GradeData };

/// A column of a sheet, and the field that it goes into.
struct TitledColumn {
    int column;
    dao::Field field;
};

/// Which row of a source each pupil's grades come from, by his `ID`: of several the last.
using RowsOfPupils = QHash<qint64, int>;

/// What a row holds for a field, by its place among those written, and what the row is called: by
/// itself and at the start of a sentence.
struct GradeSource {
    std::function<dao::Value(int row, qsizetype field)> value;
    std::function<QString(int row)> place;
    QString sentence; ///< %1 is the place
};

dao::Value valueFor(const dao::Field& field, const dao::Value& value, const QString& place,
                    ImportTexts& texts) {
    const bool isForNumbers = value.isText() && !dao::isTextual(field.Type);
    return isForNumbers ? gradeValue(value.toText(), field.Type, QLocale())
                        : texts.fitted(value, field, place);
}

void writeRow(dao::Recordset& records, const QList<dao::Field>& fields, int row,
              const GradeSource& source, ImportTexts& texts) {
    const QString place = source.place(row);
    records.Edit();
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const dao::Value value = valueFor(fields.at(i), source.value(row, i), place, texts);
        try {
            records.SetCollect(static_cast<int>(i) + 1, value);
        } catch (const dao::EngineError& error) {
            throw dao::EngineError(error.number(),
                                   source.sentence.arg(place) + error.description());
        }
    }
    records.Update();
}

/// Answers how many pupils got their grades.
int writeGrades(const dao::Database& database, const QString& table,
                const QList<dao::Field>& fields, const RowsOfPupils& rows,
                const GradeSource& source, ImportTexts& texts) {
    if (fields.isEmpty())
        return 0;
    QString names = u"ID"_s;
    for (const dao::Field& field : fields)
        names += u',' + dao::writeName(field.Name);
    dao::Recordset records =
        database.OpenRecordset(u"SELECT %1 FROM %2"_s.arg(names, dao::writeName(table)));
    int written = 0;
    for (; !records.EOF_(); records.MoveNext()) {
        const auto row = rows.constFind(records.Collect(0).toInteger());
        if (row == rows.constEnd())
            continue;
        writeRow(records, fields, *row, source, texts);
        ++written;
    }
    records.Close();
    return written;
}

/// The rows of a sheet's list, from `first` on, by the pupils whose names stand there.
RowsOfPupils rowsOfPupils(const ImportSheet& sheet, int first, const PupilMatch& pupils) {
    RowsOfPupils rows;
    const int end = sheet.endOfList(first);
    for (int row = first; row < end; ++row) {
        const PupilName name{sheet.cell(row, GradeSurname), sheet.cell(row, GradeFirstname)};
        if (const std::optional<qint64> pupil = pupils.find(name))
            rows[*pupil] = row;
    }
    return rows;
}

GradeSource sourceInSheet(const std::function<dao::Value(int row, qsizetype field)>& value) {
    return {value, [](int row) { return QString::number(row + 1); }, u"Row %1: "_s};
}

/// A title as it is compared: accents may be composed in one file and decomposed in another.
bool sameTitle(const QString& a, const QString& b) {
    return dao::sameName(a.normalized(QString::NormalizationForm_C),
                         b.normalized(QString::NormalizationForm_C));
}

std::optional<dao::Field> gradeField(const dao::FieldCollection& fields, const QString& title) {
    const auto found = std::find_if(fields.begin(), fields.end(), [&title](const auto& field) {
        return sameTitle(field.Name, title);
    });
    return found == fields.end() ? std::nullopt : std::optional(*found);
}

QString quotedTitles(const QStringList& titles) {
    return u'"' + titles.join(u"\", \""_s) + u'"';
}

/// Raises what is wrong with the titles of columns to come, before any of them is made.
void checkTitles(const QStringList& titles, int present) {
    QStringList invalid;
    QStringList doubled;
    for (qsizetype i = 0; i < titles.size(); ++i) {
        try {
            dao::checkName(titles.at(i));
        } catch (const dao::EngineError&) {
            invalid += titles.at(i);
        }
        const bool wasThere =
            std::any_of(titles.begin(), titles.begin() + i,
                        [&](const QString& each) { return sameTitle(each, titles.at(i)); });
        if (wasThere && !doubled.contains(titles.at(i)))
            doubled += titles.at(i);
    }
    if (!invalid.isEmpty())
        throw dao::EngineError(
            dao::InvalidName,
            u"No column can have these titles: %1\nA title cannot start with a space, cannot "
            "include a period, an exclamation mark or a line break and must not be longer than 64 "
            "characters."_s.arg(quotedTitles(invalid)));
    if (!doubled.isEmpty())
        throw dao::EngineError(dao::FieldExists, u"These titles are given more than once: "_s +
                                                     quotedTitles(doubled));
    if (present + titles.size() > dao::MaximumFields)
        throw dao::EngineError(
            dao::TooManyFields,
            u"There are %1 new columns, but the class has room for %2 more."_s.arg(titles.size())
                .arg(dao::MaximumFields - present));
}

void addColumns(const dao::Database& database, const QString& classCode,
                const QList<dao::Field>& columns) {
    dao::FieldCollection fields = database.TableDefs()[marksTable(classCode)].Fields();
    QStringList titles;
    for (const dao::Field& column : columns)
        titles += column.Name;
    checkTitles(titles, fields.Count());
    if (!columns.isEmpty())
        fields.SetAll(QList<dao::Field>(fields.begin(), fields.end()) + columns);
}

/// The titled columns of a sheet that the class does not have yet.
QList<TitledColumn> newColumns(const ImportSheet& sheet, const dao::FieldCollection& fields) {
    constexpr int textSize = 255;
    static const int end = columnOfLetters(u"Z") + 1;
    QList<TitledColumn> columns;
    for (int column = 0; column < end; ++column) {
        if (column == sheet.column(GradeSurname) || column == sheet.column(GradeFirstname))
            continue;
        const QString title = sheet.sheet().cell(sheet.firstRow(), column);
        if (title.isEmpty())
            break;
        if (isPupilField(title) || gradeField(fields, title))
            continue;
        dao::Field field = dao::TableDef::CreateField(title, dao::DataType::Text, textSize);
        field.AllowZeroLength = true;
        columns.append({column, field});
    }
    return columns;
}

QList<dao::Field> fieldsOf(const QList<TitledColumn>& columns) {
    QList<dao::Field> fields;
    for (const TitledColumn& each : columns)
        fields += each.field;
    return fields;
}

QString askSheetFile(Session& session) {
    const QString file = askImportFile(
        session, u"Please select the Excel file that contains your class list and data:"_s,
        sheetFilter());
    return isSheetFile(file) ? file : QString();
}

/// What both imports of sheets ask for.
std::optional<SheetSource> askSheetChoice(const QString& file, const SpreadsheetChoice& usual,
                                          SpreadsheetRequest request, Prompts& prompts) {
    request.title = u"Importing from Excel"_s;
    request.label = u"Preview of "_s + QFileInfo(file).fileName();
    request.workbook = file;
    request.columns = usual.columns;
    request.columnChoices = columnsUpTo(u"BZ");
    request.row = usual.row;
    const std::optional<SpreadsheetChoice> choice = prompts.ReturnString(request);
    return choice ? std::optional(SheetSource{file, *choice}) : std::nullopt;
}

/// Where the grades of another year go.
struct GradeTargets {
    QList<dao::Field> fields; ///< for each of its columns
    QList<dao::Field> added;  ///< those of them that the class lacks
};

GradeTargets targetsOf(const ForeignGrades& grades, const dao::FieldCollection& present) {
    GradeTargets targets;
    for (const dao::Field& column : grades.columns) {
        dao::Field field = dao::TableDef::CreateField(column.Name, column.Type, column.Size);
        field.AllowZeroLength = dao::isTextual(field.Type);
        const std::optional<dao::Field> there = gradeField(present, column.Name);
        if (!there)
            targets.added += field;
        targets.fields += there.value_or(field);
    }
    return targets;
}

RowsOfPupils rowsOfPupils(const ForeignGrades& grades, const PupilMatch& pupils) {
    RowsOfPupils rows;
    for (int row = 0; row < grades.rows.size(); ++row) {
        if (const std::optional<qint64> pupil = pupils.find(grades.rows.at(row).pupil))
            rows[*pupil] = row;
    }
    return rows;
}

QString nameInWords(const PupilName& pupil) {
    return pupil.firstname + u' ' + pupil.surname;
}

} // namespace

bool confirmExcelSheet(Prompts& prompts) {
    const QString text =
        u"You have selected to import data from an Excel sheet.\n"
        "If you continue ORVA will attempt to create a new column for each column that exists in "
        "the excel file. The column titles must be different to the columns that already exist in "
        "ORVA otherwise the data will not be added so that existing ORVA data is not "
        "overwritten.\n"
        "When collecting data from the excel sheet ie column titles and pupil names, ORVA stops "
        "scanning when it finds an empty cell. for this reason please make sure that your excel "
        "sheet contains all pupil names and column data progressively so that there are no empty "
        "rows/columns in the column titles and Pupil Name rows.\n"
        "Both Surname and Forname of the pupil in the excel sheet MUST correspond to a "
        "surname/firstname in ORVA for their corresponding data to be added, however they do not "
        "need to be in the same position or case.\n"
        "Do you wish to continue?"_s;
    return prompts.msg_Box(text, YesNoButtons | QuestionIcon, GradeImportTitle) == AnswerYes;
}

SpreadsheetChoice usualExcelSheetChoice() {
    return {.row = 1, .columns = {u"A"_s, u"B"_s}};
}

std::optional<SheetSource> askExcelSheet(Session& session) {
    Prompts& prompts = session.GetSeams().prompts;
    const QString file = confirmExcelSheet(prompts) ? askSheetFile(session) : QString();
    if (file.isEmpty())
        return std::nullopt;
    SpreadsheetRequest request;
    request.text =
        u"By default ORVA tries to import Surnames from Column A and First names from Column B. It "
        "also expects to find the first record in the Row that follows the Column Titles (normally "
        "Row 1).\nYou may change these import settings if needed:"_s;
    request.columnLabels = {u"Surnames are located in Column:"_s,
                            u"Firstnames are located in Column:"_s};
    request.rowLabel = u"Row where titles of Columns can be found:"_s;
    return askSheetChoice(file, usualExcelSheetChoice(), request, prompts);
}

std::optional<QStringList> ImportExcelSheet(const dao::Database& database, const QString& classCode,
                                            const SheetSource& source, Prompts& prompts) {
    const std::optional<ImportSheet> sheet = openImportSheet(source, prompts);
    if (!sheet)
        return std::nullopt;
    QStringList titles;
    ImportTexts texts;
    const bool isDone = tryImporting(prompts, SheetImportFailure, [&] {
        dao::Transaction transaction(database); // from here on, to lock the file once
        const QList<TitledColumn> columns =
            newColumns(*sheet, database.TableDefs()[marksTable(classCode)].Fields());
        const QList<dao::Field> fields = fieldsOf(columns);
        const RowsOfPupils rows =
            rowsOfPupils(*sheet, sheet->firstRow() + 1, PupilMatch(database, classCode));
        const GradeSource grades = sourceInSheet([&](int row, qsizetype field) {
            return sheet->sheet().cell(row, columns.at(field).column);
        });
        addColumns(database, classCode, fields);
        writeGrades(database, marksTable(classCode), fields, rows, grades, texts);
        transaction.commit();
        for (const dao::Field& field : fields)
            titles += field.Name;
    });
    if (!isDone)
        return std::nullopt;
    texts.tellCut(prompts, GradeImportTitle, SheetRows);
    return titles;
}

bool confirmSelectedColumn(const QString& title, Prompts& prompts) {
    const QString text =
        u"You have selected to import data from an Excel file into the column '"_s + title +
        u" '\n"
        "If you continue with this action any data aready in this column will be overwritten!\n"
        "Do you wish to continue?"_s;
    return prompts.msg_Box(text, YesNoButtons | WarningIcon | SecondButtonDefault,
                           GradeImportTitle) == AnswerYes;
}

SpreadsheetChoice usualSelectedColumnChoice() {
    return {.row = 2, .columns = {u"A"_s, u"B"_s, u"C"_s}};
}

std::optional<SheetSource> askSelectedColumn(Session& session, const QString& title) {
    Prompts& prompts = session.GetSeams().prompts;
    const QString file = confirmSelectedColumn(title, prompts) ? askSheetFile(session) : QString();
    if (file.isEmpty())
        return std::nullopt;
    SpreadsheetRequest request;
    request.text =
        u"By default ORVA tries to import Surnames from Column A and First names from Column B. It "
        "also expects to find the first record at Row 2.\n"
        "You may change these import settings if needed:"_s;
    request.columnLabels = {u"Surnames are located in Column:"_s,
                            u"Firstnames are located in Column:"_s, u"Import DATA from Column:"_s};
    request.rowLabel = u"Row of the first record:"_s;
    return askSheetChoice(file, usualSelectedColumnChoice(), request, prompts);
}

std::optional<int> importSelectedColumn(const dao::Database& database, const QString& classCode,
                                        const QString& field, const SheetSource& source,
                                        Prompts& prompts) {
    const std::optional<ImportSheet> sheet = openImportSheet(source, prompts);
    if (!sheet)
        return std::nullopt;
    int written = 0;
    ImportTexts texts;
    const bool isDone = tryImporting(prompts, ColumnImportFailure, [&] {
        const QString table = isPupilField(field) ? classTable(classCode) : marksTable(classCode);
        const RowsOfPupils rows =
            rowsOfPupils(*sheet, sheet->firstRow(), PupilMatch(database, classCode));
        const GradeSource grades =
            sourceInSheet([&](int row, qsizetype) { return sheet->cell(row, GradeData); });
        dao::Transaction transaction(database);
        written = writeGrades(database, table, {database.TableDefs()[table].Fields()[field]}, rows,
                              grades, texts);
        transaction.commit();
    });
    if (!isDone)
        return std::nullopt;
    texts.tellCut(prompts, GradeImportTitle, SheetRows);
    return written;
}

void showNoColumnToImport(Prompts& prompts) {
    prompts.PlainBox(u"You must select the column to import into.\n"
                     "Please select a column by clicking on the column heading."_s,
                     OkButton, GradeImportTitle);
}

bool confirmFromMDB(Prompts& prompts) {
    return prompts.msg_Box(
               u"You have chosen to import grades from another ORVA database. If any of the "
               "imported grade columns have the same name as existing grade columns, your existing "
               "data in these columns may be overwritten.\n\nDo you wish to continue?"_s,
               YesNoButtons | WarningIcon | SecondButtonDefault,
               u"Import from another ORVA database."_s) == AnswerYes;
}

std::optional<ForeignGrades> askForeignGrades(Session& session) {
    Prompts& prompts = session.GetSeams().prompts;
    if (!confirmFromMDB(prompts))
        return std::nullopt;
    const QString file = prompts.OpenFileDialog(
        u"Please select the ORVA database that contains class grades you wish to import:"_s,
        {{u"ORVA Database (*.mdb)"_s, u"*.mdb"_s}}, session.FolderDefaults[OpenFolder].folder,
        ExistingFileFlags, false);
    std::optional<ForeignGrades> grades;
    if (file.isEmpty())
        return grades;
    tryImporting(prompts, YearImportFailure, [&] {
        const dao::Database source = openSource(session.Engine(), prompts, file);
        const std::optional<QString> chosen =
            source ? askClassOf(source,
                                u"Please select which class list you would like to import grades "
                                "from:"_s,
                                prompts)
                   : std::nullopt;
        if (chosen)
            grades = readForeignGrades(source, *chosen, prompts);
    });
    return grades;
}

std::optional<ForeignGrades> readForeignGrades(const dao::Database& source,
                                               const QString& sourceClass, Prompts& prompts) {
    ForeignGrades grades;
    const bool isDone = tryImporting(prompts, YearImportFailure, [&] {
        const QString pupils = dao::writeName(classTable(sourceClass));
        const QString marks = dao::writeName(marksTable(sourceClass));
        for (const dao::Field& field : source.TableDefs()[marksTable(sourceClass)].Fields()) {
            if (!isPupilField(field.Name) && !dao::sameName(field.Name, u"ID"))
                grades.columns += field;
        }
        dao::Recordset records = source.OpenRecordset(
            u"SELECT %1.Surname,%1.Firstname,%2.* FROM %1 INNER JOIN %2 ON %1.ID = %2.ID "
            "Order By Surname;"_s.arg(pupils, marks));
        constexpr int names = 2;
        for (; !records.EOF_(); records.MoveNext()) {
            ForeignGrades::Row row{{records.Collect(0).toText(), records.Collect(1).toText()}, {}};
            for (const dao::Field& field : std::as_const(grades.columns))
                row.grades += records.Collect(names + field.OrdinalPosition);
            grades.rows += row;
        }
    });
    return isDone ? std::optional(grades) : std::nullopt;
}

std::optional<QStringList> ImportFromMDB(const dao::Database& database, const QString& classCode,
                                         const ForeignGrades& grades, Prompts& prompts) {
    QStringList titles;
    ImportTexts texts;
    const bool isDone = tryImporting(prompts, YearImportFailure, [&] {
        const GradeTargets targets =
            targetsOf(grades, database.TableDefs()[marksTable(classCode)].Fields());
        const RowsOfPupils rows = rowsOfPupils(grades, PupilMatch(database, classCode));
        const GradeSource source{
            [&](int row, qsizetype field) { return grades.rows.at(row).grades.at(field); },
            [&](int row) { return nameInWords(grades.rows.at(row).pupil); }, u"%1: "_s};
        dao::Transaction transaction(database);
        addColumns(database, classCode, targets.added);
        writeGrades(database, marksTable(classCode), targets.fields, rows, source, texts);
        transaction.commit();
        for (const dao::Field& field : targets.added)
            titles += field.Name;
    });
    if (!isDone)
        return std::nullopt;
    texts.tellCut(prompts, GradeImportTitle, u"These are the pupils"_s);
    return titles;
}
