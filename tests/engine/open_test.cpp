// Opening: what is told apart, who may have a file, passwords, and copies.

#include "support/engine_files.h"
#include "support/engine_kill.h"

#include <QRandomGenerator>

#include <sqlcipher/sqlite3.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using dao::connectText;

namespace {

QByteArray noise(int bytes) {
    QRandomGenerator random(7);
    QByteArray made(bytes, 0);
    for (char& byte : made)
        byte = static_cast<char>(random.bounded(256));
    return made;
}

class OpenTest : public EngineFiles {
protected:
    int openError(const QString& name, const QString& password = {}) {
        return errorOf(
            [&] { engine.OpenDatabase(path(name), false, false, connectText(password)).Close(); });
    }

    /// A year's worth of pages, protected when a password is given.
    void makeFile(const QString& name, const QString& password = {}) {
        dao::Database database = pupilsFile(name);
        dao::Transaction quick(database);
        for (int i = 0; i < 200; ++i)
            addRecord(database, u"Pupils"_s, {u"Adams"_s, i, QString(500, u'x')});
        quick.commit();
        if (!password.isEmpty())
            database.NewPassword({}, password);
    }
};

} // namespace

TEST_F(OpenTest, ForeignAndDamagedFilesAreToldApart) {
    makeFile(u"whole.mdb"_s);
    makeFile(u"locked.mdb"_s, u"secret"_s);
    const QByteArray whole = bytesOf(path(u"whole.mdb"_s));
    const QByteArray locked = bytesOf(path(u"locked.mdb"_s));
    QByteArray damaged = whole;
    for (qsizetype at = 4096; at < damaged.size(); at += 4096)
        damaged.replace(at, 200, QByteArray(200, '\x55'));
    QByteArray badHeader = whole;
    badHeader.replace(16, 40, QByteArray(40, '\xff'));
    const QByteArray jetHeader("\x00\x01\x00\x00Standard Jet DB\x00\x01", 21);
    struct Case {
        const char* name;
        QByteArray bytes;
        int error;
    };
    for (const Case& file :
         {Case{"empty.mdb", {}, dao::DamagedDatabase},
          Case{"short.mdb", "SQLite", dao::DamagedDatabase},
          Case{"text.mdb", QByteArray("Dear Sir or Madam, ").repeated(300), dao::DamagedDatabase},
          Case{"zeros.mdb", QByteArray(8192, 0), dao::DamagedDatabase},
          Case{"header_only.mdb", whole.left(100), dao::DamagedDatabase},
          Case{"truncated.mdb", whole.left(whole.size() / 2), dao::DamagedDatabase},
          Case{"cut_in_a_page.mdb", whole.left(whole.size() - 1000), dao::DamagedDatabase},
          Case{"damaged.mdb", damaged, dao::DamagedDatabase},
          Case{"bad_header.mdb", badHeader, dao::DamagedDatabase},
          Case{"odd_noise.mdb", noise(9000), dao::DamagedDatabase},
          Case{"cut_protected.mdb", locked.left(locked.size() - 300), dao::DamagedDatabase},
          Case{"longer.mdb", whole + "x", dao::DamagedDatabase},
          Case{"jet_header.mdb", jetHeader + QByteArray(4 * 4096 - jetHeader.size(), 0),
               dao::DamagedDatabase},
          Case{"jet_start.mdb", jetHeader + noise(4000), dao::DamagedDatabase},
          Case{"noise.mdb", noise(9 * 1024), dao::WrongPassword}}) {
        writeFile(path(QString::fromUtf8(file.name)), file.bytes);
        EXPECT_EQ(openError(QString::fromUtf8(file.name)), file.error) << file.name;
        EXPECT_EQ(bytesOf(path(QString::fromUtf8(file.name))), file.bytes) << file.name;
    }
    EXPECT_EQ(openError(u"missing.mdb"_s), dao::NoSuchFile);
    EXPECT_EQ(openError(u"."_s), dao::CannotOpenFile);
    EXPECT_EQ(openError(u"whole.mdb"_s, u"needless"_s), 0);
}

TEST_F(OpenTest, ADamagedProtectedFileIsNoWrongPassword) {
    makeFile(u"locked.mdb"_s, u"secret"_s);
    const QByteArray locked = bytesOf(path(u"locked.mdb"_s));
    for (const qsizetype page : {0, 1, 2, 40}) {
        QByteArray damaged = locked;
        damaged.replace(page * 1024 + 100, 30, noise(30));
        writeFile(path(u"locked.mdb"_s), damaged);
        EXPECT_EQ(openError(u"locked.mdb"_s, u"secret"_s), dao::DamagedDatabase) << page;
        EXPECT_EQ(openError(u"locked.mdb"_s), dao::WrongPassword) << page;
    }
}

TEST_F(OpenTest, AProtectedFileOpensWithItsPasswordAlone) {
    makeFile(u"year.mdb"_s, u"päss;pwd=w'ord"_s);
    EXPECT_FALSE(bytesOf(path(u"year.mdb"_s)).contains("Adams"));
    EXPECT_EQ(openError(u"year.mdb"_s), dao::WrongPassword);
    EXPECT_EQ(openError(u"year.mdb"_s, u"wrong"_s), dao::WrongPassword);
    EXPECT_EQ(statusOf([&] {
                  ::prctl(PR_SET_DUMPABLE, 1);
                  engine.OpenDatabase(path(u"year.mdb"_s), false, false,
                                      connectText(u"päss;pwd=w'ord"_s));
                  return ::prctl(PR_GET_DUMPABLE);
              }),
              0)
        << "no image of what is protected";
    dao::Database database =
        engine.OpenDatabase(path(u"year.mdb"_s), false, false, connectText(u"päss;pwd=w'ord"_s));
    EXPECT_EQ(rowsOf(database, u"Pupils"_s).size(), 200);
    EXPECT_EQ(errorOf([&] { database.NewPassword(u"wrong"_s, u"x"_s); }), dao::WrongPassword);
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    EXPECT_EQ(errorOf([&] { database.NewPassword(u"päss;pwd=w'ord"_s, u"x"_s); }),
              dao::InvalidOperation);
    records.Close();
    database.NewPassword(u"päss;pwd=w'ord"_s, {});
    EXPECT_EQ(rowsOf(database, u"Pupils"_s).size(), 200) << "it goes on working";
    addRecord(database, u"Pupils"_s, {u"Baker"_s});
    database.Close();
    EXPECT_EQ(openError(u"year.mdb"_s), 0);
}

TEST_F(OpenTest, AFileThatLosesItsNameGoesOnInAnother) {
    for (const QString& password : {QString(), u"secret"_s}) {
        const QString former = path(u"former.mdb"_s);
        const QString target = path(u"target%1.mdb"_s.arg(password.size()));
        QFile::remove(former);
        makeFile(u"former.mdb"_s, password);
        dao::Database database =
            engine.OpenDatabase(former, false, false, dao::connectText(password));
        changeRecord(database, u"SELECT * FROM Pupils WHERE ID = 7"_s, u"Mark"_s, 1000);
        dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
        records.FindFirst(u"Mark = 1000"_s);
        const auto write = [&](const QString& name) {
            records.Edit();
            records[u"Surname"] = name;
            records.Update();
        };
        EXPECT_TRUE(database.IsInPlace());
        QFile::rename(former, path(u"elsewhere.mdb"_s));
        pupilsFile(u"former.mdb"_s).Close(); // another one has its name
        EXPECT_FALSE(database.IsInPlace());
        EXPECT_EQ(errorOf([&] { write(u"Baker"_s); }), dao::NoSuchFile);
        records.CancelUpdate();
        EXPECT_EQ(errorOf([&] { database.MoveTo(former); }), dao::FileExists);
        {
            const FileSizeLimit full(20000);
            EXPECT_EQ(errorOf([&] { database.MoveTo(target); }), dao::DiskFull);
        }
        EXPECT_FALSE(QFile::exists(target));
        QFile::remove(path(u"elsewhere.mdb"_s));
        database.MoveTo(target);
        EXPECT_TRUE(database.IsInPlace());
        EXPECT_EQ(database.Name(), target);
        write(u"Baker"_s);
        EXPECT_EQ(errorOf([&] { database.TableDefs().Delete(u"Pupils"_s); }), dao::TableInUse);
        records.Close();
        database.Close();
        const dao::Database again =
            engine.OpenDatabase(target, false, false, dao::connectText(password));
        EXPECT_EQ(rowsOf(again, u"SELECT Surname FROM Pupils WHERE Mark = 1000"_s),
                  QStringList(u"Baker"_s));
        EXPECT_EQ(rowsOf(again, u"Pupils"_s).size(), 200);
        EXPECT_EQ(QFile::permissions(target) & (QFile::ReadGroup | QFile::ReadOther),
                  QFile::Permissions());
    }
}

TEST_F(OpenTest, OneProcessOwnsAFile) {
    dao::Database database = pupilsFile(u"year.mdb"_s);
    const auto openThere = [this] {
        dao::DBEngine other;
        return errorOf([&] { other.OpenDatabase(path(u"year.mdb"_s)).Close(); }) -
               dao::OpenedExclusively;
    };
    EXPECT_EQ(statusOf([&] {
                  _exit(execl("/bin/true", "true", nullptr));
                  return 1;
              }),
              0)
        << "a program started meanwhile does not take the lock along";
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    database.Close();
    const pid_t owner = fork();
    if (owner == 0) {
        dao::DBEngine other;
        const dao::Database held = other.OpenDatabase(path(u"year.mdb"_s));
        (void)!write(ready[1], "x", 1);
        pause();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_EQ(openThere(), 0);
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_EQ(openError(u"year.mdb"_s), 0) << "the lock died with its process";
    close(ready[0]);
    close(ready[1]);
}

TEST_F(OpenTest, TheSameProcessMayOpenAFileTwice) {
    dao::Database first = pupilsFile(u"year.mdb"_s);
    dao::Database second = engine.OpenDatabase(path(u"year.mdb"_s));
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path(u"year.mdb"_s), true); }),
              dao::OpenedExclusively);
    addRecord(first, u"Pupils"_s, {u"Adams"_s});
    addRecord(second, u"Pupils"_s, {u"Baker"_s});
    dao::Recordset records = second.OpenRecordset(u"Pupils"_s);
    EXPECT_EQ(records.RecordCount(), 2);
    EXPECT_EQ(errorOf([&] { first.TableDefs().Delete(u"Pupils"); }), dao::TableInUse);
    second.Close();
    first.TableDefs()[u"Pupils"].Fields().Rename(u"Mark", u"Grade"_s);
    EXPECT_EQ(first.OpenRecordset(u"Pupils"_s).Fields(2).Name(), u"Grade"_s);
}

TEST_F(OpenTest, ACompactCopyHoldsAllAndIsProtectedAlike) {
    for (const QString& password : {QString(), u"secret"_s}) {
        makeFile(u"year.mdb"_s, password);
        const QByteArray before = bytesOf(path(u"year.mdb"_s));
        engine.CompactDatabase(path(u"year.mdb"_s), path(u"copy.mdb"_s), {}, 0,
                               connectText(password));
        EXPECT_EQ(bytesOf(path(u"year.mdb"_s)), before);
        EXPECT_EQ(openError(u"copy.mdb"_s), password.isEmpty() ? 0 : dao::WrongPassword);
        dao::Database copy =
            engine.OpenDatabase(path(u"copy.mdb"_s), false, false, connectText(password));
        dao::Database source =
            engine.OpenDatabase(path(u"year.mdb"_s), false, false, connectText(password));
        EXPECT_EQ(rowsOf(copy, u"Pupils"_s), rowsOf(source, u"Pupils"_s));
        EXPECT_EQ(errorOf([&] {
                      engine.CompactDatabase(path(u"year.mdb"_s), path(u"copy.mdb"_s), {}, 0,
                                             connectText(password));
                  }),
                  dao::FileExists);
        copy.Close();
        source.Close();
        QFile::remove(path(u"copy.mdb"_s));
        QFile::remove(path(u"year.mdb"_s));
    }
    EXPECT_EQ(errorOf([&] { engine.CompactDatabase(path(u"missing.mdb"_s), path(u"copy.mdb"_s)); }),
              dao::NoSuchFile);
}

TEST_F(OpenTest, RepairKeepsWhatCanBeRead) {
    makeFile(u"year.mdb"_s);
    const QByteArray whole = bytesOf(path(u"year.mdb"_s));
    engine.RepairDatabase(path(u"year.mdb"_s));
    EXPECT_EQ(bytesOf(path(u"year.mdb"_s)), whole) << "a whole file stays as it is";
    QByteArray damaged = whole;
    damaged.replace(damaged.size() / 8192 * 4096, 4096, QByteArray(4096, '\x55'));
    writeFile(path(u"year.mdb"_s), damaged);
    ASSERT_EQ(openError(u"year.mdb"_s), dao::DamagedDatabase);
    engine.RepairDatabase(path(u"year.mdb"_s));
    dao::Database database = engine.OpenDatabase(path(u"year.mdb"_s));
    EXPECT_GT(rowsOf(database, u"Pupils"_s).size(), 150);
    EXPECT_EQ(errorOf([&] { engine.RepairDatabase(path(u"missing.mdb"_s)); }), dao::NoSuchFile);
}

TEST_F(OpenTest, ADefinitionThatIsCutOffCostsNoRecord) {
    makeFile(u"year.mdb"_s);
    QList<dao::Field> fields;
    for (int i = 1; i <= 200; ++i)
        fields += emptyableField(u"Field %1"_s.arg(i), dao::DataType::Text, 1);
    dao::Database database = engine.OpenDatabase(path(u"year.mdb"_s));
    appendTable(database, u"Wide"_s, fields);
    addRecord(database, u"Wide"_s, {u"x"_s, u"y"_s});
    const QStringList sound = rowsOf(database, u"Wide"_s);
    database.Close();
    const QByteArray whole = bytesOf(path(u"year.mdb"_s));
    for (const char filling : {'\x55', '\0'}) {
        QByteArray damaged = whole;
        const qsizetype page = damaged.indexOf("Field 150") / 4096 * 4096;
        writeFile(path(u"year.mdb"_s), damaged.replace(page, 4096, QByteArray(4096, filling)));
        EXPECT_EQ(openError(u"year.mdb"_s), dao::DamagedDatabase) << "and no full disk";
        engine.RepairDatabase(path(u"year.mdb"_s));
        database = engine.OpenDatabase(path(u"year.mdb"_s));
        EXPECT_EQ(rowsOf(database, u"Wide"_s), sound);
        EXPECT_EQ(rowsOf(database, u"Pupils"_s).size(), 200);
        database.Close();
    }
}

TEST_F(OpenTest, ForeignRulesOfAFileDoNotRun) {
    pupilsFile(u"year.mdb"_s).Close();
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(qPrintable(path(u"year.mdb"_s)), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw,
                           "CREATE TRIGGER t AFTER INSERT ON Pupils BEGIN DELETE FROM Pupils; END",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(raw);
    dao::Database database = engine.OpenDatabase(path(u"year.mdb"_s));
    addRecord(database, u"Pupils"_s, {u"Adams"_s});
    EXPECT_EQ(rowsOf(database, u"Pupils"_s).size(), 1);
}
