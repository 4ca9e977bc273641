#include "tour/screens/tour_classes.h"

#include "classes/class_desk.h"
#include "classes/class_export_commands.h"
#include "classes/class_list_import.h"
#include "classes/class_photos.h"
#include "classes/grade_columns.h"
#include "classes/pupil_notes.h"
#include "classes/pupils.h"
#include "classes/register_columns.h"
#include "classes/register_lessons.h"
#include "classes/screens/class_window.h"
#include "classes/screens/new_class_wizard.h"
#include "core/clock.h"
#include "core/prompts.h"
#include "core/session.h"
#include "frame/screens/main_window.h"
#include "richtext/rtf_writer.h"
#include "store/engine/names.h"
#include "store/table_names.h"
#include "tour/screens/tour_pictures.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

struct TourPupil {
    QString surname;
    QString firstname;
    QString tutor;
    int test;
    QString essay;
};

const TourPupil tourPupils[] = {
    {u"Abbott"_s, u"Leah"_s, u"10T"_s, 17, u"B+"_s},
    {u"Castellano"_s, u"Marco"_s, u"10K"_s, 14, u"B"_s},
    {u"Dhillon"_s, u"Priya"_s, u"10T"_s, 19, u"A"_s},
    {u"Eccles"_s, u"Tom"_s, u"10B"_s, 9, u"D"_s},
    {u"Farrant"_s, u"Grace"_s, u"10K"_s, 16, u"B"_s},
    {u"Hughes"_s, u"Owen"_s, u"10B"_s, 12, u"C+"_s},
    {u"Novák"_s, u"Jana"_s, u"10T"_s, 20, u"A*"_s},
    {u"O'Brien"_s, u"Zoë"_s, u"10K"_s, 11, u"C"_s},
    {u"Petrovic"_s, u"Jan"_s, u"10B"_s, 15, u"B"_s},
    {u"Quarshie"_s, u"Kofi"_s, u"10T"_s, 18, u"A"_s},
    {u"Stanley"_s, u"Beth"_s, u"10K"_s, 13, u"C+"_s},
    {u"Ward"_s, u"Jordan"_s, u"10B"_s, 8, u"D+"_s},
};

const QString noteCategory = u"Report"_s;

QString firstClass(const Session& session) {
    return session.ClassColours.isEmpty() ? QString() : session.ClassColours.first().code;
}

/// A portrait drawn for the pictures: nobody's photo.
QImage portrait(int number) {
    QImage picture(StandardPhoto * 2, QImage::Format_RGB32);
    constexpr int hueStep = 40;
    constexpr int fullCircle = 360;
    picture.fill(QColor::fromHsv(number * hueStep % fullCircle, 60, 235));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromHsv((number * hueStep + 180) % fullCircle, 90, 130));
    painter.drawEllipse(QPoint(67, 180), 62, 74);
    painter.setBrush(QColor(236, 200, 170));
    painter.drawEllipse(QPoint(67, 72), 36, 44);
    return picture;
}

void addTourPupils(const dao::Database& database, const QString& classCode) {
    dao::Recordset pupils = database.OpenRecordset(classTable(classCode));
    int number = 0;
    for (const TourPupil& pupil : tourPupils) {
        pupils.AddNew();
        pupils.SetCollect(u"Surname", pupil.surname);
        pupils.SetCollect(u"Firstname", pupil.firstname);
        pupils.SetCollect(u"Tutor", pupil.tutor);
        pupils.SetCollect(u"Address1", u"%1 Mill Lane"_s.arg(2 * number + 3));
        pupils.SetCollect(u"PostCode", u"LS9 %1QT"_s.arg(number % 9 + 1));
        pupils.SetCollect(u"Tel1", u"01632 9601%1"_s.arg(number + 10));
        pupils.SetCollect(u"Email", u"%1@example.org"_s.arg(pupil.firstname.toLower()));
        pupils.SetCollect(u"Notes", u"Sits at the front; has extra time in tests."_s);
        pupils.Update();
        pupils.MoveLast();
        const qint64 id = pupils.Collect(u"ID").toInteger();
        updateRegisterAndMarksId(database, classCode, id,
                                 pupil.firstname + u"\r\n"_s + pupil.surname);
        ValidatePicture(database, classCode, id, portrait(number++));
    }
    pupils.Close();
}

/// Every lesson before today, with an absence here and there.
void markTourRegister(const dao::Database& database, const QString& classCode, QDate today) {
    dao::Recordset rows = database.OpenRecordset(registerTable(classCode));
    for (int number = 0; !rows.EOF_(); rows.MoveNext(), ++number) {
        rows.Edit();
        for (int column = 0; column < rows.FieldCount(); ++column) {
            const auto lesson = readRegisterColumn(rows.Fields(column).Name());
            if (lesson && lesson->date < today)
                rows.SetCollect(column, (number * 7 + column) % 11 == 0 ? u"O"_s : u"/"_s);
        }
        rows.Update();
    }
    rows.Close();
}

void addTourGrades(Session& session, const QString& classCode) {
    const dao::Database& database = session.CurrentDB;
    Prompts& prompts = session.GetSeams().prompts;
    addGradeColumn(database, classCode, {u"Test 1"_s, dao::DataType::Integer, 0, {}}, prompts);
    addGradeColumn(database, classCode, {u"Essay"_s, dao::DataType::Text, UsualNewFieldSize, {}},
                   prompts);
    dao::Recordset marks = database.OpenRecordset(marksTable(classCode));
    for (const TourPupil& pupil : tourPupils) {
        marks.Edit();
        marks.SetCollect(u"Test 1", pupil.test);
        marks.SetCollect(u"Essay", pupil.essay);
        marks.Update();
        marks.MoveNext();
    }
    marks.Close();
}

void addTourNotes(Session& session, const QString& classCode) {
    addNotesCategory(session.CurrentDB, classCode, noteCategory, session.GetSeams().prompts);
    QTextDocument note;
    note.setHtml(u"<b>Effort:</b> works with care and helps others.<br/><b>Target:</b> show every "
                 "step, and check units.<br/>A <i>very</i> good term."_s);
    dao::Recordset pupils = session.CurrentDB.OpenRecordset(u"SELECT %1 FROM %2"_s.arg(
        dao::writeName(noteField(noteCategory)), dao::writeName(classTable(classCode))));
    pupils.Edit();
    pupils.SetCollect(0, richtext::writeDocument(note));
    pupils.Update();
    pupils.Close();
}

/// On the first lesson of the first pupil.
void addTourLessonNote(const Session& session, const QString& classCode) {
    const PupilSheet sheet(session.CurrentDB, registerSource(classCode, {}));
    const auto place = lessonNotePlace(sheet, classCode, 0, PupilSheet::FirstOwnColumn);
    if (place)
        storeLessonNote(session.CurrentDB, *place, u"Forgot her book; lent her one."_s);
}

/// It is not asked for and closed, since it would ask whether to give up.
void visitNewClass(Session& session, TourPictures& pictures) {
    NewClassWizard wizard(session);
    wizard.show();
    pictures.save(wizard, u"NewClassFrm"_s);
}

void visitSelector(Session& session, const QString& classCode, TourPictures& pictures) {
    Prompts& prompts = session.GetSeams().prompts;
    pictures.saveAsked(u"SelectorFrm_field"_s, [&] { askGradeColumn(prompts); });
    pictures.saveAsked(u"SelectorFrm_details"_s, [&] { Export_to_Excel(session, classCode); });
    OneItemRequest request;
    request.title = u"Grade column titles for "_s + classCode;
    request.text = u"Please select which grades column contains this information. :"_s;
    request.items = {u"Test 1"_s, u"Essay"_s};
    pictures.saveAsked(u"SelectorFrm_one"_s, [&] { prompts.ReturnString(request); });
    const QTemporaryDir folder;
    QFile sheet(folder.filePath(u"Class list.csv"_s));
    if (!sheet.open(QIODevice::WriteOnly))
        return;
    sheet.write("Our new class\nSurname,First name,Tutor\n");
    for (const TourPupil& pupil : tourPupils)
        sheet.write(u"%1,%2,%3\n"_s.arg(pupil.surname, pupil.firstname, pupil.tutor).toUtf8());
    sheet.close();
    pictures.saveAsked(u"SelectorFrm_sheet"_s,
                       [&] { prompts.ReturnString(classListRequest(sheet.fileName())); });
}

} // namespace

void fillFirstClass(Session& session) {
    const QString classCode = firstClass(session);
    UpdateClassTables(session.CurrentDB);
    {
        dao::Transaction transaction(session.CurrentDB);
        addTourPupils(session.CurrentDB, classCode);
        markTourRegister(session.CurrentDB, classCode, session.GetSeams().clock.today());
        transaction.commit();
    }
    addTourGrades(session, classCode);
    addTourNotes(session, classCode);
    addTourLessonNote(session, classCode);
}

void visitClasses(Session& session, MainWindow& frame, TourPictures& pictures) {
    struct View {
        ClassView view;
        QString name;
    };
    frame.open(ToolWindow::Classes, firstClass(session));
    auto* window = frame.findChild<ClassWindow*>();
    for (const View& each :
         {View{RegisterView, u"register"_s}, View{GradesView, u"grades"_s},
          View{PupilInformationView, u"pupil"_s}, View{PupilNotesView, u"notes"_s}}) {
        window->showView(each.view);
        pictures.save(frame, u"RegisterFrm_"_s + each.name);
    }
    visitNewClass(session, pictures);
    visitSelector(session, firstClass(session), pictures);
    frame.CloseOpenForms();
}
