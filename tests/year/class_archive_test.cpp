// A class taken out of a year: what the archive holds and what it must not, and what a failure or a
// kill at any step leaves behind.

#include "year/class_archive.h"

#include "store/engine/names.h"
#include "store/schema.h"
#include "support/class_file.h"
#include "support/engine_kill.h"
#include "support/year_session.h"
#include "year/backup_settings.h"

#include <QDir>

#include <unistd.h>

namespace {

/// Ends the process at one of the steps that are shown.
class StepKill : public RecordingProgress {
public:
    explicit StepKill(int steps) : m_left(steps) {}
    void UpdateProgress(int, const QString&, const QString&) override {
        if (--m_left < 0)
            _exit(1);
    }

private:
    int m_left;
};

/// A year of 7A, 8X and 9C, each with pupils of names of its own.
class ClassArchiveTest : public YearSession {
protected:
    ClassArchiveTest() {
        session.Start(path(u"app"_s));
        QDir().mkpath(path(u"out"_s));
        openYear(twoWeekAnswers());
        for (const QString& code : {u"7A"_s, u"8X"_s, u"9C"_s})
            fill(code);
        session.DatabasePath = path();
    }

    /// Pupils in all that a class has: register, grades, plans in two rooms, lesson notes.
    void fill(const QString& code) {
        const dao::Database& year = session.CurrentDB;
        addPupils(year, code, {u"Surname%1,Forename%1"_s.arg(code), u"O'Brien%1"_s.arg(code)});
        for (const QString& room : {u""_s, u"R1"_s}) {
            const QString name = room.isEmpty() ? code : room + u'_' + code;
            dao::TableDef plan = schemaTableDef(Table::SeatingPlan, {}, name);
            plan.AppendRelation(classRelation(plan.Name(), code, plan.Name()));
            year.TableDefs().Append(plan);
            year.TableDefs().Append(schemaTableDef(Table::SeatingPlanExtra, {}, name));
        }
        dao::Recordset notes = rows(LessonNotesTable);
        notes.AddNew();
        notes.SetCollect(u"Ldate", u"09/09/24"_s);
        notes.SetCollect(u"Lcode", code);
        notes.SetCollect(u"Lpupil", 1);
        notes.SetCollect(u"Lnotes", u"note of Surname"_s + code);
        notes.Update();
    }
    QString backup(const QString& name) const {
        return session.FolderDefaults[BackupFolder].folder + name;
    }
    QStringList filesOut() const {
        return QDir(path(u"out"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    QStringList pupilsIn(const QString& file, const QString& code, const QString& password = {}) {
        return rowsOf(engine.OpenDatabase(file, false, true, dao::connectText(password)),
                      u"SELECT Surname FROM "_s + classTable(code));
    }
    void protectYear(const QString& password) {
        session.CurrentDB.NewPassword({}, password);
        session.DatabasePassword = password;
    }
    /// The year is open and whole.
    void checkYear() {
        ASSERT_TRUE(session.CurrentDB.isOpen());
        EXPECT_EQ(session.CurrentDB.Name(), path());
        EXPECT_EQ(Load_data(session.CurrentDB), (QStringList{u"7A"_s, u"8X"_s, u"9C"_s}));
        EXPECT_EQ(rowsOf(session.CurrentDB, u"SELECT Surname FROM Class_9C"_s).size(), 2);
    }

    const QString target = path(u"out/7A.mdb"_s);
};

} // namespace

TEST_F(ClassArchiveTest, HoldsTheClassAndNothingOfTheOthersPupils) {
    const QStringList sheets = rowsOf(session.CurrentDB, u"SELECT PlanDate FROM Planning"_s);
    seams.progress.steps.clear();
    ASSERT_TRUE(ArchiveClass(session, u"7A"_s, target));
    checkYear();
    const dao::Database archive = engine.OpenDatabase(target);
    EXPECT_EQ(Load_data(archive), QStringList{u"7A"_s});
    EXPECT_EQ(rowsOf(archive, u"SELECT Surname FROM Class_7A"_s),
              (QStringList{u"Surname7A"_s, u"O'Brien7A"_s}));
    EXPECT_EQ(rowsOf(archive, u"SELECT Lcode FROM Lesson_Notes"_s), QStringList{u"7A"_s});
    EXPECT_EQ(rowsOf(archive, u"SELECT PlanDate FROM Planning"_s), sheets);
    EXPECT_TRUE(rowsOf(archive, u"SELECT ID FROM Planning WHERE Class1 = '9C' OR Class2 = '9C'"_s)
                    .isEmpty());
    EXPECT_EQ(rowsOf(archive, u"SELECT Teacher, Year FROM Admin"_s),
              rowsOf(session.CurrentDB, u"SELECT Teacher, Year FROM Admin"_s));
    for (const QString& table : archive.TableDefs().names())
        EXPECT_FALSE(table.contains(u"9C"_s) || table.contains(u"8X"_s)) << table.toStdString();
    EXPECT_TRUE(TableExists(archive, u"sPlanExtra_R1_7A"_s));
    EXPECT_EQ(filesOut(), QStringList{u"7A.mdb"_s});
    for (const QString& file : {target, backup(u"7A.001"_s)}) {
        const QByteArray bytes = bytesOf(file);
        EXPECT_TRUE(bytes.contains("Surname7A")) << file.toStdString();
        for (const char* name : {"Surname8X", "Forename9C", "O'Brien9C", "Surname9C"})
            EXPECT_FALSE(bytes.contains(name)) << file.toStdString() << name;
        EXPECT_EQ(QFile::permissions(file) & (QFile::ReadGroup | QFile::ReadOther),
                  QFile::Permissions());
    }
    EXPECT_FALSE(settings.find(setting::ArchiveInProgress));

    QStringList lines;
    for (const RecordingProgress::Step& step : seams.progress.steps)
        lines += step.line1;
    const QStringList expected{u"Acquiring information"_s,
                               u"Closing Current Database"_s,
                               u"Copying Database as "_s + target,
                               u"Opening "_s + target,
                               u"Removing Informations"_s,
                               u"Deleting info for 8X"_s,
                               u"Deleting info for 9C"_s,
                               u"Closing database "_s + target,
                               u"Compacting Database"_s};
    EXPECT_EQ(lines.first(expected.size()), expected);
    EXPECT_EQ(lines.last(), u"Reopening Original Database"_s);
    EXPECT_EQ(seams.progress.title, u"Creating Archive:"_s);
    EXPECT_FALSE(seams.progress.isOpen);
}

TEST_F(ClassArchiveTest, OfAnArchiveOfTheOnlyClassAndOfAProtectedYear) {
    protectYear(u"key"_s);
    seams.prompts.expect(PromptKind::Message, u"Archive Complete"_s, AnswerYes);
    ASSERT_TRUE(Archive_NOW(session, u"9C"_s, path(u"out/first.mdb"_s)));
    EXPECT_EQ(session.CurrentDB.Name(), path(u"out/first.mdb"_s));
    EXPECT_EQ(session.DatabasePassword, u"key"_s);
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"The Class 9C has been archived"_s));

    seams.prompts.expect(PromptKind::Message, u"Archive Complete"_s, AnswerNo);
    ASSERT_TRUE(Archive_NOW(session, u"9C"_s, path(u"out/second.mdb"_s)));
    EXPECT_EQ(session.CurrentDB.Name(), path(u"out/first.mdb"_s));
    for (const QString& file : {path(u"out/second.mdb"_s), backup(u"second.001"_s)}) {
        EXPECT_EQ(pupilsIn(file, u"9C"_s, u"key"_s).size(), 2);
        EXPECT_EQ(errorOf([&] { pupilsIn(file, u"9C"_s); }), dao::WrongPassword);
    }
}

TEST_F(ClassArchiveTest, NeverOntoTheOpenYearNorItsBackups) {
    MakeProposedFolder(session.FolderDefaults[BackupFolder]);
    writeFile(backup(u"year.001"_s), "the year's own");
    QFile::link(path(), path(u"out/link.mdb"_s));
    ASSERT_EQ(::link(qPrintable(path()), qPrintable(path(u"out/hard.mdb"_s))), 0);
    const QByteArray before = bytesOf(path());
    for (const QString& name :
         {u"year.mdb"_s, u"out/../year.mdb"_s, u"./year.mdb"_s, u"out/link.mdb"_s,
          u"out/hard.mdb"_s, u"out/year.mdb"_s, u"out/Year.mdb"_s}) {
        seams.prompts.expect(PromptKind::Plain, u"Archive Class"_s, AnswerOk);
        EXPECT_FALSE(ArchiveClass(session, u"7A"_s, path(name))) << name.toStdString();
    }
    EXPECT_EQ(bytesOf(path()), before);
    EXPECT_EQ(bytesOf(backup(u"year.001"_s)), "the year's own");
    checkYear();
}

TEST_F(ClassArchiveTest, AFailureLeavesTheFormerFileAndTheYear) {
    writeFile(target, "former");
    const auto fails = [&](const QString& code, const QString& to, const QString& title) {
        seams.prompts.expect(PromptKind::Plain, title, AnswerOk);
        EXPECT_FALSE(ArchiveClass(session, code, to)) << to.toStdString();
        checkYear();
        EXPECT_EQ(bytesOf(target), "former");
        EXPECT_EQ(filesOut(), QStringList{u"7A.mdb"_s});
        EXPECT_FALSE(settings.find(setting::ArchiveInProgress));
    };
    const QString title = u"Archive Class"_s;
    fails(u"none"_s, target, title);
    fails(u"7A"_s, path(u"missing/7A.mdb"_s), title);
    fails(u"7A"_s, path(u"out"_s), title);
    {
        const FileSizeLimit full(QFileInfo(path()).size() - 1);
        fails(u"7A"_s, target, title);
    }
    // Its class can't be deleted then.
    session.CurrentDB.TableDefs().Delete(u"Marks_8X");
    session.CurrentDB.TableDefs().Delete(u"sPlan_8X");
    session.CurrentDB.TableDefs().Delete(u"sPlan_R1_8X");
    session.CurrentDB.TableDefs().Delete(u"Class_8X");
    fails(u"7A"_s, target, u"Delete Class Error"_s);
    session.FolderDefaults[BackupFolder].folder = path(u"nowhere/"_s);
    session.FolderDefaults[BackupFolder].isProposed = false;
    fails(u"8X"_s, target, title);
}

TEST_F(ClassArchiveTest, AKillAtAnyStepLeavesTheFormerFileOrTheWholeArchive) {
    session.CurrentDB.Close();
    int steps = 0;
    const auto archive = [&] {
        StepKill progress(steps);
        Session other(engine, settings, {seams.prompts, progress, seams.shell, seams.clock},
                      yearOpening());
        other.Start(path(u"app"_s));
        other.OpenDatabaseFile(path(), {});
        return ArchiveClass(other, u"7A"_s, target) ? 0 : 2;
    };
    bool wasReplaced = false;
    writeFile(target, "former");
    for (int status = 1; status != 0; ++steps) {
        ASSERT_LT(steps, 100);
        status = statusOf(archive);
        ASSERT_NE(status, 2);
        settings.FlushRegistryKey(setting::Root);
        RemoveInterruptedArchive(backupContext(session));
        EXPECT_FALSE(settings.find(setting::BackupInProgress)) << steps;
        EXPECT_EQ(filesOut(), QStringList{u"7A.mdb"_s}) << steps;
        EXPECT_EQ(pupilsIn(path(), u"9C"_s).size(), 2);
        wasReplaced = wasReplaced || bytesOf(target) != "former";
        EXPECT_TRUE(!wasReplaced || pupilsIn(target, u"7A"_s).size() == 2) << steps;
    }
    EXPECT_GT(steps, 10);
}
