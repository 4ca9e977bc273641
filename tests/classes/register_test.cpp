// The register: its records, marks, and what is counted from them.

#include "classes/class_settings.h"
#include "classes/class_views.h"
#include "classes/register_keys.h"
#include "classes/register_lessons.h"
#include "classes/register_marking.h"
#include "core/settings.h"
#include "support/class_file.h"

#include <QAbstractItemModelTester>

namespace {

/// A year with one timetable from Monday 2 to Friday 20 September 2024, and one class, D, with
/// three pupils: Monday 2 and 3, Tuesday 2 and 4, Wednesday 1 to 3, Thursday 5.
class RegisterTest : public testing::Test {
protected:
    RegisterTest() : file(answers()), database(file.open()) {
        addPupils(database, code, {u"Ames,Ann"_s, u"O'Brien,Zoë"_s, u"Cole"_s});
        open();
    }

    static YearAnswers answers() {
        YearAnswers answers = oneWeekAnswers();
        answers.terms = {{QDate(2024, 9, 2), QDate(2024, 9, 20)}};
        const QString d = u"D"_s;
        answers.classes = {d};
        answers.colours.clear();
        answers.weekA = {QStringList{{}, d, d}, {{}, d, {}, d}, {d, d, d}, {{}, {}, {}, {}, d}, {}};
        return answers;
    }

    void open() { model.setSheet(*openRegister(database, code, {}, seams.prompts)); }
    const PupilSheet& sheet() const { return model.sheet(); }
    /// The column of a date's n-th lesson.
    int columnOf(int day, int place = 0) const {
        return *currentLessonColumn(sheet(), QDate(2024, 9, day)) + place;
    }
    QString marksOf(int pupil) const { return marksInFile(database, u"D"_s, pupil); }

    const QString code = u"D"_s;
    TestSeams seams;
    YearFile file;
    dao::Database database;
    PupilSheetModel model;
};

} // namespace

TEST_F(RegisterTest, TheGridIsNamesTutorAndLessons) {
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(sheet().columns().mid(0, 6).join(u'|'),
              u"Surname|Firstname|Tutor|ID|02/09/24 1|02/09/24 2"_s);
    EXPECT_EQ(sheet().columnCount(), 4 + 24);
    EXPECT_EQ(sheet().rowCount(), 3);
    EXPECT_EQ(sheet().text(1, PupilSheet::SurnameColumn), u"Cole"_s); // by surname
    EXPECT_EQ(sheet().pupil(1), 3);
    model.write(1, {{PupilSheet::TutorColumn, u"7T"_s}}); // goes to the pupils' own table
    EXPECT_EQ(rowsOf(database, u"SELECT Tutor FROM Class_D WHERE ID = 3"_s), QStringList{u"7T"_s});
    open();
    EXPECT_EQ(sheet().text(1, PupilSheet::TutorColumn), u"7T"_s);
}

TEST_F(RegisterTest, DoubleLessonsInEveryShape) {
    struct Case {
        int day;
        int place;
        bool isDouble;
        const char* shape;
    };
    for (const Case& each : {Case{2, 0, true, "two adjacent periods"},
                             {2, 1, false, "the second of them"},
                             {3, 0, false, "two periods with a gap"},
                             {4, 0, false, "three periods"},
                             {5, 0, false, "one period"},
                             {19, 0, false, "the last column"}}) {
        const int column = columnOf(each.day, each.place);
        EXPECT_EQ(doubleLessonColumn(database, code, sheet(), column).has_value(), each.isDouble)
            << each.shape;
    }
    enterMark(database, code, model, 0, columnOf(2), u"L"_s);
    enterMark(database, code, model, 0, columnOf(3), u"/"_s);
    EXPECT_EQ(marksOf(1), u"LL/....................."_s);
    EXPECT_EQ(sheet().text(0, columnOf(2, 1)), u"L"_s);

    // The timetable of week A alone decides, as it stands now.
    changeRecord(database, ClasscodesTable, u"Mon"_s, u"24"_s);
    changeRecord(database, ClasscodesTable, u"Tue"_s, u"45"_s);
    EXPECT_FALSE(doubleLessonColumn(database, code, sheet(), columnOf(2)));
    EXPECT_TRUE(doubleLessonColumn(database, code, sheet(), columnOf(3)));
}

TEST_F(RegisterTest, LessonsHaveTheirPeriods) {
    const ClassPeriods periods = pickedPeriods(
        newClass(database, u"X"_s, ClassPeriods{{u"15"_s, u"1"_s, u"45"_s, {}, {}}, {}}));
    EXPECT_EQ(lessonPeriod(sheet(), columnOf(2), periods, u'A'), 1);
    EXPECT_EQ(lessonPeriod(sheet(), columnOf(2, 1), periods, u'A'), 5);
    EXPECT_EQ(lessonPeriod(sheet(), columnOf(4, 1), periods, u'A'), 5);
    EXPECT_EQ(lessonPeriod(sheet(), columnOf(4, 2), periods, u'A'), std::nullopt);
    EXPECT_EQ(lessonPeriod(sheet(), PupilSheet::TutorColumn, periods, u'A'), std::nullopt);
}

TEST_F(RegisterTest, KeysMarkOrNot) {
    QTemporaryDir folder;
    Settings settings(folder.filePath(u"settings"_s));
    settings.set(Setting<QString>{setting::RegisterKey, u"L"}, u"late"_s);
    settings.set(Setting<QString>{setting::RegisterKey, u"m"}, u"at music"_s);
    KeyArray keys = readRegisterKeys(settings, seams.prompts);
    EXPECT_EQ(keys.lines, (QStringList{u"L=late"_s, u"m=at music"_s}));
    EXPECT_EQ(markLines(keys).size(), keys.marks.size());
    struct Case {
        QString key;
        KeyEffect effect;
        QString mark;
    };
    for (const Case& each : {Case{u"/"_s, KeyEffect::Mark, u"/"_s},
                             {u"\\"_s, KeyEffect::Mark, u"\\"_s},
                             {u"o"_s, KeyEffect::Mark, u"O"_s},
                             {u"l"_s, KeyEffect::Mark, u"L"_s},
                             {u"m"_s, KeyEffect::Mark, u"M"_s},
                             {u"0"_s, KeyEffect::Mark, u"O"_s}, // as the panel writes it
                             {u"x"_s, KeyEffect::Discard, {}},
                             {u""_s, KeyEffect::Discard, {}},
                             {u"\x1B"_s, KeyEffect::Pass, {}},
                             {u"\b"_s, KeyEffect::Pass, {}}}) {
        QString mark;
        EXPECT_EQ(registerKey(keys, each.key, mark), each.effect) << each.key.toStdString();
        EXPECT_EQ(mark, each.mark);
    }
    const QString broken =
        writeFile(folder.filePath(u"broken"_s), "[Software\\Q.R.L.\\ORVA\\Register\\Key]\n"
                                                ".=\n0=ill\nz=dword:x\n");
    seams.prompts.expect(PromptKind::Plain, u"Error getting Keycodes"_s, AnswerOk);
    keys = readRegisterKeys(Settings(broken), seams.prompts);
    QString mark;
    EXPECT_EQ(registerKey(keys, u"0"_s, mark), KeyEffect::Mark);
    EXPECT_EQ(mark, u"0"_s) << "a mark of the teacher's own, though another could not be read";
    seams.prompts.expect(PromptKind::Message, u"To many characters"_s, AnswerOk);
    EXPECT_FALSE(checkMarkText(u"OO"_s, {}, seams.prompts));
    EXPECT_TRUE(checkMarkText(u"O"_s, {}, seams.prompts));
}

TEST_F(RegisterTest, FillSparesWhatIsMarked) {
    const int column = columnOf(2);
    model.write(1, {{column, u"O"_s}});
    fillRegister(model, column, RegisterFill::Present);
    EXPECT_EQ(marksOf(1).left(2) + marksOf(2).left(2) + marksOf(3).left(2), u"/./.O."_s);
    EXPECT_EQ(sheet().text(0, column), u"/"_s);
    fillRegister(model, column, RegisterFill::ClearAll);
    EXPECT_EQ(rowsOf(database, u"SELECT ID FROM REG_D WHERE [02/09/24 1] = ''"_s).size(), 3);
    fillRegister(model, column, RegisterFill::Absent);
    EXPECT_EQ(marksOf(2).left(1), u"O"_s);
    EXPECT_FALSE(canFill(PupilSheet::TutorColumn));
    EXPECT_TRUE(canFill(PupilSheet::FirstOwnColumn));
}

TEST_F(RegisterTest, WhatWasDoneIsUndoneAndDoneAgain) {
    const int column = columnOf(2);
    enterMark(database, code, model, 0, column, u"L"_s); // a double lesson is one step
    fillRegister(model, column, RegisterFill::Present);
    fillRegister(model, column, RegisterFill::ClearAll);
    const auto marks = [this] {
        return (marksOf(1).left(2) + marksOf(2).left(2) + marksOf(3).left(2));
    };
    EXPECT_EQ(marks(), u".L...."_s);
    EXPECT_EQ(model.undo(), model.index(0, column));
    EXPECT_EQ(marks(), u"LL/./."_s);
    model.setSheet(PupilSheet(database, registerSource(code, u" WHERE Surname = 'Ames'"_s)));
    EXPECT_FALSE(model.undo().isValid()); // nothing changes that nobody sees
    EXPECT_EQ(marks(), u"LL/./."_s);
    open();
    EXPECT_TRUE(model.undo().isValid() && model.undo().isValid());
    EXPECT_EQ(marks(), u"......"_s);
    EXPECT_TRUE(rowsOf(database, u"SELECT ID FROM REG_D WHERE [02/09/24 1] = ''"_s).isEmpty());
    EXPECT_FALSE(model.undo().isValid());
    EXPECT_TRUE(model.redo().isValid() && model.redo().isValid());
    EXPECT_EQ(marks(), u"LL/./."_s);
    enterMark(database, code, model, 1, column, u"O"_s);
    EXPECT_FALSE(model.redo().isValid()); // another way was taken
    model.history().renameField(sheet().columns()[column], u"gone"_s);
    model.history().forgetFields({u"gone"_s}); // leaves the second lesson's mark
    EXPECT_EQ(model.undo(), model.index(1, column + 1));
    EXPECT_EQ(model.undo(), model.index(0, column + 1));
    EXPECT_FALSE(model.undo().isValid());
}

TEST_F(RegisterTest, TheSummaryKeepsItsArithmetic) {
    const auto remaining = [this](int day) {
        return currentLessonText(sheet(), QDate(2024, 9, day)).section(u'\n', 2);
    };
    EXPECT_EQ(currentLessonText(sheet(), QDate(2024, 9, 1)),
              u"3 Pupils.\n24 Total Lessons.\n23 Remaining."_s);
    EXPECT_EQ(remaining(2), u"21 Remaining."_s);  // the next is lesson 3, on the day after
    EXPECT_EQ(remaining(18), u"0 Remaining."_s);  // the last one is the next
    EXPECT_EQ(remaining(19), u"24 Remaining."_s); // none lies after today: all again
}

TEST_F(RegisterTest, TheCurrentLesson) {
    EXPECT_EQ(currentLessonColumn(sheet(), QDate(2024, 9, 1)), 4);
    EXPECT_EQ(currentLessonColumn(sheet(), QDate(2024, 9, 2)), 4);
    EXPECT_EQ(currentLessonColumn(sheet(), QDate(2024, 9, 3)), 6);
    EXPECT_EQ(currentLessonColumn(sheet(), QDate(2024, 9, 20)), std::nullopt);
    EXPECT_EQ(firstColumnInView(5, 3), PupilSheet::TutorColumn);
    EXPECT_EQ(planningDate(sheet(), 6, {}), QDate(2024, 9, 3));
    EXPECT_EQ(planningDate(sheet(), 6, {4}), QDate(2024, 9, 2));
    EXPECT_EQ(planningDate(sheet(), 6, {4, 5}), QDate(2024, 9, 3));
    EXPECT_EQ(planningDate(sheet(), PupilSheet::TutorColumn, {}), std::nullopt);
}

TEST_F(RegisterTest, AttendanceStopsBeforeToday) {
    model.write(0, {{columnOf(2), u"O"_s}, {columnOf(3), u"L"_s}, {columnOf(4), u"O"_s}});
    struct Case {
        int day;
        QString text;
    };
    for (const Case& each :
         {Case{2, u"Ann Ames has been absent 0 out of 0 lessons."_s},
          {3, u"Ann Ames has been absent 1 out of 2 lessons.\n50% attendance."_s},
          {4, u"Ann Ames has been absent 1 out of 4 lessons.\n75% attendance."_s},
          {9, u"Ann Ames has been absent 2 out of 8 lessons.\n75% attendance."_s},
          {30, u"Ann Ames has been absent 2 out of 24 lessons.\n92% attendance."_s}}) {
        seams.prompts.expect(PromptKind::Plain, u"Attendance"_s, AnswerOk);
        showAttendance(sheet(), 0, QDate(2024, 9, each.day), seams.prompts);
        EXPECT_EQ(seams.prompts.last().text, each.text);
    }
    // A half goes to the even number.
    EXPECT_EQ((Attendance{1, 8}.percent()), 88);
    EXPECT_EQ((Attendance{3, 8}.percent()), 62);
    EXPECT_EQ((Attendance{17, 40}.percent()), 58);
}

TEST_F(RegisterTest, LessonsRemainingWantsADateOfTheYear) {
    struct Case {
        QString typed;
        QString title; ///< of the answer
        QString text;
    };
    const QString invalid = u"This date (%1) is not a valid date within the accademic year "
                            "2024-2025\n\nPlease check it was entered in the correct format: "
                            "dd/MM/yyyy"_s;
    const QDate today(2024, 9, 9);
    const QLocale british(QLocale::English, QLocale::UnitedKingdom);
    const QString month = u"dd MMM yyyy"_s;
    for (const Case& each :
         {Case{{}, {}, {}}, Case{u"soon"_s, u"Invalid Date"_s, invalid.arg(u"soon"_s)},
          Case{u"11/09/2026"_s, u"Invalid Date"_s, invalid.arg(u"11/09/2026"_s)},
          Case{u"10/09/2024"_s, u"Invalid Date"_s, u"This date has already past!"_s},
          Case{u"01/09/2024"_s, u"Invalid Date"_s, u"This date has already past!"_s},
          Case{u"11/09/2024"_s, u"Lessons Remaining"_s,
               u"There are 7 lessons from now until the "_s +
                   british.toString(QDate(2024, 9, 11), month) + u" (inclusive)."_s},
          Case{u"01/07/2025"_s, u"Lessons Remaining"_s,
               u"There are 16 lessons from now until the 01 Jul 2025 (inclusive)."_s}}) {
        seams.prompts.expect(PromptKind::Input, u"Enter a valid date"_s, each.typed);
        if (!each.title.isEmpty())
            seams.prompts.expect(PromptKind::Plain, each.title, AnswerOk);
        showLessonsRemaining(sheet(), today, u"2024-2025"_s, british, seams.prompts);
        if (!each.title.isEmpty()) {
            EXPECT_EQ(seams.prompts.last().text, each.text);
        }
    }
}

TEST_F(RegisterTest, SelectedPupilsAreShownAlone) {
    PupilSelection selection;
    EXPECT_EQ(selection.clauseForView(sheet(), false), QString());
    selection.click(sheet(), 0);
    EXPECT_TRUE(selection.pupils().isEmpty());

    selection.setMultiSelect(true);
    selection.toggleMultiselect();
    EXPECT_EQ(selection.clauseForView(sheet(), false), QString()); // nobody is selected yet
    for (const int row : {2, 0, 1, 0})
        selection.click(sheet(), row);
    const QString clause = selection.clauseForView(sheet(), false);
    EXPECT_EQ(clause, u" WHERE Surname = 'O''Brien' AND Firstname = 'Zoë' OR Surname = 'Cole' AND "
                      "(Firstname Is Null OR Firstname = '')"_s);
    model.setSheet(*openRegister(database, code, clause, seams.prompts));
    EXPECT_EQ(sheet().pupils(), (QList<qint64>{3, 2}));
    selection.click(sheet(), 0);
    EXPECT_EQ(selection.clauseForView(sheet(), false), clause); // once on, it stays
    selection.rename({u"Cole"_s, {}}, {u"Cole"_s, u"Ed"_s});
    EXPECT_TRUE(selection.clauseForView(sheet(), false).endsWith(u"AND Firstname = 'Ed'"_s));
    selection.setMultiSelect(false);
    EXPECT_EQ(selection.clauseForView(sheet(), false), QString());
    EXPECT_FALSE(selection.isFiltered());
    selection.setMultiSelect(true);
    EXPECT_EQ(selection.clauseForView(sheet(), false), QString()); // the old picks are gone
}

TEST_F(RegisterTest, PickedPupilsOfOneNameAreNotToldApart) {
    addPupils(database, code, {u"Ames,Ann"_s});
    open();
    PupilSelection selection;
    selection.setMultiSelect(true);
    selection.click(sheet(), 0);
    EXPECT_TRUE(selection.isSelected(sheet(), 1));
    model.setSheet(
        *openRegister(database, code, selection.clauseForView(sheet(), false), seams.prompts));
    EXPECT_EQ(sheet().rowCount(), 2);
    EXPECT_EQ(rowOfPupil(sheet(), 4), 1);
    EXPECT_EQ(rowOfPupil(sheet(), 3), 0); // not among them
    // A query that is active takes all that it found.
    EXPECT_EQ(selection.clauseForView(sheet(), true),
              u" WHERE Surname = 'Ames' AND Firstname = 'Ann' OR Surname = 'Ames' AND Firstname = "
              "'Ann'"_s);
}

TEST_F(RegisterTest, AMarkThatIsNotTakenChangesNothing) {
    EXPECT_THROW(model.write(0, {{columnOf(2), u"/"_s}, {columnOf(2, 1), u"//"_s}}),
                 dao::EngineError);
    EXPECT_EQ(sheet().text(0, columnOf(2)), QString());
    EXPECT_EQ(marksOf(1).left(2), u".."_s);
    model.write(0, {{columnOf(2), u"/"_s}});
    EXPECT_EQ(marksOf(1).left(2), u"/."_s);
}
