#include "classes/class_export_commands.h"

#include "classes/class_exports.h"
#include "classes/pupil_notes.h"
#include "classes/pupil_sheet.h"
#include "core/file_state.h"
#include "core/session.h"
#include "core/shell.h"
#include "core/shell_services.h"
#include "office/plain_cell.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

/// Asks where to; empty when it was cancelled. `sensitivity`: how the extension is looked for in
/// what was typed.
QString askFile(const Session& session, Qt::CaseSensitivity sensitivity) {
    const QString file = session.GetSeams().prompts.OpenFileDialog(
        u" Save the Excel file as:"_s, {{u"Excel Workbook"_s, u"*.xls"_s}},
        session.FolderDefaults[SaveFolder].folder, ExplorerStyle | PathMustExist, true);
    return file.isEmpty() ? QString() : workbookName(file, sensitivity);
}

/// Asks for a file and whether to replace one; empty where nothing is to be written.
QString askNewFile(const Session& session) {
    const QString file = askFile(session, Qt::CaseInsensitive);
    return !file.isEmpty() && mayOverwrite(file, session.GetSeams().prompts) ? file : QString();
}

/// The same as the views of a grid ask it: a file that exists can be opened instead. `no`: how the
/// answer No is written in the question.
QString askNewOrOpen(const Session& session, const QString& no) {
    const Seams& seams = session.GetSeams();
    const QString file = askFile(session, Qt::CaseSensitive); // ".XLS" gets a second extension
    if (file.isEmpty() || !FileExists(file))
        return file;
    const PromptAnswer answer =
        seams.prompts.PlainBox(u"The file %1 already exists.\n\nDo you wish to overwrite this "
                               u"file?\n\nSelecting '%2' will "
                               "open the currently existing file."_s.arg(file, no),
                               YesNoCancelButtons | QuestionIcon, u"File exists"_s);
    if (answer == AnswerNo)
        OpenForeignFile(file, seams.shell, seams.prompts);
    return answer == AnswerYes ? file : QString();
}

QString viewQuestion(const QString& done, const QString& file) {
    return done + file + u"\n\nWould you like to view this file?"_s;
}

void viewFile(const Session& session, const QString& file) {
    session.GetSeams().shell.ShellRun(u"open"_s, file);
}

/// Offers to view a file; once ticked in this run it is always viewed.
void offerOrView(Session& session, const QString& file) {
    bool isWanted = session.AlwaysViewExports;
    if (!isWanted) {
        BoxLook look;
        look.checkBox = u"Always view the file after exporting."_s;
        const BoxAnswer answer = session.GetSeams().prompts.msg_Box(
            viewQuestion(u"The data has been exported to the Excel file : "_s, file),
            YesNoButtons | QuestionIcon, u"Export Complete"_s, look);
        session.AlwaysViewExports = answer.ticked;
        isWanted = answer == AnswerYes;
    }
    if (isWanted)
        viewFile(session, file);
}

void offerView(const Session& session, const QString& done, const QString& file) {
    if (session.GetSeams().prompts.PlainBox(viewQuestion(done, file), YesNoButtons | QuestionIcon,
                                            u"Export Complete"_s) == AnswerYes)
        viewFile(session, file);
}

/// The same words for the register and the grades.
void offerViewOfGrid(const Session& session, const QString& file) {
    offerView(session, u"The register data has been exported to the Excel file : "_s, file);
}

SeveralItemsRequest detailsRequest(const QString& classCode) {
    SeveralItemsRequest request;
    request.title = u"Export %1 items to Excel:"_s.arg(classCode);
    request.text = u"The Surname and Fistname will automatically be exported.\r\n"
                   "Please select any other items you would like in the export."_s;
    for (const DetailItem& item : detailItems())
        request.items += item.caption;
    return request;
}

/// The notes of all pupils of a class under these fields, as plain text by `ID`.
QHash<qint64, QStringList> notesByPupil(const Session& session, const QString& classCode,
                                        const QStringList& categories) {
    QString source = u"SELECT ID"_s;
    for (const QString& category : categories)
        source += u',' + dao::writeName(noteField(category));
    dao::Recordset records = session.CurrentDB.OpenRecordset(source + u" FROM "_s +
                                                             dao::writeName(classTable(classCode)));
    QHash<qint64, QStringList> notes;
    for (; !records.EOF_(); records.MoveNext()) {
        QStringList& texts = notes[records.Collect(0).toInteger()];
        for (int field = 1; field < records.FieldCount(); ++field) {
            QString text = plainCellText(records.Collect(field).toText());
            while (text.endsWith(u'\n'))
                text.chop(1);
            texts += text;
        }
    }
    records.Close();
    return notes;
}

} // namespace

const QList<DetailItem>& detailItems() {
    static const QList<DetailItem> items{
        {u"Tutor Groups."_s, u"Tutor"_s, {u"Tutor"_s}},
        {u"Gender."_s, u"Sex"_s, {u"Sex"_s}},
        {u"Address & Postcode."_s,
         u"Address"_s,
         {u"Address1"_s, u"Address2"_s, u"Address3"_s, u"PostCode"_s}},
        {u"Telephone"_s, u"Telephone"_s, {u"Tel1"_s, u"Tel2"_s}},
        {u"Email"_s, u"Email"_s, {u"Email"_s}},
        {u"Pupil ID"_s, u"PID"_s, {u"PID"_s}},
        {u"Pupil Notes."_s, u"Notes"_s, {u"Notes"_s}},
    };
    return items;
}

QString detailsSource(const dao::Database& year, const QString& classCode,
                      const QList<int>& items) {
    const dao::FieldCollection there = year.TableDefs()[classTable(classCode)].Fields();
    const QString table = dao::writeName(classTable(classCode));
    QString source = u"SELECT %1.Surname,%1.Firstname"_s.arg(table);
    for (const int item : items) {
        for (const QString& field : detailItems()[item].fields) {
            if (there.Contains(field))
                source += u',' + field;
        }
    }
    return source + u" FROM "_s + table;
}

QList<QStringList> notesTable(const Session& session, const QString& classCode,
                              const PupilSheet& records, const QStringList& categories) {
    const QHash<qint64, QStringList> notes = notesByPupil(session, classCode, categories);
    QList<QStringList> lines{QStringList{u"Surname"_s, u"Forename"_s} + categories};
    for (int row = 0; row < records.rowCount(); ++row)
        lines += QStringList{records.text(row, PupilSheet::SurnameColumn),
                             records.text(row, PupilSheet::FirstnameColumn)} +
                 notes.value(records.pupil(row), QStringList(categories.size()));
    return lines;
}

void showNoCategory(Prompts& prompts) {
    prompts.PlainBox(u"You have not selected any Note Category to Export!"_s,
                     OkButton | InformationIcon, u"Abort Export"_s);
}

QString lessonNotesSource(const QString& classCode, qint64 pupil) {
    return u"SELECT * FROM %1 WHERE  Lcode = %2 AND  Lpupil = %3;"_s.arg(
        LessonNotesTable, dao::writeText(classCode), QString::number(pupil));
}

void showNoLessonNotes(Prompts& prompts, const QString& name) {
    prompts.PlainBox(u"There are no lesson notes for "_s + name, OkButton | InformationIcon,
                     u"No records found"_s);
}

bool mayOverwrite(const QString& file, Prompts& prompts) {
    return !FileExists(file) ||
           prompts.msg_Box(u"This file already exists!\n\nDo you want to overwrite it?"_s,
                           YesNoButtons | QuestionIcon, u"File Exist"_s) == AnswerYes;
}

void Export_to_Excel(Session& session, const QString& classCode) {
    const std::optional<QList<int>> items =
        session.GetSeams().prompts.ReturnString(detailsRequest(classCode));
    const QString file = items ? askNewFile(session) : QString();
    if (file.isEmpty())
        return;
    bool isDone = false;
    tryTelling(session.GetSeams().prompts, ExportDataFailure, [&] {
        const PupilSheet records(session.CurrentDB,
                                 detailsSource(session.CurrentDB, classCode, *items));
        isDone = exportClassDetails(records, {file, session.GetSeams()});
    });
    if (isDone)
        offerOrView(session, file);
}

void NotesTOExcel(Session& session, const QString& classCode, const PupilSheet& records,
                  const QStringList& categories) {
    Prompts& prompts = session.GetSeams().prompts;
    if (categories.isEmpty())
        return showNoCategory(prompts);
    const QString file = askNewFile(session);
    if (file.isEmpty())
        return;
    bool isDone = false;
    tryTelling(prompts, ExportDataFailure, [&] {
        isDone = exportNotesTable(notesTable(session, classCode, records, categories),
                                  {file, session.GetSeams()});
    });
    if (isDone)
        offerOrView(session, file);
}

void exportGradesView(Session& session, const PupilSheet& records,
                      const std::function<bool(int column)>& isVisible) {
    const QString file = askNewOrOpen(session, u"No"_s);
    if (!file.isEmpty() && exportGrades(records, isVisible, {file, session.GetSeams()}))
        offerViewOfGrid(session, file);
}

void exportRegisterView(Session& session, const QString& classCode, const PupilSheet& records) {
    const QString file = askNewOrOpen(session, u"NO"_s);
    if (!file.isEmpty() &&
        exportRegister(session.CurrentDB, records, classCode, {file, session.GetSeams()}))
        offerViewOfGrid(session, file);
}

void exportNotesOfPupil(Session& session, const QString& classCode, qint64 pupil,
                        const QString& name) {
    Prompts& prompts = session.GetSeams().prompts;
    tryTelling(prompts, ExportFailure, [&] {
        const dao::Recordset records =
            session.CurrentDB.OpenRecordset(lessonNotesSource(classCode, pupil));
        if (records.EOF_()) {
            showNoLessonNotes(prompts, name);
            return;
        }
        const QString file = askNewOrOpen(session, u"No"_s);
        if (!file.isEmpty() && exportLessonNotes(records, name, {file, session.GetSeams()}))
            offerView(session,
                      u"The pupil lesson notes have been exported and saved to the Excel file : "_s,
                      file);
    });
}
