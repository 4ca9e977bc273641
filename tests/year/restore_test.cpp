#include "year/repair.h"
#include "year/restore.h"

#include "core/core_settings.h"
#include "year/backup_fixture.h"

#include <QRandomGenerator>

namespace {

const QString chooseTitle = u" Select the backup database file to restore:"_s;

class RestoreTest : public BackupFiles {
protected:
    /// A backup of Year.mdb that has one pupil more than it.
    void SetUp() override {
        BackupFiles::SetUp();
        QFile::copy(database, path(u"newer.mdb"_s));
        addRecord(engine.OpenDatabase(path(u"newer.mdb"_s)), u"Pupils"_s, {u"Baker"_s, 1});
        putBackup();
    }

    /// The one backup that there is.
    void putBackup() {
        for (int number = 1; number <= OldestBackup; ++number)
            QFile::remove(backup(number));
        QFile::copy(path(u"newer.mdb"_s), backup(1));
    }

    void setDefault(const QString& file) { settings.set(setting::DefaultDatabasePath, file); }

    void choose(const QString& file) { test.prompts.expect(PromptKind::File, chooseTitle, file); }

    void answer(PromptAnswer reply) {
        test.prompts.expect(PromptKind::Message, u"Restore File"_s, reply);
    }

    RestoreSession session() {
        return {[this] { calls += u"close"_s; },
                [this] {
                    calls += u"isOpen"_s;
                    return isOpen;
                },
                [this] { calls += u"reopen"_s; }};
    }

    QStringList calls;
    bool isOpen = false;
};

} // namespace

TEST_F(RestoreTest, WhereABackupGoes) {
    const struct {
        const char* setDefault; ///< below the test's folder; none where empty
        const char* existing;   ///< a file that is there already
        int answer;             ///< to the question whether to replace; 0 where none comes
        const char* restored;
    } cases[] = {
        {"year/My year.mdb", "", 0, "year/My year.mdb"},
        {"", "", 0, "open/Year.mdb"},
        {"year/Year.mdb", "", AnswerYes, "year/Year.mdb"},
        {"year/Year.mdb", "", AnswerNo, "backups/Year.mdb"},
        {"year/Year.mdb", "backups/Year.mdb", AnswerNo, "backups/Year.mdb"},
        {"", "open/Year.mdb", AnswerYes, "open/Year.mdb"},
        {"", "open/Year.mdb", AnswerNo, "backups/Year.mdb"},
        {"backups/Year.mdb", "backups/Year.mdb", AnswerNo, ""}, // No would lead to the same file
    };
    for (const auto& c : cases) {
        const QString restored = QLatin1StringView(c.restored);
        putBackup();
        QFile::remove(path(u"backups/Year.mdb"_s));
        QFile::remove(path(u"open/Year.mdb"_s));
        settings.remove(setting::DefaultDatabasePath);
        if (*c.setDefault)
            setDefault(path(QLatin1StringView(c.setDefault)));
        if (*c.existing)
            QFile::copy(database, path(QLatin1StringView(c.existing)));
        const bool isReplaced = !restored.isEmpty() && QFile::exists(path(restored));
        const int kept = pupilsIn(isReplaced ? path(restored) : backup(1));
        choose(backup(1));
        if (c.answer != 0)
            answer(static_cast<PromptAnswer>(c.answer));
        const QString answered = RestoreBackupFile(context());
        EXPECT_EQ(answered, restored.isEmpty() ? QString() : path(restored));
        if (c.answer != 0) {
            EXPECT_TRUE(test.prompts.last().text.startsWith(u"Do you wish to replace the file /"));
        }
        if (!answered.isEmpty()) {
            EXPECT_EQ(pupilsIn(answered), Pupils + 1) << c.restored;
        }
        EXPECT_EQ(pupilsIn(backup(1)), kept);
        EXPECT_EQ(pupilsIn(backup(isReplaced ? 2 : 1)), Pupils + 1);
    }
    EXPECT_EQ(test.prompts.seen().constFirst().proposal, backups);
    test.prompts.expect(PromptKind::File, chooseTitle);
    EXPECT_EQ(RestoreBackupFile(context()), QString());
}

TEST_F(RestoreTest, ABackupWithAPasswordIsRestoredWithIt) {
    protect(backup(1), u"geheim"_s);
    QFile::setPermissions(backup(1), QFileDevice::ReadOwner);
    setDefault(database);
    choose(backup(1));
    answer(AnswerYes);
    EXPECT_EQ(RestoreBackupFile(context()), database);
    EXPECT_EQ(pupilsIn(database, u"geheim"_s), Pupils + 1);
    EXPECT_TRUE(QFile::permissions(database) & QFileDevice::WriteOwner);
}

TEST_F(RestoreTest, ALinkStandsForTheFileBehindIt) {
    const QString link = path(u"open/Link.mdb"_s);
    ASSERT_TRUE(QFile::link(database, link));
    setDefault(link);
    const auto restores = [&] {
        EXPECT_EQ(RestoreBackupFile(context()), link);
        EXPECT_TRUE(QFileInfo(link).isSymLink());
        EXPECT_EQ(pupilsIn(database), Pupils + 1);
    };
    choose(backup(1));
    answer(AnswerYes);
    restores();
    QFile::remove(database);
    choose(backup(2));
    restores();
}

TEST_F(RestoreTest, WhatCannotBeRestoredLeavesTheFile) {
    const QByteArray before = bytesOf(database);
    setDefault(database);
    const auto refuses = [&](const QString& file) {
        choose(file);
        answer(AnswerYes);
        test.prompts.expect(PromptKind::Plain, u"Restore Error"_s, AnswerOk);
        EXPECT_EQ(RestoreBackupFile(context()), QString());
        EXPECT_EQ(bytesOf(database), before);
        EXPECT_EQ(filesIn(path(u"year"_s)), QStringList{u"Year.mdb"_s});
    };
    writeFile(backup(2), bytesOf(backup(1)).first(8192));
    refuses(backup(2));
    writeFile(backup(3), "no database");
    refuses(backup(3));
    refuses(backup(4));
    {
        const FileSizeLimit full(20000);
        refuses(backup(1));
    }
    const dao::Database open = engine.OpenDatabase(database);
    refuses(backup(1));
}

TEST_F(RestoreTest, AKillAtAnyInstantLeavesTheFormerFileOrTheRestoredOne) {
    setDefault(database);
    QFile::copy(database, path(u"former.mdb"_s));
    QRandomGenerator random(5);
    for (int round = 0; round < 100; ++round) {
        QFile::remove(database);
        QFile::copy(path(u"former.mdb"_s), database);
        const int delay = 100 + random.bounded(8000);
        completes([&] {
            choose(backup(1));
            answer(AnswerYes);
            endAfter(delay);
            RestoreBackupFile(context());
        });
        ASSERT_TRUE(pupilsIn(database) == Pupils || pupilsIn(database) == Pupils + 1);
    }
}

TEST_F(RestoreTest, RepairAsksFirst) {
    const QString text = u"The opperation will attempt to repair a selected database.\n"
                         "You should only run this opperation if you are experiencing \n"
                         "problems with accessing data in the current database.\n"
                         "Do you wish to continue?"_s;
    test.prompts.expect(PromptKind::Message, u"Repair Database:"_s, AnswerNo);
    EXPECT_FALSE(RepairDatabaseFile(context(), database));
    EXPECT_EQ(test.prompts.last().text, text);
    protect(database, u"geheim"_s);
    test.prompts.expect(PromptKind::Message, u"Repair Database:"_s, AnswerYes);
    test.prompts.expect(PromptKind::Password, {}, u"geheim"_s);
    test.prompts.expect(PromptKind::AutoMessage, u"Database Repaired:"_s, AnswerOk);
    EXPECT_TRUE(RepairDatabaseFile(context(), database));
    EXPECT_EQ(test.prompts.last().text,
              u"The database file has been repaired. If you still have trouble accessing\n"
              "it's data try restoring a backup database file."_s);
    EXPECT_EQ(pupilsIn(database, u"geheim"_s), Pupils);
}

TEST_F(RestoreTest, WhatCannotBeRepairedIsTold) {
    writeFile(path(u"year/Garbage.mdb"_s), QByteArray(5000, 'g'));
    const dao::Database open = engine.OpenDatabase(database);
    for (const QString& file : {path(u"year/Garbage.mdb"_s), path(u"year/gone.mdb"_s), database}) {
        test.prompts.expect(PromptKind::Message, u"Repair Database:"_s, AnswerYes);
        test.prompts.expect(PromptKind::Plain, u"Repair Error"_s, AnswerOk);
        EXPECT_FALSE(RepairDatabaseFile(context(), file));
    }
}

TEST_F(RestoreTest, TheOlderRestoreKeepsTheFormerFile) {
    const QString chooseFolder = u"Select the directory which contains the backup database :"_s;
    const QString old = path(u"app/ORVA.OLD"_s);
    QDir().mkpath(path(u"stick"_s));
    QFile::copy(backup(1), path(u"stick/Year.mdb"_s));
    writeFile(old, "older");
    test.prompts.expect(PromptKind::Folder, chooseFolder, path(u"open"_s));
    test.prompts.expect(PromptKind::Plain, u"Invalid directory"_s, AnswerOk);
    test.prompts.expect(PromptKind::Folder, chooseFolder, path(u"stick"_s));
    test.prompts.expect(PromptKind::Plain, u"Backup restored:"_s, AnswerOk);
    RestoreBackup(context(), database, session());
    EXPECT_EQ(test.prompts.last().text,
              u"The backup database has been restored.\n"
              "The previously used database has been saved as the file ORVA.OLD"_s);
    EXPECT_EQ(calls, (QStringList{u"close"_s, u"isOpen"_s, u"reopen"_s}));
    EXPECT_EQ(pupilsIn(database), Pupils + 1);
    EXPECT_EQ(pupilsIn(old), Pupils);

    test.prompts.expect(PromptKind::Folder, chooseFolder);
    RestoreBackup(context(), database, session());
    isOpen = true;
    RestoreBackup(context(), database, session());
    EXPECT_EQ(calls.last(), u"reopen"_s);

    isOpen = false;
    writeFile(path(u"stick/Year.mdb"_s), "no database");
    test.prompts.expect(PromptKind::Folder, chooseFolder, path(u"stick"_s));
    test.prompts.expect(PromptKind::Plain, u"Restore Error"_s, AnswerOk);
    RestoreBackup(context(), database, session());
    EXPECT_TRUE(test.prompts.last().text.startsWith(
        u"Sorry this program was unable to copy the database file: \n%1\n  TO\n%2\n"
        "Please try to do this manually."_s.arg(path(u"stick/Year.mdb"_s), database)));
    EXPECT_EQ(pupilsIn(database), Pupils + 1);
    EXPECT_EQ(pupilsIn(old), Pupils);
}

TEST_F(RestoreTest, TheOlderRestoreOfANameMeansTheProgramsFolder) {
    QFile::copy(database, path(u"app/ORVA.mdb"_s));
    QFile::copy(backup(1), path(u"open/ORVA.mdb"_s));
    test.prompts.expect(PromptKind::Folder,
                        u"Select the directory which contains the backup database :"_s,
                        path(u"open"_s));
    test.prompts.expect(PromptKind::Plain, u"Backup restored:"_s, AnswerOk);
    RestoreBackup(context(), u"ORVA.mdb"_s, session());
    EXPECT_EQ(pupilsIn(path(u"app/ORVA.mdb"_s)), Pupils + 1);
    EXPECT_EQ(pupilsIn(path(u"app/ORVA.OLD"_s)), Pupils);
}
