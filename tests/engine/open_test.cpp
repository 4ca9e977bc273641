// Opening: what is told apart, who may have a file, passwords, and copies.

#include "support/engine_files.h"

#include <QFile>
#include <QRandomGenerator>

#include <sqlcipher/sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

using dao::connectText;

namespace {

QString u(const char* text) {
    return QString::fromUtf8(text);
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray readFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray noise(int bytes) {
    QRandomGenerator random(7);
    QByteArray made(bytes, 0);
    for (char& byte : made)
        byte = static_cast<char>(random.bounded(256));
    return made;
}

/// Runs work in a process of its own; answers what it returns.
int inAnotherProcess(const std::function<int()>& work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
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
            addRecord(database, u("Pupils"), {u("Adams"), i, QString(500, u'x')});
        quick.commit();
        if (!password.isEmpty())
            database.NewPassword({}, password);
    }
};

} // namespace

TEST_F(OpenTest, ForeignAndDamagedFilesAreToldApart) {
    makeFile(u("whole.mdb"));
    makeFile(u("locked.mdb"), u("secret"));
    const QByteArray whole = readFile(path(u("whole.mdb")));
    const QByteArray locked = readFile(path(u("locked.mdb")));
    QByteArray damaged = whole;
    for (qsizetype at = 4096; at < damaged.size(); at += 4096)
        damaged.replace(at, 200, QByteArray(200, '\x55'));
    QByteArray badHeader = whole;
    badHeader.replace(16, 40, QByteArray(40, '\xff'));
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
          Case{"noise.mdb", noise(9 * 1024), dao::WrongPassword}}) {
        writeFile(path(u(file.name)), file.bytes);
        EXPECT_EQ(openError(u(file.name)), file.error) << file.name;
        EXPECT_EQ(readFile(path(u(file.name))), file.bytes) << file.name;
    }
    EXPECT_EQ(openError(u("missing.mdb")), dao::NoSuchFile);
    EXPECT_EQ(openError(u(".")), dao::CannotOpenFile);
    EXPECT_EQ(openError(u("whole.mdb"), u("needless")), 0);
}

TEST_F(OpenTest, AProtectedFileOpensWithItsPasswordAlone) {
    makeFile(u("year.mdb"), u("p\xc3\xa4ss;pwd=w'ord"));
    EXPECT_FALSE(readFile(path(u("year.mdb"))).contains("Adams"));
    EXPECT_EQ(openError(u("year.mdb")), dao::WrongPassword);
    EXPECT_EQ(openError(u("year.mdb"), u("wrong")), dao::WrongPassword);
    dao::Database database = engine.OpenDatabase(path(u("year.mdb")), false, false,
                                                 connectText(u("p\xc3\xa4ss;pwd=w'ord")));
    EXPECT_EQ(rowsOf(database, u("Pupils")).size(), 200);
    EXPECT_EQ(errorOf([&] { database.NewPassword(u("wrong"), u("x")); }), dao::WrongPassword);
    dao::Recordset records = database.OpenRecordset(u("Pupils"));
    EXPECT_EQ(errorOf([&] { database.NewPassword(u("p\xc3\xa4ss;pwd=w'ord"), u("x")); }),
              dao::InvalidOperation);
    records.Close();
    database.NewPassword(u("p\xc3\xa4ss;pwd=w'ord"), {});
    EXPECT_EQ(rowsOf(database, u("Pupils")).size(), 200) << "it goes on working";
    addRecord(database, u("Pupils"), {u("Baker")});
    database.Close();
    EXPECT_EQ(openError(u("year.mdb")), 0);
}

TEST_F(OpenTest, OneProcessOwnsAFile) {
    dao::Database database = pupilsFile(u("year.mdb"));
    const auto openThere = [this] {
        dao::DBEngine other;
        return errorOf([&] { other.OpenDatabase(path(u("year.mdb"))).Close(); }) -
               dao::OpenedExclusively;
    };
    EXPECT_EQ(inAnotherProcess([&] {
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
        const dao::Database held = other.OpenDatabase(path(u("year.mdb")));
        (void)!write(ready[1], "x", 1);
        pause();
        _exit(0);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    EXPECT_EQ(openThere(), 0);
    kill(owner, SIGKILL);
    waitpid(owner, nullptr, 0);
    EXPECT_EQ(openError(u("year.mdb")), 0) << "the lock died with its process";
    close(ready[0]);
    close(ready[1]);
}

TEST_F(OpenTest, TheSameProcessMayOpenAFileTwice) {
    dao::Database first = pupilsFile(u("year.mdb"));
    dao::Database second = engine.OpenDatabase(path(u("year.mdb")));
    EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path(u("year.mdb")), true); }),
              dao::OpenedExclusively);
    addRecord(first, u("Pupils"), {u("Adams")});
    addRecord(second, u("Pupils"), {u("Baker")});
    dao::Recordset records = second.OpenRecordset(u("Pupils"));
    EXPECT_EQ(records.RecordCount(), 2);
    EXPECT_EQ(errorOf([&] { first.TableDefs().Delete(u"Pupils"); }), dao::TableInUse);
    second.Close();
    first.TableDefs()[u"Pupils"].Fields().Rename(u"Mark", u("Grade"));
    EXPECT_EQ(first.OpenRecordset(u("Pupils")).Fields(2).Name(), u("Grade"));
}

TEST_F(OpenTest, ACompactCopyHoldsAllAndIsProtectedAlike) {
    for (const QString& password : {QString(), u("secret")}) {
        makeFile(u("year.mdb"), password);
        const QByteArray before = readFile(path(u("year.mdb")));
        engine.CompactDatabase(path(u("year.mdb")), path(u("copy.mdb")), {}, 0,
                               connectText(password));
        EXPECT_EQ(readFile(path(u("year.mdb"))), before);
        EXPECT_EQ(openError(u("copy.mdb")), password.isEmpty() ? 0 : dao::WrongPassword);
        dao::Database copy =
            engine.OpenDatabase(path(u("copy.mdb")), false, false, connectText(password));
        dao::Database source =
            engine.OpenDatabase(path(u("year.mdb")), false, false, connectText(password));
        EXPECT_EQ(rowsOf(copy, u("Pupils")), rowsOf(source, u("Pupils")));
        EXPECT_EQ(errorOf([&] {
                      engine.CompactDatabase(path(u("year.mdb")), path(u("copy.mdb")), {}, 0,
                                             connectText(password));
                  }),
                  dao::FileExists);
        copy.Close();
        source.Close();
        QFile::remove(path(u("copy.mdb")));
        QFile::remove(path(u("year.mdb")));
    }
    EXPECT_EQ(errorOf([&] { engine.CompactDatabase(path(u("missing.mdb")), path(u("copy.mdb"))); }),
              dao::NoSuchFile);
}

TEST_F(OpenTest, RepairKeepsWhatCanBeRead) {
    makeFile(u("year.mdb"));
    const QByteArray whole = readFile(path(u("year.mdb")));
    engine.RepairDatabase(path(u("year.mdb")));
    EXPECT_EQ(readFile(path(u("year.mdb"))), whole) << "a whole file stays as it is";
    QByteArray damaged = whole;
    damaged.replace(damaged.size() / 8192 * 4096, 4096, QByteArray(4096, '\x55'));
    writeFile(path(u("year.mdb")), damaged);
    ASSERT_EQ(openError(u("year.mdb")), dao::DamagedDatabase);
    engine.RepairDatabase(path(u("year.mdb")));
    dao::Database database = engine.OpenDatabase(path(u("year.mdb")));
    EXPECT_GT(rowsOf(database, u("Pupils")).size(), 150);
    EXPECT_EQ(errorOf([&] { engine.RepairDatabase(path(u("missing.mdb"))); }), dao::NoSuchFile);
}

TEST_F(OpenTest, ForeignRulesOfAFileDoNotRun) {
    pupilsFile(u("year.mdb")).Close();
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(qPrintable(path(u("year.mdb"))), &raw), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(raw,
                           "CREATE TRIGGER t AFTER INSERT ON Pupils BEGIN DELETE FROM Pupils; END",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(raw);
    dao::Database database = engine.OpenDatabase(path(u("year.mdb")));
    addRecord(database, u("Pupils"), {u("Adams")});
    EXPECT_EQ(rowsOf(database, u("Pupils")).size(), 1);
}
