// What a kill at any instant or a full disk leaves behind: a file that opens, with all that was
// acknowledged.

#include "store/engine/files.h"
#include "support/engine_files.h"
#include "support/engine_kill.h"

#include <QRandomGenerator>

namespace {

class DurabilityTest : public EngineFiles {
protected:
    void SetUp() override { file = path(u"year.mdb"_s); }

    QString file;
};

} // namespace

TEST_F(DurabilityTest, AKillWhileRecordsAreWrittenLosesTheLastAtMost) {
    pupilsFile().Close();
    QFile::rename(path(u"pupils.mdb"_s), file);
    QRandomGenerator random(1);
    int known = 0;
    for (int round = 0; round < 300; ++round) {
        const int delay = 100 + random.bounded(8000);
        // From the opening on, or after some records, so that slow disks get somewhere too.
        const int written = static_cast<int>(random.bounded(4));
        const int reported = lastReportOf([&](const auto& report) {
            if (written == 0)
                endAfter(delay);
            dao::DBEngine killed;
            const dao::Database database = killed.OpenDatabase(file);
            dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
            for (int number = known + 1;; ++number) {
                records.AddNew();
                records[u"Surname"] = u"Adams"_s;
                records[u"Mark"] = number % 30000;
                records[u"Notes"] = QString(100 + number % 3000, u'n');
                records.Update();
                report(number);
                if (number - known == written)
                    endAfter(delay);
            }
        });
        const dao::Database database = engine.OpenDatabase(file);
        const int found = database.OpenRecordset(u"Pupils"_s).RecordCount();
        const int acknowledged = std::max(reported, known);
        ASSERT_TRUE(found == acknowledged || found == acknowledged + 1)
            << "round " << round << ": " << found << " of " << acknowledged;
        known = found;
    }
    EXPECT_GT(known, 100) << "the kills came too early to prove anything";
}

TEST_F(DurabilityTest, AKillDuringAChangeOfStructureLeavesItDoneOrUndone) {
    dao::Database database = pupilsFile();
    dao::Transaction quick(database);
    for (int i = 0; i < 50; ++i)
        addRecord(database, u"Pupils"_s, {u"Adams"_s, i});
    quick.commit();
    database.Close();
    QFile::rename(path(u"pupils.mdb"_s), file);
    QRandomGenerator random(2);
    for (int round = 0; round < 100; ++round) {
        const int delay = 100 + random.bounded(15000);
        lastReportOf([&](const auto&) {
            dao::DBEngine killed;
            const dao::Database changed = killed.OpenDatabase(file);
            endAfter(delay);
            dao::FieldCollection fields = changed.TableDefs()[u"Pupils"].Fields();
            for (int position = 0;; position = (position + 1) % 3) {
                fields.SetOrdinalPosition(u"Mark", position);
                fields.Append(emptyableField(u"Extra"_s, dao::DataType::Text, 5));
                fields.Delete(u"Extra");
            }
        });
        database = engine.OpenDatabase(file);
        ASSERT_EQ(rowsOf(database, u"SELECT ID, Surname, Mark FROM Pupils"_s).last(),
                  u"50|Adams|49"_s);
        if (database.TableDefs()[u"Pupils"].Fields().Contains(u"Extra"))
            database.TableDefs()[u"Pupils"].Fields().Delete(u"Extra");
        database.Close();
    }
}

TEST_F(DurabilityTest, AKillDuringAChangeOfPasswordLeavesOneOfTheTwo) {
    dao::Database database = pupilsFile();
    addRecord(database, u"Pupils"_s, {u"Adams"_s});
    database.Close();
    QFile::rename(path(u"pupils.mdb"_s), file);
    QRandomGenerator random(3);
    for (int round = 0; round < 30; ++round) {
        const int delay = 100 + random.bounded(600000);
        lastReportOf([&](const auto&) {
            dao::DBEngine killed;
            dao::Database changed = killed.OpenDatabase(file);
            endAfter(delay);
            for (;;) {
                changed.NewPassword({}, u"secret"_s);
                changed.NewPassword(u"secret"_s, {});
            }
        });
        const int error = errorOf([&] { database = engine.OpenDatabase(file); });
        if (error == dao::WrongPassword)
            database = engine.OpenDatabase(file, false, false, dao::connectText(u"secret"_s));
        else
            ASSERT_EQ(error, 0);
        ASSERT_EQ(rowsOf(database, u"SELECT Surname FROM Pupils"_s), QStringList{u"Adams"_s});
        ASSERT_FALSE(QFile::exists(dao::unfinishedName(file))) << "it may be an unprotected copy";
        if (error != 0)
            database.NewPassword(u"secret"_s, {});
        database.Close();
    }
}

TEST(Files, AFolderThatCannotBeFlushedIsNoError) {
    EXPECT_NO_THROW(dao::flushToDisk(u"/proc"_s));
    EXPECT_THROW(dao::flushToDisk(u"/proc/no such folder"_s), dao::EngineError);
}

TEST_F(DurabilityTest, AFullDiskIsAnErrorAndLosesNothing) {
    dao::Database database = pupilsFile();
    addRecord(database, u"Pupils"_s, {u"Adams"_s, 1});
    const qint64 size = QFileInfo(path(u"pupils.mdb"_s)).size();
    {
        const FileSizeLimit full(size + 4096);
        dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
        records.Edit();
        records[u"Notes"] = QString(100000, u'x');
        EXPECT_EQ(errorOf([&] { records.Update(); }), dao::DiskFull);
        EXPECT_EQ(records.EditMode(), dao::EditMode::InProgress) << "nothing typed is lost";
        EXPECT_EQ(errorOf([&] {
                      dao::Transaction bulk(database);
                      for (int i = 0; i < 100; ++i)
                          addRecord(database, u"Pupils"_s, {u"Baker"_s, i, QString(1000, u'x')});
                      bulk.commit();
                  }),
                  dao::DiskFull);
        EXPECT_EQ(rowsOf(database, u"SELECT Surname, Mark FROM Pupils"_s),
                  QStringList{u"Adams|1"_s});
    }
    dao::Recordset records = database.OpenRecordset(u"Pupils"_s);
    records.Edit();
    records[u"Notes"] = QString(100000, u'x');
    records.Update();
    records.Close();
    database.Close();
    {
        const FileSizeLimit full(50000);
        EXPECT_EQ(
            errorOf([&] { engine.CompactDatabase(path(u"pupils.mdb"_s), path(u"copy.mdb"_s)); }),
            dao::DiskFull);
        EXPECT_EQ(errorOf([&] {
                      database = engine.OpenDatabase(path(u"pupils.mdb"_s));
                      database.NewPassword({}, u"secret"_s);
                  }),
                  dao::DiskFull);
    }
    const QFileInfoList left =
        QFileInfo(path(u"pupils.mdb"_s)).dir().entryInfoList(QDir::Files | QDir::Hidden);
    EXPECT_EQ(left.size(), 1) << "no copy is left behind";
    EXPECT_EQ(rowsOf(database, u"SELECT Surname, Mark FROM Pupils"_s), QStringList{u"Adams|1"_s});
}
