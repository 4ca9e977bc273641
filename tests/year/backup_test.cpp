#include "year/backup.h"

#include "store/engine/files.h"
#include "support/engine_places.h"
#include "year/backup_fixture.h"
#include "year/backup_settings.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QStorageInfo>

#include <algorithm>
#include <utility>

namespace {

class BackupTest : public BackupFiles {
protected:
    /// A folder on another file system than the year's; empty where the computer has none.
    QString otherVolume() {
        const QString folder = m_other.path() + u'/';
        const bool differs = m_other.isValid() && QStorageInfo(folder) != QStorageInfo(database);
        return differs ? folder : QString();
    }

    /// Leaves these backups and no others in the folder, each with its number as content.
    void putBackups(const QList<int>& numbers) {
        for (int number = 1; number <= OldestBackup; ++number)
            QFile::remove(backup(number));
        for (const int number : numbers)
            writeFile(backup(number), QByteArray::number(number));
    }

    /// The content of the backups from 1 on: a number that was put there, "year" for one of the
    /// year, "-" for none.
    QString backupsThere() {
        QStringList found;
        for (int number = 1; number <= OldestBackup; ++number) {
            const QByteArray bytes = bytesOf(backup(number));
            if (bytes.isEmpty())
                found += u"-"_s;
            else if (bytes.size() == 1)
                found += QString::fromLatin1(bytes);
            else
                found += pupilsIn(backup(number)) == Pupils ? u"year"_s : u"?"_s;
        }
        return found.join(u' ');
    }

    /// What a start of the program finds after a kill, and what has to be true of it.
    void startAgain() {
        settings.FlushRegistryKey(setting::Root); // the killed process wrote to the same file
        if (!QFile::exists(database))
            test.prompts.expect(PromptKind::Plain, u"Backup interrupted"_s, AnswerOk);
        RecoverInterruptedBackup(context(), database);
        ASSERT_EQ(pupilsIn(database), Pupils);
        EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
        EXPECT_EQ(InterruptedBackup(context()), QString());
        for (const QString& name : filesIn(backups))
            ASSERT_EQ(pupilsIn(backups + name), Pupils) << qPrintable(name);
    }

    bool compactWatchedBy(Progress& progress);
    void killAtEachStep();
    void killAtAnyInstant(int rounds);

private:
    QTemporaryDir m_other{u"/dev/shm/orva-XXXXXX"_s};
};

/// Does something at each step that is shown.
class HookedProgress : public RecordingProgress {
public:
    explicit HookedProgress(std::function<void(const QString&)> hook) : m_hook(std::move(hook)) {}
    void UpdateProgress(int, const QString& line1, const QString&) override { m_hook(line1); }

private:
    std::function<void(const QString&)> m_hook;
};

bool BackupTest::compactWatchedBy(Progress& progress) {
    const BackupContext usual = context();
    const Seams seams{test.prompts, progress, test.shell, test.clock};
    return BackupAndCompact({engine, seams, settings, usual.appPath, usual.folders}, database, true,
                            {});
}

void BackupTest::killAtEachStep() {
    int steps = 0;
    const auto run = [&] {
        int left = steps;
        HookedProgress ending([&left](const QString&) {
            if (--left < 0)
                _exit(1);
        });
        compactWatchedBy(ending);
    };
    for (; !completes(run); ++steps) {
        ASSERT_LT(steps, 100);
        startAgain();
    }
    EXPECT_GT(steps, 12);
    startAgain();
}

void BackupTest::killAtAnyInstant(int rounds) {
    // The kills fall within the time that a backup takes on this machine.
    QElapsedTimer whole;
    whole.start();
    ASSERT_TRUE(completes([&] { BackupAndCompact(context(), database, true, {}); }));
    const int span = static_cast<int>(whole.nsecsElapsed() / 1000);
    startAgain();
    QRandomGenerator random(4);
    int killed = 0;
    for (int round = 0; round < rounds; ++round) {
        const int delay = 100 + random.bounded(span);
        const bool completed = completes([&] {
            endAfter(delay);
            if (round % 3 == 0)
                BackupOnly(context(), database);
            else
                BackupAndCompact(context(), database, true, {});
        });
        killed += completed ? 0 : 1;
        startAgain();
        if (HasFatalFailure())
            FAIL() << "round " << round;
    }
    EXPECT_GT(killed, rounds / 10) << "the kills came too late to prove anything";
}

} // namespace

TEST_F(BackupTest, ALinkStandsForTheFileBehindItAndAllIsPrivate) {
    const QString link = path(u"open/Link.mdb"_s);
    ASSERT_TRUE(QFile::link(database, link));
    const QFileDevice::Permissions open = QFile::ReadOther | QFile::ReadGroup;
    QFile::setPermissions(database, QFile::permissions(database) | open);
    EXPECT_TRUE(BackupOnly(context(), link));
    EXPECT_TRUE(BackupAndCompact(context(), link, true, {}));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(filesIn(path(u"open"_s)), QStringList{u"Link.mdb"_s});
    EXPECT_EQ(backupsThere(), u"year year - - -"_s);
    for (const QString& file : {database, backup(1), backup(2), path(u"settings.conf"_s)})
        EXPECT_FALSE(QFile::permissions(file) & open) << qPrintable(file);

    QFile::setPermissions(database, QFile::ReadOwner);
    EXPECT_TRUE(BackupOnly(context(), database));
    EXPECT_FALSE(QFile::permissions(backup(1)) & QFile::WriteOwner) << "as strict as the source";
}

TEST_F(BackupTest, TheRotation) {
    const struct {
        QList<int> before;
        const char* after;
    } cases[] = {
        {{}, "year - - - -"},           {{1}, "year 1 - - -"},
        {{1, 2}, "year 1 2 - -"},       {{1, 2, 3}, "year 1 2 3 -"},
        {{1, 2, 3, 4}, "year 1 2 3 4"}, {{1, 2, 3, 4, 5}, "year 1 2 3 4"},
        {{2}, "year - 2 - -"},          {{5}, "year - - - -"},
        {{1, 3, 5}, "year 1 - 3 -"},
    };
    writeFile(backups + u"Other.001"_s, "o");
    for (const auto& c : cases) {
        putBackups(c.before);
        EXPECT_TRUE(BackupAndCompact(context(), database, true, {}));
        EXPECT_EQ(backupsThere(), QLatin1StringView(c.after));
        putBackups(c.before);
        EXPECT_TRUE(BackupOnly(context(), database));
        EXPECT_EQ(backupsThere(), QLatin1StringView(c.after));
        EXPECT_EQ(pupilsIn(database), Pupils);
        EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
    }
    EXPECT_EQ(bytesOf(backups + u"Other.001"_s), "o");
}

TEST_F(BackupTest, BackupOnlyCopiesTheBytesAndCompactsNothing) {
    const QByteArray before = bytesOf(database);
    EXPECT_TRUE(BackupOnly(context(), database));
    EXPECT_EQ(bytesOf(database), before);
    EXPECT_EQ(bytesOf(backup(1)), before);
}

TEST_F(BackupTest, TheReportTellsTheSizes) {
    const qint64 former = QFileInfo(database).size();
    test.prompts.expect(PromptKind::AutoMessage, u"Database Compacted:"_s, AnswerOk);
    EXPECT_TRUE(BackupAndCompact(context(), database, false, {}));
    const qint64 compacted = QFileInfo(database).size();
    EXPECT_LT(compacted, former);
    EXPECT_EQ(test.prompts.last().text, u"The orignal database has been saved as the file %1\n"
                                        "Please use the 'Restore a Backup database' facility\n"
                                        "if there are problems with the new compacted database.\n"
                                        "Orignal File Size : %2 bytes.\n"
                                        "Compacted File Size : %3 bytes.\n"
                                        "%4% Compacted."_s.arg(ShortenPath(backup(1)))
                                            .arg(former)
                                            .arg(compacted)
                                            .arg(compactedPercent(former, compacted)));
    EXPECT_TRUE(test.progress.title.isEmpty()) << "no window on the program's own volume";
}

TEST_F(BackupTest, TheSavingIsWrittenWithoutZeros) {
    const struct {
        qint64 former;
        qint64 compacted;
        const char* text;
    } cases[] = {
        {1000, 875, "12.5"}, {100, 88, "12."}, {10000, 9975, ".25"}, {3, 2, "33.33"},
        {1000, 1000, "."},   {100, 90, "10."}, {100, 112, "-12."},   {1000000, 1000001, "."},
        {100000, 1, "100."}, {0, 0, "."},
    };
    for (const auto& c : cases)
        EXPECT_EQ(compactedPercent(c.former, c.compacted), QLatin1StringView(c.text));
}

TEST_F(BackupTest, OnAnotherVolumeThanTheProgramTheProgressShows) {
    const QString other = otherVolume();
    if (other.isEmpty())
        GTEST_SKIP() << "the computer has one file system only";
    putBackups({1, 4, 5});
    BackupContext elsewhere = context();
    elsewhere.appPath = other;
    EXPECT_TRUE(BackupAndCompact(elsewhere, database, true, {}));
    EXPECT_EQ(test.progress.title, u"Backing up Database: "_s + database);
    EXPECT_FALSE(test.progress.isOpen);
    QStringList lines;
    for (const RecordingProgress::Step& step : test.progress.steps) {
        if (!step.line1.isEmpty())
            lines += step.line1;
    }
    EXPECT_EQ(lines, (QStringList{
                         u"Acquiring filenames"_s, u"Compacting Database"_s,
                         u"Removing Backup file 005"_s, u"Renaming Backup file 004 to 005"_s,
                         u"Renaming Backup file 001 to 002"_s, u"Creating latest backup file 001"_s,
                         u"Renaming compacted file as current database."_s,
                         u"Finishing Backup Process"_s}));
    EXPECT_EQ(test.progress.steps.last().percent, 100);
    EXPECT_TRUE(std::ranges::is_sorted(test.progress.steps, {}, &RecordingProgress::Step::percent));
}

TEST_F(BackupTest, ABackupFolderOnAnotherFileSystem) {
    backups = otherVolume();
    if (backups.isEmpty())
        GTEST_SKIP() << "the computer has one file system only";
    putBackups({1, 2, 5});
    const QByteArray former = bytesOf(database);
    EXPECT_TRUE(BackupAndCompact(context(), database, true, {}));
    EXPECT_EQ(backupsThere(), u"year 1 2 - -"_s);
    EXPECT_EQ(bytesOf(backup(1)), former);
    EXPECT_LT(QFileInfo(database).size(), former.size());
    EXPECT_EQ(filesIn(backups).size(), 3);
}

TEST_F(BackupTest, AProtectedYearHasProtectedBackups) {
    const QString secret = u"geheim"_s;
    protect(database, secret);
    EXPECT_TRUE(BackupOnly(context(), database, secret));
    EXPECT_TRUE(BackupOnly(context(), database)) << "the copy needs no password";
    EXPECT_TRUE(BackupAndCompact(context(), database, true, secret));
    for (const QString& file : {database, backup(1), backup(2), backup(3)}) {
        EXPECT_EQ(errorOf([&] { pupilsIn(file); }), dao::WrongPassword);
        EXPECT_EQ(pupilsIn(file, secret), Pupils);
    }
}

TEST_F(BackupTest, WithoutThePasswordItIsAskedFor) {
    protect(database, u"geheim"_s);
    test.prompts.expect(PromptKind::Password, {}, u"wrong"_s);
    test.prompts.expect(PromptKind::Message, u"Invalid Password"_s, AnswerOk);
    test.prompts.expect(PromptKind::Password, {}, u"geheim"_s);
    EXPECT_TRUE(BackupAndCompact(context(), database, true, {}));
    test.prompts.expect(PromptKind::Password, {});
    EXPECT_FALSE(BackupAndCompact(context(), database, true, {}));
    EXPECT_EQ(filesIn(backups).size(), 1);
    EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
}

TEST_F(BackupTest, AFullDiskLosesNoBackup) {
    putBackups({1, 2, 3, 4, 5});
    const QByteArray before = bytesOf(database);
    const FileSizeLimit full(8192);
    test.prompts.expect(PromptKind::Plain, u"Compacting Error"_s, AnswerOk);
    EXPECT_FALSE(BackupAndCompact(context(), database, true, {}));
    EXPECT_EQ(test.prompts.last().text, u"Error compacting database, Please try again.\n\n"
                                        "There is not enough space on the disk."_s);
    test.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
    EXPECT_FALSE(BackupOnly(context(), database));
    EXPECT_TRUE(test.prompts.last().text.contains(u"There is not enough space on the disk."));
    EXPECT_EQ(backupsThere(), u"1 2 3 4 5"_s);
    EXPECT_EQ(filesIn(backups).size(), 5);
    EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
    EXPECT_EQ(bytesOf(database), before);
}

TEST_F(BackupTest, AFullBackupDiskLosesNoBackup) {
    backups = otherVolume();
    if (backups.isEmpty())
        GTEST_SKIP() << "the computer has one file system only";
    putBackups({1, 2, 3, 4, 5});
    const QByteArray before = bytesOf(database);
    const FileSizeLimit full(before.size() - 1); // the compacted file fits, the copy does not
    test.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
    EXPECT_FALSE(BackupAndCompact(context(), database, true, {}));
    EXPECT_TRUE(test.prompts.last().text.contains(u"There is not enough space on the disk."));
    EXPECT_EQ(backupsThere(), u"1 2 3 4 5"_s);
    EXPECT_EQ(filesIn(backups).size(), 5);
    EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
    EXPECT_EQ(bytesOf(database), before);
}

TEST_F(BackupTest, AFolderThatCannotBeUsedIsToldAndNothingMoves) {
    const QByteArray before = bytesOf(database);
    writeFile(path(u"file"_s), "x");
    const QStringList folders{{}, path(u"gone/"_s), path(u"file/folder/"_s), u"/proc/"_s};
    for (const QString& folder : folders) {
        backups = folder;
        for (const bool compacting : {true, false}) {
            test.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
            EXPECT_FALSE(compacting ? BackupAndCompact(context(), database, true, {})
                                    : BackupOnly(context(), database));
            EXPECT_TRUE(
                test.prompts.last().text.endsWith(u"The database itself has not been changed."));
            EXPECT_EQ(bytesOf(database), before);
            EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
        }
    }
}

TEST_F(BackupTest, WhatIsNoClosedYearIsLeftAlone) {
    putBackups({1});
    const QString garbage = path(u"year/Garbage.mdb"_s);
    writeFile(garbage, QByteArray(5000, 'g'));
    makeYear(u"backups/Year.003"_s);
    makeYear(u"year/Year.new"_s);
    const dao::Database open = engine.OpenDatabase(database);
    const struct {
        QString file;
        QString compactTitle;
    } cases[] = {
        {database, u"Backup Error"_s},                 // still open
        {garbage, u"Compacting Error"_s},              // no database
        {path(u"year/gone.mdb"_s), u"Backup Error"_s}, // no file
        {path(u"year"_s), u"Backup Error"_s},          // a folder
        {backup(3), u"Backup Error"_s},                // the rotation would take it
        {path(u"year/Year.new"_s), u"Backup Error"_s}, // so would the compaction
    };
    for (const auto& c : cases) {
        const QByteArray before = bytesOf(c.file);
        test.prompts.expect(PromptKind::Plain, c.compactTitle, AnswerOk);
        EXPECT_FALSE(BackupAndCompact(context(), c.file, true, {})) << qPrintable(c.file);
        test.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
        EXPECT_FALSE(BackupOnly(context(), c.file)) << qPrintable(c.file);
        EXPECT_EQ(bytesOf(c.file), before);
        EXPECT_EQ(backupsThere(), u"1 - year - -"_s);
        if (!QFile::exists(c.file)) {
            EXPECT_TRUE(test.prompts.last().text.endsWith(u"The file could not be found."));
        }
    }
}

TEST_F(BackupTest, TheCompactionTakesYearsOnly) {
    pupilsFile(u"year/Pupils.mdb"_s).Close();
    QFile::copy(::test::testData(u"jet/year_ab_jet4.mdb"_s), path(u"year/Jet.mdb"_s));
    for (const auto& [name, reason] : {std::pair{u"year/Pupils.mdb"_s, u"no year's"_s},
                                       std::pair{u"year/Jet.mdb"_s, u"converted copy"_s}}) {
        const QByteArray before = bytesOf(path(name));
        test.prompts.expect(PromptKind::Plain, u"Compacting Error"_s, AnswerOk);
        EXPECT_FALSE(BackupAndCompact(context(), path(name), false, {}));
        EXPECT_TRUE(test.prompts.last().text.contains(reason));
        EXPECT_EQ(bytesOf(path(name)), before);
        EXPECT_TRUE(filesIn(backups).isEmpty());
    }
}

TEST_F(BackupTest, AnExtensionOfAnotherLengthGetsOddNames) {
    const QString odd = path(u"year/Year.sqlite"_s);
    ASSERT_TRUE(QFile::rename(database, odd));
    EXPECT_EQ(BackupNames(odd, backups).compacted, path(u"year/Year.sqlnew"_s));
    EXPECT_TRUE(BackupAndCompact(context(), odd, true, {}));
    EXPECT_EQ(pupilsIn(odd), Pupils);
    EXPECT_EQ(filesIn(backups), QStringList{u"Year.sql001"_s});
    EXPECT_EQ(BackupNames(u"db"_s, u"/b/"_s).backup(2), u"/b/002"_s);
}

TEST_F(BackupTest, AHalfWrittenChangeOfAKilledProgramIsUndoneFirst) {
    const QString journal = database + u"-journal"_s;
    completes([&] {
        const dao::Database year = engine.OpenDatabase(database);
        dao::Transaction bulk(year);
        // More than the library keeps in memory, so that it reaches the file.
        for (int i = 0; i < 200; ++i)
            addRecord(year, u"Pupils"_s, {u"Baker"_s, i, QString(60000, u'x')});
        _exit(1);
    });
    ASSERT_TRUE(QFile::exists(journal)) << "the change was not large enough to reach the file";
    EXPECT_TRUE(BackupOnly(context(), database));
    EXPECT_FALSE(QFile::exists(journal));
    EXPECT_EQ(pupilsIn(backup(1)), Pupils);
}

TEST_F(BackupTest, TheExposedMomentIsMendedAtTheNextStart) {
    enum class Compacted { None, Whole, Broken };
    const struct {
        Compacted compacted; ///< what the temporary file is
        bool hasBackup;
        BackupRecovery recovery;
    } cases[] = {
        {Compacted::Whole, true, BackupRecovery::CompactedPutBack},
        {Compacted::Whole, false, BackupRecovery::CompactedPutBack},
        {Compacted::Broken, true, BackupRecovery::BackupPutBack},
        {Compacted::Broken, false, BackupRecovery::NotPossible},
        {Compacted::None, true, BackupRecovery::NothingToDo}, // the teacher removed the file
        {Compacted::None, false, BackupRecovery::NothingToDo},
    };
    const QString compacted = path(u"year/Year.new"_s);
    const QString whole = path(u"whole.mdb"_s);
    QFile::rename(database, whole);
    for (const auto& c : cases) {
        for (const QString& file : {database, compacted, backup(1)})
            QFile::remove(file);
        if (c.hasBackup)
            QFile::copy(whole, backup(1));
        if (c.compacted == Compacted::Whole)
            QFile::copy(whole, compacted);
        if (c.compacted == Compacted::Broken)
            writeFile(compacted, bytesOf(whole).first(4096));
        if (c.recovery != BackupRecovery::NothingToDo)
            test.prompts.expect(PromptKind::Plain, u"Backup interrupted"_s, AnswerOk);
        EXPECT_EQ(RecoverInterruptedBackup(context(), database), c.recovery);
        const bool isBack = c.recovery == BackupRecovery::CompactedPutBack ||
                            c.recovery == BackupRecovery::BackupPutBack;
        ASSERT_EQ(QFile::exists(database), isBack);
        if (isBack) {
            EXPECT_EQ(pupilsIn(database), Pupils);
        }
        EXPECT_EQ(QFile::exists(backup(1)), c.hasBackup);
        EXPECT_EQ(QFile::exists(compacted), c.recovery == BackupRecovery::NotPossible);
    }
    EXPECT_EQ(RecoverInterruptedBackup(context(), {}), BackupRecovery::NothingToDo);
}

TEST_F(BackupTest, AFailureOfTheLastStepPutsTheDatabaseBack) {
    const QByteArray before = bytesOf(database);
    HookedProgress removing([this](const QString& line) {
        if (line == u"Creating latest backup file 001")
            QFile::remove(path(u"year/Year.new"_s));
    });
    test.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
    EXPECT_FALSE(compactWatchedBy(removing));
    EXPECT_EQ(bytesOf(database), before);
    EXPECT_EQ(filesIn(backups), QStringList());
}

TEST_F(BackupTest, AStartLeavesTheBackupOfAnotherProgramAlone) {
    const QString compacted = path(u"year/Year.new"_s);
    writeFile(compacted, "half");
    settings.set(setting::BackupInProgress, database);
    int started[2];
    int ending[2];
    ASSERT_EQ(pipe(started) + pipe(ending), 0);
    const pid_t other = fork();
    if (other == 0) {
        const auto lock = lockClosedFile(database);
        (void)!::write(started[1], "s", 1);
        char end = 0;
        close(ending[1]);
        (void)!read(ending[0], &end, 1);
        _exit(0);
    }
    char start = 0;
    EXPECT_EQ(read(started[0], &start, 1), 1);
    RecoverInterruptedBackup(context(), database);
    EXPECT_TRUE(QFile::exists(compacted));
    test.prompts.expect(PromptKind::Plain, u"Backup Error"_s, AnswerOk);
    EXPECT_FALSE(BackupAndCompact(context(), database, true, {}));
    EXPECT_TRUE(QFile::exists(compacted));
    for (const int descriptor : {started[0], started[1], ending[0], ending[1]})
        close(descriptor);
    waitpid(other, nullptr, 0);
    RecoverInterruptedBackup(context(), database);
    EXPECT_FALSE(QFile::exists(compacted)) << "nobody's leftover goes";
}

TEST_F(BackupTest, AFileOfSomebodysOwnUnderTheCompactedNameIsKept) {
    const QString own = path(u"year/Year.new"_s);
    writeFile(own, "mine");
    writeFile(own + u".kept"_s, "older");
    RecoverInterruptedBackup(context(), database);
    EXPECT_EQ(bytesOf(own), "mine");
    EXPECT_TRUE(BackupAndCompact(context(), database, true, {}));
    EXPECT_EQ(bytesOf(own + u".kept2"_s), "mine");
    EXPECT_EQ(bytesOf(own + u".kept"_s), "older");
    EXPECT_EQ(pupilsIn(database), Pupils);
    EXPECT_FALSE(QFile::exists(own));
}

TEST_F(BackupTest, AKillAtEachStep) {
    killAtEachStep();
}

TEST_F(BackupTest, AKillAtEachStepOnAnotherFileSystem) {
    backups = otherVolume();
    if (backups.isEmpty())
        GTEST_SKIP() << "the computer has one file system only";
    killAtEachStep();
}

TEST_F(BackupTest, AKillAtAnyInstant) {
    killAtAnyInstant(250);
}

TEST_F(BackupTest, AKillAtAnyInstantOnAnotherFileSystem) {
    backups = otherVolume();
    if (backups.isEmpty())
        GTEST_SKIP() << "the computer has one file system only";
    killAtAnyInstant(100);
}
