#include "classes/class_list_import.h"

#include "classes/import_texts.h"
#include "classes/pupils.h"
#include "core/password_retry.h"
#include "core/session.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString ListImportTitle = u"Import Class List"_s;
constexpr FailureBox ListImportFailure{u"Import Error", u"%1\nError number: %2",
                                       OkButton | WarningIcon};

enum ListColumn { ListSurname, ListFirstname, ListTutor };

/// The fields of `Class_`C that a list fills.
struct ListFields {
    ListFields(const dao::Database& database, const QString& classCode)
        : ListFields(database.TableDefs()[classTable(classCode)].Fields()) {}
    explicit ListFields(const dao::FieldCollection& fields)
        : surname(fields[u"Surname"]), firstname(fields[u"Firstname"]), tutor(fields[u"Tutor"]) {}

    const dao::Field surname;
    const dao::Field firstname;
    const dao::Field tutor;
};

struct ListedPupil {
    QString surname;
    QString firstname;
    QString tutor;
};

/// Takes in pupils who stand at those places of a list. What a list does not say stays Null.
void addListed(const dao::Database& database, const QString& classCode,
               const QList<ListedPupil>& pupils, const QStringList& places, ImportTexts& texts) {
    dao::Transaction transaction(database);
    const ListFields fields(database, classCode);
    PupilIntake intake(database, classCode);
    for (qsizetype i = 0; i < pupils.size(); ++i) {
        QList<PupilField> pupil;
        const auto put = [&](const dao::Field& field, const QString& text) {
            if (!text.isEmpty())
                pupil.append({field.Name, texts.fitted(text, field, places.at(i))});
        };
        put(fields.surname, pupils.at(i).surname);
        put(fields.firstname, pupils.at(i).firstname);
        put(fields.tutor, pupils.at(i).tutor);
        intake.add(pupil);
    }
    transaction.commit();
}

QStringList linesOf(const QString& clipboard) {
    QStringList lines = QString(clipboard).replace(u"\r\n"_s, u"\n"_s).split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

bool confirmPaste(Prompts& prompts) {
    return prompts.msg_Box(
               u"Would you like to paste the current clipboard data as your class list?\n\n"
               "Selecting no will allow you to choose a file to import the class list from."_s,
               YesNoButtons | QuestionIcon, ListImportTitle) == AnswerYes;
}

bool offerFileInstead(Prompts& prompts) {
    return prompts.msg_Box(u"Sorry but the CLipboard data you tried to Paste doesn't appear to be "
                           "of the correct format.\n\n"
                           "Would you like to import the data from a file instead?"_s,
                           YesNoButtons | WarningIcon, u"Invalid Clipboard data"_s) == AnswerYes;
}

/// None where it failed.
std::optional<int> pasteLines(const dao::Database& database, const QString& classCode,
                              const QStringList& lines, Prompts& prompts) {
    QList<ListedPupil> pupils;
    QStringList places;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QString& line = lines.at(i);
        const ListedPupil pupil{line.section(u'\t', 0, 0), line.section(u'\t', 1, 1),
                                line.section(u'\t', 2)};
        if (pupil.surname.isEmpty() || pupil.firstname.isEmpty())
            continue;
        pupils += pupil;
        places += QString::number(i + 1);
    }
    ImportTexts texts;
    const bool isDone = tryImporting(
        prompts, ListImportFailure, [&] { addListed(database, classCode, pupils, places, texts); });
    if (!isDone)
        return std::nullopt;
    texts.tellCut(prompts, ListImportTitle, u"These are the lines"_s);
    return static_cast<int>(pupils.size());
}

bool hasPupils(const dao::Database& database, const QString& classCode) {
    const dao::Recordset pupils = database.OpenRecordset(classTable(classCode));
    return pupils.RecordCount() > 0;
}

/// One capital and small letters behind it, whatever stands in the sheet.
QString withOneCapital(const QString& name) {
    const qsizetype first = name.at(0).isHighSurrogate() ? 2 : 1;
    return name.left(first).toUpper() + name.mid(first).toLower();
}

int importAskedSheet(Session& session, const QString& classCode, const QString& file) {
    Prompts& prompts = session.GetSeams().prompts;
    const std::optional<SpreadsheetChoice> choice = prompts.ReturnString(classListRequest(file));
    if (!choice)
        return 0;
    return importListFromSheet(session.CurrentDB, classCode, {file, *choice}, prompts).value_or(0);
}

int importAskedYear(Session& session, const QString& classCode, const QString& file) {
    Prompts& prompts = session.GetSeams().prompts;
    int added = 0;
    tryImporting(prompts, ListImportFailure, [&] {
        const dao::Database source = openSource(session.Engine(), prompts, file);
        const std::optional<QString> chosen =
            source
                ? askClassOf(source, u"Please select which class list you would like to import:"_s,
                             prompts)
                : std::nullopt;
        if (chosen)
            added = importListFromYear(session.CurrentDB, classCode, source, *chosen, prompts)
                        .value_or(0);
    });
    return added;
}

/// The records of a class of another year, with what each field is worth here.
QList<QList<PupilField>> readPupils(const dao::Database& source, const QString& sourceClass,
                                    const dao::FieldCollection& targets, ImportTexts& texts) {
    const dao::FieldCollection fields = source.TableDefs()[classTable(sourceClass)].Fields();
    QList<dao::Field> inStep; // behind `ID`, which each class gives out anew
    for (int position = 1; position < std::min(fields.Count(), targets.Count()); ++position) {
        if (dao::sameName(fields[position].Name, targets[position].Name))
            inStep += targets[position];
    }
    dao::Recordset records = source.OpenRecordset(classTable(sourceClass));
    QList<QList<PupilField>> pupils;
    for (; !records.EOF_(); records.MoveNext()) {
        const QString name =
            records.Collect(u"Firstname").toText() + u' ' + records.Collect(u"Surname").toText();
        QList<PupilField> pupil;
        for (const dao::Field& field : std::as_const(inStep)) {
            const dao::Value value = records.Collect(field.OrdinalPosition);
            pupil.append({field.Name, texts.fitted(value, field, name)});
        }
        pupils += pupil;
    }
    return pupils;
}

} // namespace

int Paste_Classlist(Session& session, const QString& classCode, const QString& clipboard) {
    Prompts& prompts = session.GetSeams().prompts;
    const QStringList lines = linesOf(clipboard);
    if (lines.isEmpty() || !confirmPaste(prompts))
        return Import_ClassList(session, classCode);
    const std::optional<int> added = pasteLines(session.CurrentDB, classCode, lines, prompts);
    const bool wantsFile =
        added && !hasPupils(session.CurrentDB, classCode) && offerFileInstead(prompts);
    return wantsFile ? Import_ClassList(session, classCode) : added.value_or(0);
}

int Import_ClassList(Session& session, const QString& classCode) {
    const QString file =
        askImportFile(session, u"Please select the file that contains your class list:"_s,
                      {u"Access Database (*.mdb) or Excel Worksheet (*.xls)"_s, u"*.mdb;*.xls"_s});
    if (isYearFile(file))
        return importAskedYear(session, classCode, file);
    return isSheetFile(file) ? importAskedSheet(session, classCode, file) : 0;
}

SpreadsheetChoice usualListChoice() {
    return {.row = 3, .columns = {u"A"_s, u"B"_s, u"C"_s}};
}

SpreadsheetRequest classListRequest(const QString& file) {
    SpreadsheetRequest request;
    request.title = u"Importing from Excel"_s;
    request.text = u"By default ORVA tries to import Surnames from Column A, Firstname from Column "
                   u"B and Tutor "
                   "groups from Column C. It also expects to find the first record at Row 3.\n"
                   "You may change this import settings if needed:"_s;
    request.label = u"Preview of "_s + QFileInfo(file).fileName();
    request.workbook = file;
    request.columnLabels = {u"Import Surnames from Column:"_s, u"Import Firstnames from Column:"_s,
                            u"Import Tutor group from Column:"_s};
    request.columns = usualListChoice().columns;
    request.columnChoices = columnsUpTo(u"E");
    request.thirdMayBeNone = true;
    request.rowLabel = u"Row of the first record:"_s;
    request.row = usualListChoice().row;
    return request;
}

std::optional<int> importListFromSheet(const dao::Database& database, const QString& classCode,
                                       const SheetSource& source, Prompts& prompts) {
    const std::optional<ImportSheet> sheet = openImportSheet(source, prompts);
    if (!sheet)
        return std::nullopt;
    QList<ListedPupil> pupils;
    QStringList places;
    const int end = sheet->endOfList();
    for (int row = sheet->firstRow(); row < end; ++row) {
        pupils.append({withOneCapital(sheet->cell(row, ListSurname)),
                       sheet->cell(row, ListFirstname), sheet->cell(row, ListTutor)});
        places += QString::number(row + 1);
    }
    ImportTexts texts;
    const bool isDone = tryImporting(
        prompts, ListImportFailure, [&] { addListed(database, classCode, pupils, places, texts); });
    if (!isDone)
        return std::nullopt;
    texts.tellCut(prompts, ListImportTitle, SheetRows);
    return static_cast<int>(pupils.size());
}

std::optional<int> importListFromYear(const dao::Database& database, const QString& classCode,
                                      dao::Database source, const QString& sourceClass,
                                      Prompts& prompts) {
    ImportTexts texts;
    int added = 0;
    const bool isDone = tryImporting(prompts, ListImportFailure, [&] {
        const QList<QList<PupilField>> pupils = readPupils(
            source, sourceClass, database.TableDefs()[classTable(classCode)].Fields(), texts);
        source.Close(); // it may be the same file
        dao::Transaction transaction(database);
        PupilIntake intake(database, classCode);
        for (const QList<PupilField>& pupil : pupils)
            intake.add(pupil);
        transaction.commit();
        added = static_cast<int>(pupils.size());
    });
    if (!isDone)
        return std::nullopt;
    texts.tellCut(prompts, ListImportTitle, u"These are the pupils"_s);
    return added;
}
