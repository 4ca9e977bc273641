// The weeks A and B of a year swapped, against years that were made with the other letters, and
// what an interruption at any step leaves behind.

#include "year/week_change.h"

#include "core/dates.h"
#include "planning/sheet_making.h"
#include "support/class_file.h"
#include "support/engine_kill.h"
#include "support/year_session.h"
#include "year/backup.h"
#include "year/week_choice.h"
#include "year/week_swap.h"

#include <QFileInfo>

#include <unistd.h>

namespace {

/// Ends the process at one of the steps that are shown.
class EndingProgress : public RecordingProgress {
public:
    explicit EndingProgress(int steps) : m_left(steps) {}
    void UpdateProgress(int, const QString&, const QString&) override {
        if (--m_left < 0)
            _exit(1);
    }

private:
    int m_left;
};

/// Every sheet: date, week, letter, classes and the text of the first lesson.
QStringList sheetsOf(const dao::Database& database) {
    return rowsOf(database,
                  u"SELECT PlanDate, Week, ABWeek, Class1, Class2, Class3, Class4, Class5, "
                  "Lesson1 FROM Planning ORDER BY PlanDate"_s);
}

QString columnsOf(const dao::Database& database, const QString& classCode) {
    return fieldNames(database, registerTable(classCode)).join(u'|');
}

/// A year of three teaching weeks from week B on (year_file.h), and everything that a change needs.
class WeekChangeTest : public YearSession {
protected:
    WeekChangeTest() {
        session.Start(path(u"app"_s));
        start(twoWeekAnswers());
    }

    void start(const YearAnswers& answers) {
        openYear(answers);
        session.DatabasePath = path();
    }
    /// A pupil with a mark in every lesson, and a plan on every sheet.
    void work(const QString& classCode) {
        addPupils(session.CurrentDB, classCode, {u"Ames,Ann"_s});
        dao::Recordset marks = rows(registerTable(classCode));
        marks.Edit();
        for (int lesson = 1; lesson < marks.FieldCount(); ++lesson)
            marks.SetCollect(lesson, u"/"_s);
        marks.Update();
        for (dao::Recordset sheets = rows(PlanningTable); !sheets.EOF_(); sheets.MoveNext()) {
            sheets.Edit();
            sheets.SetCollect(u"Lesson1", u"plan"_s);
            sheets.Update();
        }
    }
    dao::Database yearWith(YearAnswers answers, const QString& startWeek) {
        answers.startWeek = startWeek;
        createYear(answers, path(u"expected.mdb"_s), seams, ExistingFile::Replace);
        return engine.OpenDatabase(path(u"expected.mdb"_s));
    }
    QString backup(int number) {
        return session.FolderDefaults[BackupFolder].folder + u"year.00%1"_s.arg(number);
    }
    QStringList plansIn(const QString& file) {
        return rowsOf(engine.OpenDatabase(file),
                      u"SELECT PlanDate FROM Planning WHERE Lesson1 = 'plan'"_s);
    }
};

} // namespace

TEST_F(WeekChangeTest, FromTheFirstWeekItIsAYearThatBeganWithTheOtherLetter) {
    work(u"7A"_s);
    ASSERT_EQ(ReallocateWeeks(session, 1), WeeksChanged);
    EXPECT_EQ(seams.progress.title, u"Changing Week Allocations :"_s);
    EXPECT_FALSE(seams.progress.isOpen);
    const dao::Database expected = yearWith(twoWeekAnswers(), u"A"_s);
    EXPECT_EQ(sheetsOf(session.CurrentDB), sheetsOf(expected));
    for (const QString& code : {u"7A"_s, u"9C"_s})
        EXPECT_EQ(columnsOf(session.CurrentDB, code), columnsOf(expected, code));
    EXPECT_EQ(marksInFile(session.CurrentDB, u"7A"_s, 1), u"....."_s);
    EXPECT_EQ(session.StartWeek, u"B"_s) << "it stays as it was";
    EXPECT_FALSE(unfinishedWeekChange(session.CurrentDB));
    EXPECT_EQ(plansIn(backup(2)).size(), 13) << "the year as it was";
    EXPECT_EQ(plansIn(backup(1)).size(), 0);
    EXPECT_EQ(unfinishedWeekChange(engine.OpenDatabase(backup(1))), 1);
    EXPECT_EQ(session.CurrentDB.Relations().all().size(), 5);
}

TEST_F(WeekChangeTest, WhatLiesBeforeStays) {
    work(u"7A"_s);
    const QStringList before = sheetsOf(session.CurrentDB);
    // Lessons of 7A: 4 September in week B, 9, 9 and 13 September in week A, 25 September in B.
    ASSERT_EQ(columnsOf(session.CurrentDB, u"7A"_s),
              u"ID|04/09/24 1|09/09/24 2|09/09/24 3|13/09/24 4|25/09/24 5"_s);
    ASSERT_EQ(ReallocateWeeks(session, 3), WeeksChanged);
    EXPECT_EQ(sheetsOf(session.CurrentDB).first(8), before.first(8));
    EXPECT_EQ(sheetsOf(session.CurrentDB)[8], u"24-09-23|3|A|7A||7A|||~"_s);
    EXPECT_EQ(columnsOf(session.CurrentDB, u"7A"_s),
              u"ID|04/09/24 1|09/09/24 2|09/09/24 3|13/09/24 4|23/09/24 5|23/09/24 6|27/09/24 7"_s);
    EXPECT_EQ(marksInFile(session.CurrentDB, u"7A"_s, 1), u"////..."_s);
    EXPECT_EQ(columnsOf(session.CurrentDB, u"9C"_s), u"ID"_s) << "no lesson is left";
    EXPECT_EQ(ReallocateWeeks(session, 3), WeeksChanged) << "and back";
    EXPECT_EQ(columnsOf(session.CurrentDB, u"9C"_s), u"ID|23/09/24 1|23/09/24 2"_s);
}

TEST_F(WeekChangeTest, ASheetWithoutALetterBecomesOneOfWeekAWithoutClasses) {
    dao::Recordset sheets = rows(PlanningTable);
    AddNewPlan(session.CurrentDB, sheets, u"24-09-14"_s); // a Saturday
    sheets.Close();
    put(u"SELECT * FROM Planning WHERE PlanDate = '24-09-23'"_s, u"ABWeek"_s, {});
    ASSERT_EQ(ReallocateWeeks(session, 2), WeeksChanged);
    const QStringList changed = sheetsOf(session.CurrentDB);
    EXPECT_EQ(changed[8], u"24-09-14|2|A||||||~"_s);
    EXPECT_EQ(changed[9], u"24-09-23|3|A||||||~"_s);
    EXPECT_EQ(changed[13], u"24-09-27|3|A||7A||||~"_s);
}

TEST_F(WeekChangeTest, WhatIsMadeLaterGoesByTheNewLetters) {
    ASSERT_EQ(ReallocateWeeks(session, 2), WeeksChanged);
    rows(u"SELECT * FROM Planning WHERE PlanDate = '24-09-09'"_s).Delete();
    dao::Recordset sheets = rows(PlanningTable);
    AddNewPlan(session.CurrentDB, sheets, u"24-09-09"_s);
    EXPECT_EQ(sheets.Collect(u"Class1").toText(), u"9C"_s) << "week B now";
    const ClassPeriods mondays{{u"4"_s, {}, {}, {}, {}}, {u"5"_s, {}, {}, {}, {}}};
    ASSERT_TRUE(createClass(session.CurrentDB, newClass(session.CurrentDB, u"N"_s, mondays),
                            seams.prompts));
    EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT PlanDate, Class4, Class5 FROM Planning WHERE "
                                        "Class4 = 'N' OR Class5 = 'N' ORDER BY PlanDate"_s),
              (QStringList{u"24-09-09|~|N"_s, u"24-09-23|N|"_s}));
}

TEST_F(WeekChangeTest, ARegisterTakesAsManyLessonsAsATableHolds) {
    YearAnswers answers = twoWeekAnswers();
    answers.terms = {{QDate(2024, 9, 2), QDate(2025, 3, 7)}}; // 27 weeks of 9 and 10 lessons
    for (QStringList& day : answers.weekA)
        day = {u"7A"_s, u"7A"_s};
    answers.weekB = answers.weekA;
    answers.weekB[4] = {u"7A"_s};
    seams.prompts.expect(PromptKind::Plain, u"Too many fields"_s, AnswerOk);
    start(answers);
    seams.prompts.expect(PromptKind::Plain, u"Too many fields"_s, AnswerOk);
    ASSERT_EQ(ReallocateWeeks(session, 2), WeeksChanged);
    const QStringList columns = fieldNames(session.CurrentDB, u"REG_7A"_s);
    EXPECT_EQ(columns.size(), dao::MaximumFields);
    EXPECT_TRUE(columns.last().endsWith(u" 254"_s));
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"The register for 7A may be limited"_s));
}

TEST_F(WeekChangeTest, NothingIsBegunWithoutABackup) {
    work(u"7A"_s);
    const QStringList before = sheetsOf(session.CurrentDB);
    session.FolderDefaults[BackupFolder] = {
        .label = {}, .folder = path(u"gone/"_s), .shortFolder = {}};
    seams.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
    EXPECT_EQ(ReallocateWeeks(session, 1), WeeksUnchanged);
    EXPECT_EQ(sheetsOf(session.CurrentDB), before) << "and the year is open";
    for (const short week : {4, 9}) {
        seams.prompts.expect(PromptKind::Plain, u"Change week allocations"_s, AnswerOk);
        EXPECT_EQ(ReallocateWeeks(session, week), WeeksUnchanged);
    }
    start(oneWeekAnswers());
    seams.prompts.expect(PromptKind::Plain, u"Change week allocations"_s, AnswerOk);
    EXPECT_EQ(ReallocateWeeks(session, 1), WeeksUnchanged);
}

TEST_F(WeekChangeTest, AFailureInTheFirstHalfLeavesTheYearAsItWas) {
    put(u"SELECT * FROM Planning WHERE PlanDate = '24-09-27'"_s, u"PlanDate"_s, u"no date"_s);
    const QStringList before = sheetsOf(session.CurrentDB);
    const QString columns = columnsOf(session.CurrentDB, u"7A"_s);
    seams.prompts.expect(PromptKind::Plain, u"Change week allocations"_s, AnswerOk);
    EXPECT_EQ(ReallocateWeeks(session, 1), WeeksUnchanged);
    EXPECT_EQ(sheetsOf(session.CurrentDB), before);
    EXPECT_EQ(columnsOf(session.CurrentDB, u"7A"_s), columns);
    EXPECT_FALSE(unfinishedWeekChange(session.CurrentDB));
}

TEST_F(WeekChangeTest, WhatIsHalfDoneIsFinishedWhenThatIsAgreedTo) {
    const QString question = u"Change week allocations"_s;
    swapWeeks(session.CurrentDB, session.PeriodsPerDay, 3, seams.progress);
    seams.prompts.expect(PromptKind::Message, question, AnswerNo);
    EXPECT_FALSE(OfferToFinishWeekChange(session));
    EXPECT_TRUE(seams.prompts.last().text.contains(u"from week Monday 23/09/2024 onwards"_s));
    const ClassPeriods mondays{{u"4"_s, {}, {}, {}, {}}, {}};
    ASSERT_TRUE(createClass(session.CurrentDB, newClass(session.CurrentDB, u"N"_s, mondays),
                            seams.prompts));
    // Another change before it is finished.
    swapWeeks(session.CurrentDB, session.PeriodsPerDay, 2, seams.progress);
    swapWeeks(session.CurrentDB, session.PeriodsPerDay, 3, seams.progress);
    EXPECT_EQ(unfinishedWeekChange(session.CurrentDB), 2);
    seams.prompts.expect(PromptKind::Message, question, AnswerYes);
    EXPECT_TRUE(OfferToFinishWeekChange(session));
    EXPECT_TRUE(OfferToFinishWeekChange(session)) << "with no question";
    // B, B and A.
    EXPECT_EQ(columnsOf(session.CurrentDB, u"7A"_s),
              u"ID|04/09/24 1|11/09/24 2|23/09/24 3|23/09/24 4|27/09/24 5"_s);
    EXPECT_EQ(columnsOf(session.CurrentDB, u"N"_s), u"ID|23/09/24 1"_s);
}

TEST_F(WeekChangeTest, AFullDiskLeavesAYearThatCanBeFinished) {
    const QStringList before = sheetsOf(session.CurrentDB);
    {
        const FileSizeLimit full(QFileInfo(path()).size() / 2);
        seams.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
        EXPECT_EQ(ReallocateWeeks(session, 1), WeeksUnchanged);
        EXPECT_EQ(sheetsOf(session.CurrentDB), before);
    }
    swapWeeks(session.CurrentDB, session.PeriodsPerDay, 1, seams.progress);
    for (const bool isFull : {true, false}) {
        const FileSizeLimit limit(isFull ? 1024 : 100'000'000);
        seams.prompts.expect(PromptKind::Message, u"Change week allocations"_s, AnswerYes);
        if (isFull)
            seams.prompts.expect(PromptKind::Plain, u"Change week allocations"_s, AnswerOk);
        EXPECT_EQ(OfferToFinishWeekChange(session), !isFull);
        EXPECT_EQ(columnsOf(session.CurrentDB, u"7A"_s).count(u'/'), isFull ? 0 : 10);
    }
}

TEST_F(WeekChangeTest, AProtectedYearStaysProtected) {
    const QString password = u"geheim"_s;
    session.CurrentDB.NewPassword({}, password);
    session.CloseAllDatabases();
    ASSERT_EQ(session.OpenDatabaseFile(path(), password), OpenDone);
    EXPECT_EQ(ReallocateWeeks(session, 2), WeeksChanged);
    session.CloseAllDatabases();
    for (const QString& file : {path(), backup(1), backup(2)}) {
        EXPECT_EQ(errorOf([&] { engine.OpenDatabase(file); }), dao::WrongPassword);
        EXPECT_TRUE(engine.OpenDatabase(file, false, true, dao::connectText(password)).isOpen());
    }
}

TEST_F(WeekChangeTest, AKillAtAnyStepLeavesAYearThatCanBeFinished) {
    work(u"7A"_s);
    const QStringList before = sheetsOf(session.CurrentDB);
    session.CloseAllDatabases();
    ASSERT_TRUE(QFile::copy(path(), path(u"original.mdb"_s)));
    const dao::Database other = yearWith(twoWeekAnswers(), u"A"_s);
    const QStringList changedSheets = sheetsOf(other);
    const QString changedColumns = columnsOf(other, u"7A"_s);
    const BackupContext context = backupContext(session);
    int unchanged = 0;
    int halfDone = 0;
    for (int steps = 0, isDone = 0; !isDone; ++steps) {
        QFile::remove(path());
        ASSERT_TRUE(QFile::copy(path(u"original.mdb"_s), path()));
        isDone =
            statusOf([&] {
                EndingProgress ending(steps);
                dao::DBEngine own;
                Session killed(own, settings, {seams.prompts, ending, seams.shell, seams.clock},
                               yearOpening());
                killed.Start(path(u"app"_s));
                killed.OpenDatabaseFile(path(), {});
                return ReallocateWeeks(killed, 1) == WeeksChanged ? 0 : 2;
            }) == 0;
        settings.FlushRegistryKey(setting::Root); // the killed process wrote to the same file
        RecoverInterruptedBackup(context, path());
        ASSERT_EQ(session.OpenDatabaseFile(path(), {}), OpenDone) << steps;
        if (sheetsOf(session.CurrentDB) == before) {
            EXPECT_EQ(columnsOf(session.CurrentDB, u"7A"_s).count(u'/'), 10);
            ++unchanged;
        } else {
            ASSERT_EQ(sheetsOf(session.CurrentDB), changedSheets);
            halfDone += isDone ? 0 : 1;
            if (!isDone)
                seams.prompts.expect(PromptKind::Message, u"Change week allocations"_s, AnswerYes);
            ASSERT_TRUE(OfferToFinishWeekChange(session));
            ASSERT_EQ(columnsOf(session.CurrentDB, u"7A"_s), changedColumns);
        }
        session.CloseAllDatabases();
    }
    EXPECT_GT(unchanged, 20);
    EXPECT_GT(halfDone, 10);
}

TEST_F(WeekChangeTest, WhatTheWizardListsAndSays) {
    const QLocale english(QLocale::English, QLocale::UnitedKingdom);
    QStringList listed;
    for (const QDate start : weekStarts(session.CurrentDB))
        listed += weekStartText(start, english);
    EXPECT_EQ(listed, (QStringList{u"Wednesday 04/09/2024"_s, u"Monday 09/09/2024"_s,
                                   u"Monday 23/09/2024"_s}));
    EXPECT_EQ(load_Week_information(session.CurrentDB, 2),
              u"The selected Week start date is currently a Week 'A'\n\n"
              "This week will be changed to a week 'B'\n"
              "following weeks will be changed in accordance.\n\n"
              "Click on [Finish >>] to continue with the database alterations or click on [Cancel] "
              "to abort."_s);
}
