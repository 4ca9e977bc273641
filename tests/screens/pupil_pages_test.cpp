// Pupils: their information, photos and notes, new ones and those who leave, and new classes.

#include "classes/class_photos.h"
#include "classes/pupil_notes.h"
#include "classes/pupil_photo.h"
#include "classes/screens/new_class_wizard.h"
#include "classes/screens/photo_box.h"
#include "controls/rich_text_box.h"
#include "support/screen_register.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTableWidget>

namespace {

class PupilScreenTest : public RegisterScreenTest {
protected:
    QLineEdit& line(const QString& name) { return control<QLineEdit>(*window, name); }
    void retype(QLineEdit& box, const QString& text) {
        box.selectAll();
        QTest::keyClicks(&box, text);
    }
    QString of(int pupil, const QString& field) {
        return rowsOf(session.CurrentDB,
                      u"SELECT %1 FROM Class_D WHERE ID = %2"_s.arg(field).arg(pupil))
            .first();
    }
    PhotoBox& photoBox() {
        for (PhotoBox* each : window->findChildren<PhotoBox*>()) {
            if (each->isVisible())
                return *each;
        }
        qFatal("no photo in sight");
    }
    QImage photo(int pupil) { return pupilPhoto(session.CurrentDB, u"D"_s, pupil); }
    QString nameAt(int row) { return names().model()->index(row, 0).data().toString(); }
    void runTask(int row, Qt::KeyboardModifiers modifiers = {}) {
        auto& tasks = control<QListWidget>(*window, u"TaskList"_s);
        tasks.setCurrentRow(row);
        tasks.setFocus();
        QTest::keyClick(&tasks, Qt::Key_Return, modifiers);
    }
};

} // namespace

TEST_F(PupilScreenTest, WhatIsTypedIsOnDiskWhenThePupilIsLeft) {
    show();
    window->showView(PupilInformationView);
    checkScreen(*window, u"RegisterFrm_pupil"_s);
    retype(line(u"TxtTutor"_s), u"7 Tall and more"_s);
    EXPECT_EQ(line(u"TxtTutor"_s).text(), u"7 Tall and"_s); // as much as the field holds
    QTest::keyClicks(&control<QPlainTextEdit>(*window, u"TxtNotes"_s), u"Plays 'cello"_s);
    clickName(1);
    EXPECT_EQ(of(1, u"Tutor"_s), u"7 Tall and"_s);
    EXPECT_EQ(of(1, u"Notes"_s), u"Plays 'cello"_s);
    EXPECT_EQ(line(u"TxtTutor"_s).text(), QString());
    retype(line(u"TxtEmail"_s), u"ed@example.org"_s);
    seams.clock.advance(std::chrono::seconds(3));
    EXPECT_EQ(of(3, u"Email"_s), u"ed@example.org"_s); // without leaving
    control<QPushButton>(*window, u"cmdMail"_s).click();
    ASSERT_EQ(seams.shell.runs.size(), 1);
    EXPECT_TRUE(seams.shell.runs.first().file.contains(u"ed@example.org"_s));
    retype(line(u"TxtSurname"_s), u"Zeta"_s);
    clickName(2);
    QApplication::processEvents();
    EXPECT_EQ(nameAt(2), u"Zeta"_s);
    EXPECT_EQ(line(u"TxtSurname"_s).text(), u"O'Brien"_s);
    retype(line(u"TxtFirstname"_s), u"Zoe"_s);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(of(2, u"Firstname"_s), u"Zoe"_s);
}

TEST_F(PupilScreenTest, WhoGoesOnTypingIsWrittenTooAndTheFieldsKeepTheirLimits) {
    show();
    window->showView(PupilInformationView);
    auto& notes = control<QPlainTextEdit>(*window, u"TxtNotes"_s);
    for (int second = 0; second < 4; ++second) {
        QTest::keyClicks(&notes, u"x"_s);
        seams.clock.advance(std::chrono::seconds(1));
    }
    EXPECT_GE(of(1, u"Notes"_s).size(), 2); // though no two seconds went by without a key
    const QHash<QString, int> limits = {
        {u"Surname"_s, 20},   {u"Firstname"_s, 20}, {u"Tutor"_s, 10}, {u"Sex"_s, 1},
        {u"Address1"_s, 250}, {u"PostCode"_s, 10},  {u"Tel2"_s, 15},  {u"Email"_s, 50}};
    for (auto each = limits.begin(); each != limits.end(); ++each)
        retype(line(u"Txt"_s + each.key()), QString(each.value() + 3, u'y'));
    control<QPushButton>(*window, u"cmdMail"_s).click(); // no address
    EXPECT_TRUE(seams.shell.runs.isEmpty());
    clickName(1);
    for (auto each = limits.begin(); each != limits.end(); ++each)
        EXPECT_EQ(of(1, each.key()), QString(each.value(), u'y'));
}

TEST_F(PupilScreenTest, AFullDiskKeepsThePupilOnThePage) {
    show();
    window->showView(PupilInformationView);
    control<QPlainTextEdit>(*window, u"TxtNotes"_s).setPlainText(QString(40'000, u'x'));
    control<QPlainTextEdit>(*window, u"TxtNotes"_s).document()->setModified();
    seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, AnswerOk);
    {
        const FileSizeLimit fullDisk(QFileInfo(path()).size());
        clickName(1);
        QApplication::processEvents();
        EXPECT_EQ(line(u"TxtSurname"_s).text(), u"Ames"_s);
        EXPECT_EQ(names().currentIndex().row(), 0);
    }
    clickName(1);
    EXPECT_EQ(line(u"TxtSurname"_s).text(), u"Cole"_s);
    EXPECT_EQ(of(1, u"Notes"_s).size(), 40'000);
}

TEST_F(PupilScreenTest, ANameIsNotTakenAway) {
    addPupils(session.CurrentDB, u"D"_s, {u"Zed"_s}); // only his surname is known
    show();
    window->showView(PupilInformationView);
    clickName(3);
    QTest::keyClicks(&line(u"TxtFirstname"_s), u"A"_s);
    QTest::keyClick(&line(u"TxtFirstname"_s), Qt::Key_Backspace);
    clickName(0); // nothing has changed
    line(u"TxtFirstname"_s).selectAll();
    QTest::keyClick(&line(u"TxtFirstname"_s), Qt::Key_Delete);
    retype(line(u"TxtTutor"_s), u"7T"_s);
    seams.clock.advance(std::chrono::seconds(3)); // it waits for its text, the rest does not
    EXPECT_EQ(of(1, u"Firstname"_s) + of(1, u"Tutor"_s), u"Ann7T"_s);
    seams.prompts.expect(PromptKind::Plain, u"Validate Data Error"_s, AnswerOk);
    clickName(1);
    QApplication::processEvents();
    EXPECT_EQ(line(u"TxtSurname"_s).text(), u"Ames"_s);
    QTest::keyClicks(&line(u"TxtFirstname"_s), u"Anna"_s);
    clickName(1);
    EXPECT_EQ(of(1, u"Firstname"_s), u"Anna"_s);
    EXPECT_EQ(of(4, u"Firstname"_s), u"~"_s);
}

TEST_F(PupilScreenTest, PupilsOfOneNameStayApart) {
    addPupils(session.CurrentDB, u"D"_s, {u"Ames,Ann"_s});
    show();
    clickName(1);
    ASSERT_EQ(window->desk().currentPupil(), 4);
    for (const ClassView view : {RegisterView, GradesView, PupilNotesView, PupilInformationView}) {
        window->showView(view);
        EXPECT_EQ(window->desk().sheet().pupil(names().currentIndex().row()), 4) << view;
    }
    retype(line(u"TxtTutor"_s), u"7T"_s);
    retype(line(u"TxtFirstname"_s), u"Anne"_s);
    tool(0).click();
    QTest::keyClicks(&grid(), u"o"_s);
    EXPECT_EQ(of(4, u"Tutor"_s) + of(4, u"Firstname"_s) + marksOf(4).mid(5, 2), u"7TAnneOO"_s);
    EXPECT_EQ(of(1, u"Tutor"_s) + of(1, u"Firstname"_s) + marksOf(1).mid(5, 2), u"~Ann.."_s);
    window->showFirstPage();
    session.DontAskDeletePupil = true;
    runTask(3);
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT ID FROM Class_D WHERE Surname = 'Ames'"_s),
              QStringList{u"1"_s});
    EXPECT_EQ(window->desk().currentPupil(), 1);
}

TEST_F(PupilScreenTest, NobodyLeftIsNobodyToShow) {
    show();
    session.DontAskDeletePupil = true;
    for (int left = 2; left >= 0; --left) {
        runTask(3);
        EXPECT_EQ(names().model()->rowCount(), left);
    }
    EXPECT_EQ(control<QListWidget>(*window, u"TaskList"_s).currentRow(), 0);
    seams.prompts.expect(PromptKind::Plain, u"No Pupils"_s, AnswerOk);
    control<QToolButton>(*window, u"ViewButton(3)"_s).click();
    EXPECT_FALSE(window->desk().view());
    tool(2).click();
    EXPECT_FALSE(line(u"TxtSurname"_s).isEnabled());
    EXPECT_FALSE(photoBox().isEnabled());
}

TEST_F(PupilScreenTest, APhotoIsCapturedFromTheScreen) {
    show();
    window->showView(PupilInformationView);
    seams.shell.screen = QImage(1600, 400, QImage::Format_RGB32); // two screens side by side
    seams.shell.screen.fill(Qt::white);
    QPainter(&seams.shell.screen).fillRect(1300, 100, 200, 200, Qt::blue);
    whenAsked([](QWidget& capture) {
        EXPECT_EQ(capture.objectName(), u"CaptureORVAClass"_s);
        QApplication::processEvents(); // it takes its full size
        const double scale = capture.width() / 1600.0;
        const double top = (capture.height() - 400 * scale) / 2;
        const auto at = [&](int x, int y) { return QPointF(x * scale, top + y * scale).toPoint(); };
        QTest::mouseClick(&capture, Qt::LeftButton, {}, at(10, 10)); // no part
        QTest::mousePress(&capture, Qt::LeftButton, {}, at(1320, 120));
        QTest::mouseMove(&capture, at(1480, 280));
        checkScreen(capture, u"CaptureORVAClass"_s);
        QTest::mouseRelease(&capture, Qt::LeftButton, {}, at(1480, 280));
    });
    photoBox().findChild<QMenu*>()->actions().first()->trigger();
    for (const QPoint& corner : {QPoint(1, 1), QPoint(65, 85)})
        EXPECT_EQ(photo(1).pixelColor(corner), QColor(Qt::blue));
    whenAsked([](QWidget& capture) { press(capture, Qt::Key_Escape); });
    clickName(1);
    emit photoBox().captureWanted();
    EXPECT_TRUE(photo(3).isNull());
    checkScreen(*window, u"RegisterFrm_photo"_s);
}

TEST_F(PupilScreenTest, PhotosAreLoadedAndRemoved) {
    QImage picture(300, 400, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const QString file = folder.filePath(u"ann.png"_s);
    picture.save(file);
    show();
    window->showView(PupilInformationView);
    PhotoBox* box = &photoBox();
    seams.prompts.expect(PromptKind::File, u" Load Picture:"_s, file);
    emit box->fileWanted();
    EXPECT_EQ(photo(1).size(), StandardPhoto * 2);
    EXPECT_EQ(photo(1).pixelColor(5, 5), QColor(Qt::red));
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::Plain, u"Delete Photo"_s, answer);
        QTest::keyClick(box, Qt::Key_Delete);
        EXPECT_EQ(photo(1).isNull(), answer == AnswerYes);
    }
    EXPECT_EQ(of(1, u"Photo"_s), QString());
    picture = QImage(100, 87, QImage::Format_RGB32); // room for one pupil and a half
    picture.fill(Qt::green);
    picture.save(file);
    seams.prompts.expect(PromptKind::File, u" Load Class Pictures From:"_s, file);
    QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(photo(1).pixelColor(60, 5), QColor(Qt::green));
    EXPECT_EQ(photo(3).pixelColor(60, 5), QColor(Qt::white)); // the second by surname
    EXPECT_FALSE(photo(2).isNull());
    seams.prompts.expect(PromptKind::Plain, u"Capture Image"_s, AnswerOk);
    emit box->captureWanted(); // the desktop gives no picture
    QFile(file).resize(20);
    seams.prompts.expect(PromptKind::File, u" Load Picture:"_s, file);
    seams.prompts.expect(PromptKind::Plain, u" Load Picture:"_s, AnswerOk);
    QTest::mouseDClick(box, Qt::LeftButton);
    EXPECT_FALSE(photo(1).isNull());
    seams.prompts.expect(PromptKind::Plain, u"Delete Photos"_s, AnswerYes);
    QTest::keyClick(box, Qt::Key_D, Qt::ControlModifier);
    EXPECT_TRUE(photo(3).isNull());
}

TEST_F(PupilScreenTest, NotesHaveCategoriesOfTheTeachersOwn) {
    show();
    window->showView(PupilNotesView);
    auto& note = control<RichTextBox>(*window, u"RTFnotes"_s);
    EXPECT_FALSE(note.isEnabled());
    const auto add = [this](const QString& title, const QString& refusal = {}) {
        seams.prompts.expect(PromptKind::Selector, u"Create Notes Category"_s,
                             NewField{title, dao::DataType::Memo});
        if (!refusal.isEmpty())
            seams.prompts.expect(PromptKind::Plain, refusal, AnswerOk);
        control<QToolButton>(*window, u"cmdAddNotes"_s).click();
    };
    add(u"Report"_s);
    ASSERT_TRUE(note.isEnabled());
    note.setFocus();
    QTest::keyClicks(&note, u"Works well"_s);
    add(u"Target"_s);
    EXPECT_EQ(note.plainText(), QString());
    QTest::keyClicks(&note, u"Spelling"_s);
    auto& categories = control<QListWidget>(*window, u"CL5"_s);
    categories.setCurrentRow(0);
    EXPECT_EQ(note.plainText(), u"Works well"_s);
    clickName(1);
    EXPECT_EQ(note.plainText(), QString());
    clickName(0);
    EXPECT_EQ(note.plainText(), u"Works well"_s);
    checkScreen(*window, u"RegisterFrm_notes"_s);
    seams.prompts.expect(PromptKind::Plain, u"Delete Category"_s, AnswerYes);
    control<QToolButton>(*window, u"cmdDeleteNotes"_s).click();
    EXPECT_EQ(categories.count(), 1);
    add(u"Report"_s);
    EXPECT_EQ(note.plainText(), QString());
    add(u"a.b"_s, u"Invalid Category Name"_s);
    note.setFocus();
    note.selectAll();
    menuItem(u"13"_s).trigger(); // every size, not the usual choice
    QTest::keyClicks(&note, u"big"_s);
    EXPECT_EQ(note.currentCharFormat().fontPointSize(), 13);
}

TEST_F(PupilScreenTest, ALessonNoteGoesWithItsPupilAndDay) {
    showRegister();
    menuItem(u"Display Panel"_s).trigger();
    auto& note = control<QPlainTextEdit>(*window, u"TxtLessonNotes"_s);
    control<QCheckBox>(*window, u"chkNotes"_s).click();
    ASSERT_TRUE(note.isEnabled());
    const int lesson = grid().currentIndex().column();
    note.setFocus();
    QTest::keyClicks(&note, u"Late bus"_s);
    clickName(1);
    EXPECT_EQ(note.toPlainText(), QString());
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Ldate,Lcode,Lpupil,Lnotes FROM Lesson_Notes"_s),
              QStringList{u"09/09/24|D|1|Late bus"_s});
    clickName(0);
    EXPECT_EQ(note.toPlainText(), u"Late bus"_s);
    checkScreen(*window, u"RegisterFrm_panel"_s);
    note.selectAll();
    QTest::keyClick(&note, Qt::Key_Delete);
    grid().setCurrentIndex(grid().model()->index(0, PupilSheet::TutorColumn));
    EXPECT_FALSE(note.isEnabled());
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT * FROM Lesson_Notes"_s), QStringList());
    const LessonNotePlace place{u"09/09/24"_s, u"D"_s, 3};
    const QString twoLines = u"one\r\ntwo"_s;
    storeLessonNote(session.CurrentDB, place, twoLines);
    grid().setCurrentIndex(grid().model()->index(1, lesson));
    EXPECT_EQ(note.toPlainText(), u"one\ntwo"_s);
    clickName(0);
    EXPECT_EQ(lessonNote(session.CurrentDB, place), twoLines); // not written for being looked at
}

TEST_F(PupilScreenTest, PupilsComeAndGoByTheTaskList) {
    show();
    seams.prompts.expect(PromptKind::Input, u"Enter Pupil Name:"_s, u"Mary Jane Abel"_s);
    runTask(0);
    EXPECT_EQ(names().currentIndex().data().toString(), u"Jane Abel"_s);
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT ID FROM REG_D WHERE ID = 4"_s).size(), 1);
    seams.prompts.expect(PromptKind::Message, u"Delete Pupil:"_s, BoxAnswer{AnswerYes, true});
    runTask(3);
    EXPECT_EQ(names().model()->rowCount(), 3);
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT ID FROM Marks_D WHERE ID = 4"_s), QStringList());
    seams.prompts.expect(PromptKind::Message, u"Remove ALL Pupils"_s, AnswerYes);
    auto& tasks = control<QListWidget>(*window, u"TaskList"_s);
    QTest::keyPress(&tasks, Qt::Key_Control);
    runTask(3, Qt::ControlModifier);
    EXPECT_EQ(names().model()->rowCount(), 0);
    EXPECT_EQ(tasks.currentRow(), 0);
    seams.prompts.expect(PromptKind::Plain, u"Delete Pupils"_s, AnswerOk);
    runTask(3);
}

TEST_F(PupilScreenTest, ACopiedClassListShowsAtOnce) {
    show();
    const QSignalSpy changes(&session.GetNotices(), &Notices::pupilsChanged);
    QGuiApplication::clipboard()->setText(u"Dale\tDi\t7T\n"_s);
    seams.prompts.expect(PromptKind::Message, u"Import Class List"_s, AnswerYes);
    runTask(2);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(names().model()->rowCount(), 4);
    QGuiApplication::clipboard()->clear();
    seams.prompts.expect(PromptKind::File,
                         u"Please select the file that contains your class list:"_s);
    runTask(2);
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(PupilScreenTest, TheWizardMakesAClass) {
    show();
    whenAsked([this](QWidget& wizard) {
        auto& code = control<QLineEdit>(wizard, u"TxtCode"_s);
        auto& next = control<QPushButton>(wizard, u"cmdNext"_s);
        checkScreen(wizard, u"NewClassFrm_code"_s);
        seams.prompts.expect(PromptKind::Plain, u"Invalid Character"_s, AnswerOk);
        QTest::keyClicks(&code, u"d "_s);
        EXPECT_EQ(code.text(), u"D"_s);
        seams.prompts.expect(PromptKind::Plain, u"New Class Setup"_s, AnswerOk);
        next.click();
        EXPECT_EQ(code.text(), QString());
        QTest::keyClicks(&code, u"x1"_s);
        next.click();
        EXPECT_EQ(next.text(), u"Finish >>"_s);
        auto& week = control<QTableWidget>(wizard, u"TimetableA"_s);
        seams.prompts.expect(PromptKind::Plain, u"Period unavailable"_s, AnswerOk);
        emit week.cellClicked(1, 0);
        emit week.cellClicked(0, 0);
        week.setCurrentCell(0, 4);
        QTest::keyClick(&week, Qt::Key_Space);
        EXPECT_EQ(week.item(0, 4)->text(), u"X1"_s);
        checkScreen(wizard, u"NewClassFrm_timetable"_s);
        next.click();
    });
    const QSignalSpy changes(&session.GetNotices(), &Notices::classesChanged);
    runTask(1);
    EXPECT_EQ(window->desk().classCode(), u"X1"_s);
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Mon,Fri FROM Classcodes WHERE Classcode = 'X1'"_s),
              QStringList{u"1|1"_s});
    EXPECT_EQ(changes.size(), 1);
    EXPECT_TRUE(session.CurrentDB.TableDefs()[u"Class_X1"_s].Fields().Contains(u"PID"));
    whenAsked([this](QWidget& wizard) {
        seams.prompts.expect(PromptKind::Plain, u"Cancel"_s, AnswerYes);
        control<QPushButton>(wizard, u"cmdCancel"_s).click();
    });
    runTask(1);
    EXPECT_EQ(control<QListWidget>(*window, u"ClassList"_s).count(), 3);
}
