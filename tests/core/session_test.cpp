// The one way by which a file enters the session: its four results, what it reads, what it brings
// up to date, and that a failure leaves nothing half open.

#include "core/session.h"

#include "core/core_settings.h"
#include "frame/internet_upgrade.h"
#include "frame/year_roads.h"
#include "store/table_names.h"
#include "support/engine_places.h"
#include "support/scripted_frame.h"
#include "support/year_session.h"
#include "year/backup_settings.h"
#include "year/moved_year.h"

#include <QCryptographicHash>
#include <QSet>

#include <unistd.h>

namespace {

class SessionTest : public YearSession {
protected:
    SessionTest() {
        // As the main window does.
        QObject::connect(&session.GetNotices(), &Notices::yearOpened, &session.GetNotices(),
                         [this] {
                             frame.SetCaption(mainCaption(session.CurrentDB.Name()));
                             frame.EnableInput(true);
                         });
    }

    QString path(const char* name) const { return YearSession::path(QString::fromUtf8(name)); }
    void makeYear(const char* name, const YearAnswers& answers = twoWeekAnswers()) {
        createYear(answers, path(name), seams);
    }
    /// Changes a file outside the session.
    void change(const char* name, const std::function<void(dao::Database&)>& work) {
        dao::Database database = engine.OpenDatabase(path(name));
        work(database);
        database.Close();
    }
    /// Sets the default database and whether it is opened at the start.
    void setDefault(const QString& file, bool dontShowStartup) {
        settings.set(setting::DefaultDatabasePath, file);
        settings.set(setting::DontShowStartup, dontShowStartup);
    }
    void start() {
        frame.log.clear();
        LoadMainWindow(session, frame);
        ActivateMainWindow(session, frame);
    }

    ScriptedFrame frame;
};

} // namespace

TEST_F(SessionTest, AYearFillsTheSession) {
    YearAnswers answers = twoWeekAnswers();
    answers.colours = {{u"7A"_s, 0x123456}};
    makeYear("year.mdb", answers);
    change("year.mdb", [](dao::Database& database) {
        changeRecord(database, u"SELECT * FROM Classcodes WHERE Classcode = '9C'"_s, u"Colour"_s,
                     {});
    });
    ASSERT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenDone);
    EXPECT_EQ(session.AcademicYear, answers.year);
    EXPECT_EQ(session.PeriodsPerDay, answers.periodsPerDay);
    EXPECT_EQ(session.TTweekly, 1);
    EXPECT_EQ(session.StartWeek, u"B"_s);
    EXPECT_EQ(session.TermCount, 2);
    ASSERT_EQ(session.ClassColours.size(), answers.classes.size());
    EXPECT_EQ(session.ClassColours.at(0).code, u"7A"_s);
    EXPECT_EQ(session.ClassColours.at(0).colour, 0x123456);
    for (const ClassColour& other : session.ClassColours.mid(1))
        EXPECT_EQ(other.colour, 0xFFFFFF) << "no colour reads as white";
    EXPECT_TRUE(frame.caption.startsWith(u"Orvane: "_s));
    EXPECT_TRUE(frame.caption.endsWith(u"year.mdb"_s));
    session.CloseAllDatabases();
    EXPECT_FALSE(session.CurrentDB.isOpen());

    makeYear("single.mdb", oneWeekAnswers());
    ASSERT_EQ(session.OpenDatabaseFile(path("single.mdb"), {}), OpenDone);
    EXPECT_EQ(session.TTweekly, 0);
    EXPECT_TRUE(session.StartWeek.isEmpty()) << "not read, whatever was open before";
}

TEST_F(SessionTest, AFileThatLacksAPieceIsInvalid) {
    struct Case {
        const char* table;
        const char* field; ///< null for the whole table
    };
    for (const Case& lacking :
         {Case{"Admin", nullptr}, Case{"Admin", "Year"}, Case{"Admin", "PeriodsPerDay"},
          Case{"Admin", "Teacher"}, Case{"Admin", "TTweekly"}, Case{"Admin", "StartWeek"},
          Case{"Planning", nullptr}, Case{"TermDates", nullptr}, Case{"Calendar", nullptr},
          Case{"Classcodes", nullptr}, Case{"Classcodes", "Colour"},
          Case{"Classcodes", "Classcode"}, Case{"ExtraTTinfo", nullptr}}) {
        createYear(twoWeekAnswers(), path("broken.mdb"), seams, ExistingFile::Replace);
        change("broken.mdb", [&lacking](dao::Database& database) {
            if (lacking.field)
                database.TableDefs()[QString::fromUtf8(lacking.table)].Fields().Delete(
                    QString::fromUtf8(lacking.field));
            else
                database.TableDefs().Delete(QString::fromUtf8(lacking.table));
        });
        EXPECT_EQ(session.OpenDatabaseFile(path("broken.mdb"), {}), OpenInvalid)
            << lacking.table << "." << (lacking.field ? lacking.field : "");
        EXPECT_FALSE(session.CurrentDB.isOpen());
        EXPECT_TRUE(engine.Workspaces(0).Databases().isEmpty()) << "nothing stays open";
    }
    EXPECT_EQ(session.OpenDatabaseFile(path("missing.mdb"), {}), OpenInvalid);
    EXPECT_EQ(session.OpenDatabaseFile(test::sample(u"year.json"_s), {}), OpenInvalid);
}

TEST_F(SessionTest, AFileWithASenselessDayIsInvalid) {
    makeYear("year.mdb");
    for (const int periods : {-6, 0, 10, 32767}) {
        change("year.mdb", [periods](dao::Database& database) {
            dao::Recordset admin = database.OpenRecordset(AdminTable);
            admin.Edit();
            admin[u"PeriodsPerDay"] = periods;
            admin.Update();
        });
        EXPECT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenInvalid) << periods;
    }
}

TEST_F(SessionTest, AFileWithASenselessNumberOfTimetablesIsInvalid) {
    makeYear("year.mdb");
    change("year.mdb",
           [](dao::Database& database) { changeRecord(database, AdminTable, u"TTweekly"_s, -7); });
    EXPECT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenInvalid);
    EXPECT_TRUE(session.LastOpenFault().sentence.contains(u"-7"_s));
}

TEST(OpenFailures, EachCauseHasAMessageOfItsOwn) {
    QSet<QString> titles;
    const QString sentence = u"The engine's own."_s;
    const int causes[] = {dao::DiskFull, dao::CannotOpenFile, dao::OpenedExclusively,
                          dao::DamagedDatabase};
    for (const int cause : causes) {
        const OpenFailure failure = openFailure({cause, sentence, {}}, u"/year.mdb"_s);
        titles.insert(failure.title);
        EXPECT_TRUE(failure.text.contains(sentence)) << cause;
    }
    EXPECT_EQ(titles.size(), std::size(causes));
}

TEST_F(SessionTest, AnOlderFileIsBroughtUpToDate) {
    makeYear("year.mdb");
    change("year.mdb", [](dao::Database& database) {
        database.TableDefs()[PlanningTable].Fields().Delete(u"ABWeek");
        database.TableDefs()[PlanningTable].Fields().Delete(u"Week");
        if (database.TableDefs().Contains(LessonNotesTable))
            database.TableDefs().Delete(LessonNotesTable);
    });
    for (int round = 0; round < 2; ++round) { // the second time there is nothing to do
        ASSERT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenDone);
        const dao::FieldCollection fields = session.CurrentDB.TableDefs()[PlanningTable].Fields();
        EXPECT_EQ(fields[u"Week"].OrdinalPosition, 2);
        EXPECT_EQ(fields[u"ABWeek"].OrdinalPosition, 3);
        EXPECT_TRUE(session.CurrentDB.TableDefs().Contains(LessonNotesTable));
        EXPECT_EQ(session.CurrentDB.OpenRecordset(PlanningTable).Collect(u"ABWeek").toText(),
                  u"B"_s);
        session.CloseAllDatabases();
    }
}

TEST_F(SessionTest, APasswordIsAskedForUntilItIsRightOrCancelled) {
    makeYear("year.mdb");
    change("year.mdb", [](dao::Database& database) { database.NewPassword({}, u"secret"_s); });
    seams.prompts.expect(PromptKind::Password, {}, u"wrong"_s);
    seams.prompts.expect(PromptKind::Message, u"Invalid Password"_s, AnswerOk);
    seams.prompts.expect(PromptKind::Password, {}, u"secret"_s);
    ASSERT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenDone);
    EXPECT_EQ(session.DatabasePassword, u"secret"_s);
    session.CloseAllDatabases();
    EXPECT_TRUE(session.DatabasePassword.isEmpty());

    seams.prompts.expect(PromptKind::Password, {}, {});
    EXPECT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenCancelled);
    EXPECT_EQ(session.OpenDatabaseFile(path("year.mdb"), u"secret"_s), OpenDone)
        << "the right password is not asked for";
}

TEST_F(SessionTest, AJetYearOpensAsAConvertedCopy) {
    for (const char* name : {"year_single_jet4", "year_ab_jet4"}) {
        const QString original = path("old.mdb");
        QFile::remove(original);
        QFile::remove(path("old (converted).mdb"));
        ASSERT_TRUE(
            QFile::copy(test::testData(u"jet/%1.mdb"_s.arg(QString::fromUtf8(name))), original));
        const QByteArray before = bytesOf(original);
        setDefault(original, 1);
        seams.prompts.expect(PromptKind::Message, u"Older Database"_s, AnswerCancel);
        EXPECT_EQ(session.OpenDatabaseFile(original, {}), OpenCancelled);
        EXPECT_FALSE(QFile::exists(path("old (converted).mdb")));

        seams.prompts.expect(PromptKind::Message, u"Older Database"_s, AnswerOk);
        ASSERT_EQ(session.OpenDatabaseFile(original, {}), OpenDone);
        EXPECT_EQ(session.DatabasePath, path("old (converted).mdb"));
        EXPECT_EQ(settings.get(setting::DefaultDatabasePath), session.DatabasePath);
        EXPECT_EQ(bytesOf(original), before) << "the original is untouched";

        const dao::Database jet = engine.OpenDatabase(original);
        ASSERT_EQ(jet.TableDefs().names(), session.CurrentDB.TableDefs().names());
        EXPECT_EQ(jet.Relations().all().size(), session.CurrentDB.Relations().all().size());
        for (const QString& table : jet.TableDefs().names()) {
            dao::Recordset old = jet.OpenRecordset(table);
            dao::Recordset copied = session.CurrentDB.OpenRecordset(table);
            ASSERT_EQ(old.RecordCount(), copied.RecordCount()) << qPrintable(table);
            for (; !old.EOF_(); old.MoveNext(), copied.MoveNext()) {
                for (int i = 0; i < old.FieldCount(); ++i)
                    ASSERT_EQ(old.Collect(i), copied.Collect(i))
                        << qPrintable(table) << "." << qPrintable(old.Fields(i).Name());
            }
        }
        session.CloseAllDatabases();
        change("old (converted).mdb",
               [](dao::Database& copy) { copy.NewPassword({}, u"secret"_s); });
        seams.prompts.expect(PromptKind::Message, u"Older Database"_s, AnswerYes);
        seams.prompts.expect(PromptKind::Password, {}, u"secret"_s);
        ASSERT_EQ(session.OpenDatabaseFile(original, {}), OpenDone) << "the copy is offered";
        EXPECT_EQ(session.DatabasePath, path("old (converted).mdb"));
        session.CloseAllDatabases();
    }
    EXPECT_EQ(session.OpenDatabaseFile(test::testData(u"jet/not_a_year.mdb"_s), {}), OpenInvalid)
        << "a Jet file that is no year is refused without a question";
}

TEST_F(SessionTest, AYearIsItsOwnersAloneAndASecondNameIsWarnedOf) {
    makeYear("year.mdb");
    const QFileDevice::Permissions others = QFile::ReadGroup | QFile::ReadOther;
    QFile::setPermissions(path("year.mdb"), QFile::permissions(path("year.mdb")) | others);
    ASSERT_EQ(::link(qPrintable(path("year.mdb")), qPrintable(path("second.mdb"))), 0);
    seams.prompts.expect(PromptKind::Plain, u"Database with two names"_s, AnswerOk);
    ASSERT_EQ(session.OpenDatabaseFile(path("second.mdb"), {}), OpenDone);
    EXPECT_FALSE(QFile::permissions(path("year.mdb")) & others);
}

TEST_F(SessionTest, AYearWhoseFileIsGoneIsSavedAsAnotherOrStays) {
    makeYear("year.mdb");
    setDefault(path("year.mdb"), true);
    start();
    EXPECT_TRUE(MayLeaveMovedYear(session));
    QFile::remove(path("year.mdb"));
    const QString title = u"Database moved or deleted"_s;
    const QString saveTitle = u" Save the database as :"_s;
    seams.prompts.expect(PromptKind::Message, title, AnswerCancel);
    EXPECT_FALSE(MayLeaveMovedYear(session));
    seams.prompts.expect(PromptKind::Message, title, AnswerNo);
    EXPECT_TRUE(MayLeaveMovedYear(session));
    seams.prompts.expect(PromptKind::Message, title, AnswerYes);
    seams.prompts.expect(PromptKind::File, saveTitle);
    EXPECT_FALSE(MayLeaveMovedYear(session)) << "called off in the file dialog";

    makeYear("taken.mdb");
    seams.prompts.expect(PromptKind::Message, title, AnswerYes);
    seams.prompts.expect(PromptKind::File, saveTitle, path("taken"));
    seams.prompts.expect(PromptKind::Plain, u"File exists"_s, AnswerOk);
    seams.prompts.expect(PromptKind::File, saveTitle, path("gone/saved.mdb"));
    seams.prompts.expect(PromptKind::Plain, title, AnswerOk);
    seams.prompts.expect(PromptKind::File, saveTitle, path("saved"));
    TellMovedYear(session);
    EXPECT_TRUE(MayLeaveMovedYear(session));
    EXPECT_EQ(session.DatabasePath, path("saved.mdb"));
    EXPECT_EQ(settings.get(setting::DefaultDatabasePath), path("saved.mdb"));
    put(AdminTable, u"Teacher"_s, u"Ms Still Here"_s);
    session.CloseAllDatabases();
    ASSERT_EQ(session.OpenDatabaseFile(path("saved.mdb"), {}), OpenDone);
    EXPECT_EQ(session.TeacherName, u"Ms Still Here"_s);
}

TEST_F(SessionTest, TheStartOpensTheDefaultDatabaseWhenAskedTo) {
    makeYear("year.mdb");
    struct Case {
        const char* name;
        QString file;
        int dontShow;
        const char* log;
    };
    for (const Case& begun :
         {Case{"nothing set", {}, 0, "disable wizard"}, Case{"no path", {}, 1, "disable wizard"},
          Case{"wizard wanted", path("year.mdb"), 0, "disable wizard"},
          Case{"deleted file", path("gone.mdb"), 1, "disable wizard"},
          Case{"opened", path("year.mdb"), 1, "disable enable"}}) {
        setDefault(begun.file, begun.dontShow);
        start();
        EXPECT_EQ(frame.log.join(u' '), QString::fromUtf8(begun.log)) << begun.name;
    }
    EXPECT_EQ(session.DatabasePath, path("year.mdb"));
    EXPECT_TRUE(session.CurrentDB.isOpen());
}

TEST_F(SessionTest, AFileOpenedAheadIsTheYearsWhereItIsStillTheOneAskedFor) {
    makeYear("year.mdb");
    makeYear("other.mdb", oneWeekAnswers());
    makeYear("protected.mdb");
    change("protected.mdb", [](dao::Database& database) { database.NewPassword({}, u"pw"_s); });
    const auto openFiles = [this] { return engine.Workspaces(0).Databases().size(); };
    const auto replace = [this] {
        QFile::remove(path("year.mdb"));
        QFile::copy(path("other.mdb"), path("year.mdb"));
    };
    for (const auto& [asked, weeks, meanwhile] :
         {std::tuple{"year.mdb", 1, false}, std::tuple{"other.mdb", 0, false},
          std::tuple{"year.mdb", 0, true}}) {
        session.OpenAhead(path("year.mdb"));
        EXPECT_EQ(openFiles(), 1);
        if (meanwhile)
            replace();
        ASSERT_EQ(session.OpenDatabaseFile(path(asked), {}), OpenDone);
        EXPECT_EQ(openFiles(), 1);
        EXPECT_EQ(session.CurrentDB.Name(), path(asked));
        EXPECT_EQ(session.TTweekly, weeks);
        session.CloseAllDatabases();
    }
    for (const char* file : {"protected.mdb", "missing.mdb"}) {
        session.OpenAhead(path(file));
        EXPECT_EQ(openFiles(), 0) << file;
    }
}

TEST_F(SessionTest, AFailureAtTheStartIsToldAndLeadsToTheWizard) {
    ASSERT_TRUE(QFile::copy(test::sample(u"year.json"_s), path("text.mdb")));
    setDefault(path("text.mdb"), 1);
    seams.prompts.expect(PromptKind::Plain, u"Invalid Database"_s, AnswerOk);
    start();
    EXPECT_EQ(frame.log.join(u' '), u"disable wizard"_s);
    EXPECT_TRUE(session.DatabasePath.isEmpty());
    EXPECT_EQ(frame.caption, u"Orvane: "_s);
    EXPECT_TRUE(seams.prompts.last().text.contains(
        u"appears to be either the wrong format or corrupt!\n\nPlease choose another action."_s));

    makeYear("locked.mdb");
    change("locked.mdb", [](dao::Database& database) { database.NewPassword({}, u"secret"_s); });
    setDefault(path("locked.mdb"), 1);
    seams.prompts.expect(PromptKind::Password, {}, {});
    start();
    EXPECT_EQ(frame.log.join(u' '), u"disable wizard"_s) << "cancelling shows no error at all";
}

TEST_F(SessionTest, OpeningAnotherFileClosesTheFirstBeforehand) {
    makeYear("year.mdb");
    makeYear("other.mdb");
    ASSERT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenDone);
    session.DatabasePath = path("year.mdb");
    const QString title = u" Select the database to open:"_s;
    seams.prompts.expect(PromptKind::File, title, {});
    frame.log.clear();
    OpenDatabaseCommand(session, frame);
    EXPECT_TRUE(frame.log.isEmpty() && session.CurrentDB.isOpen()) << "cancelled: all as it was";

    frame.mayLeave = false;
    seams.prompts.expect(PromptKind::File, title, path("other.mdb"));
    OpenDatabaseCommand(session, frame);
    EXPECT_TRUE(frame.log.isEmpty() && session.CurrentDB.isOpen()) << "somebody stays";
    EXPECT_EQ(session.DatabasePath, path("year.mdb"));
    frame.mayLeave = true;

    seams.prompts.expect(PromptKind::File, title, path("other.mdb"));
    OpenDatabaseCommand(session, frame);
    EXPECT_EQ(frame.log.join(u' '), u"close forms disable enable"_s);
    EXPECT_TRUE(frame.caption.endsWith(u"other.mdb"_s));
    EXPECT_EQ(engine.Workspaces(0).Databases().size(), 1);

    seams.prompts.expect(PromptKind::File, title, path("missing.mdb"));
    seams.prompts.expect(PromptKind::Message, u"Invalid Database"_s, AnswerOk);
    frame.log.clear();
    OpenDatabaseCommand(session, frame);
    EXPECT_EQ(frame.log.join(u' '), u"close forms disable wizard"_s);
    EXPECT_TRUE(session.DatabasePath.isEmpty());
}

TEST_F(SessionTest, TheWindowsOfTheLastRunOpenAgainInTheirOrder) {
    frame.windows = {ToolWindow::DailySheet, ToolWindow::AddressBook, ToolWindow::Classes};
    SaveCurrentStartup(session, frame);
    EXPECT_TRUE(frame.windows.isEmpty());
    RunCurrentStartup(session, frame);
    EXPECT_EQ(frame.windows, QList({ToolWindow::Classes, ToolWindow::DailySheet}));
    frame.windows.clear();
    SaveCurrentStartup(session, frame);
    RunCurrentStartup(session, frame);
    EXPECT_TRUE(frame.windows.isEmpty()) << "with no window the next start opens nothing";
    settings.set(Setting<qint32>{setting::Startup, setting::Open_COE.name}, 0);
    RunCurrentStartup(session, frame);
    EXPECT_EQ(frame.windows, QList{ToolWindow::CalendarOfEvents})
        << "that the value exists is its meaning";
}

TEST_F(SessionTest, AFileStillOpenIsTold) {
    makeYear("year.mdb");
    session.DatabasePath = path("year.mdb");
    EXPECT_FALSE(session.IsDBOpen());
    const dao::Database other = engine.OpenDatabase(path("year.mdb"));
    seams.prompts.expect(PromptKind::Plain, u"Action canceled"_s, AnswerOk);
    EXPECT_TRUE(session.IsDBOpen());
}

TEST_F(SessionTest, AnInterruptedBackupIsMendedWhicheverFileOpensByDefault) {
    makeYear("year.mdb");
    makeYear("other.mdb");
    QFile::rename(path("year.mdb"), path("year.new"));
    for (const QString& standard : {QString(), path("other.mdb"), path("year.mdb")}) {
        setDefault(standard, 0);
        settings.set(setting::BackupInProgress, path("year.mdb"));
        seams.prompts.expect(PromptKind::Plain, u"Backup interrupted"_s, AnswerOk);
        start();
        EXPECT_EQ(session.DatabasePath, standard);
        EXPECT_TRUE(QFile::rename(path("year.mdb"), path("year.new")));
    }
}

TEST_F(SessionTest, TheOlderRestoreLeavesTheRestoredYearOpen) {
    makeYear("year.mdb");
    QDir(folder.path()).mkdir(u"stick"_s);
    makeYear("stick/year.mdb", oneWeekAnswers());
    session.AppPath = folder.path() + u'/';
    session.DatabasePath = path("year.mdb");
    ASSERT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenDone);
    frame.log.clear();
    seams.prompts.expect(PromptKind::Folder,
                         u"Select the directory which contains the backup database :"_s,
                         path("stick"));
    seams.prompts.expect(PromptKind::Plain, u"Backup restored:"_s, AnswerOk);
    RestoreBackupCommand(session, frame);
    EXPECT_EQ(frame.log.join(u' '), u"close forms disable enable"_s);
    EXPECT_EQ(session.TTweekly, 0);
    EXPECT_TRUE(QFile::exists(path("ORVA.OLD")));
}

TEST_F(SessionTest, TheEndBacksUpAsTheSettingsSay) {
    using enum ClosingBackup;
    struct Case {
        ClosingBackup autoBackup;
        PromptReply reply; ///< of the question, where there is one
        bool backedUp;
        ClosingBackup autoBackupLater;
    };
    makeYear("year.mdb");
    for (const Case& end : {Case{None, {}, false, None}, Case{Ask, AnswerNo, false, Ask},
                            Case{Ask, AnswerYes, true, Ask},
                            Case{Ask, BoxAnswer{AnswerNo, true}, false, CompactAndBackUp},
                            Case{CompactAndBackUp, {}, true, CompactAndBackUp},
                            Case{BackUpOnly, {}, true, BackUpOnly}}) {
        QFile::remove(path("year.001"));
        session.FolderDefaults[BackupFolder].folder = folder.path() + u'/';
        settings.set(setting::AutoBackup, end.autoBackup);
        ASSERT_EQ(session.OpenDatabaseFile(path("year.mdb"), {}), OpenDone);
        if (end.autoBackup == Ask)
            seams.prompts.expect(PromptKind::Message, u"Backup/Compress Database"_s, end.reply);
        ShutDown(session);
        EXPECT_FALSE(session.CurrentDB.isOpen());
        EXPECT_EQ(QFile::exists(path("year.001")), end.backedUp)
            << static_cast<int>(end.autoBackup);
        EXPECT_EQ(settings.get(setting::AutoBackup), end.autoBackupLater);
    }
    ShutDown(session); // with nothing open nothing is asked
}

TEST_F(SessionTest, ANewerVersionIsOfferedWhereAnAddressIsConfigured) {
    struct Case {
        QByteArray build;
        const char* text;
    };
    seams.prompts.expect(PromptKind::Plain, u"Internet Upgrade"_s, AnswerOk);
    GetUpgradeInfo(session);
    EXPECT_TRUE(seams.shell.runs.isEmpty()) << "no address, nobody asked";
    settings.set(setting::UpgradeAddress, u"https://example.org"_s);
    for (const Case& found :
         {Case{{}, "could not be reached"}, Case{"<html>", "could not be reached"},
          Case{"1\r\n", "already have the latest"}, Case{"999", "newer version"}}) {
        seams.shell.fetched = found.build;
        seams.prompts.expect(PromptKind::Plain, u"Internet Upgrade"_s, AnswerYes);
        GetUpgradeInfo(session);
        EXPECT_TRUE(seams.prompts.last().text.contains(QString::fromUtf8(found.text)))
            << found.text;
    }
    EXPECT_EQ(seams.shell.runs.first().file, u"https://example.org/ORVA/build.txt"_s);
    EXPECT_EQ(seams.shell.runs.last().file, u"https://example.org"_s);
}
