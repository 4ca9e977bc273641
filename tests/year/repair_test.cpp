// Repair: what comes back from a year of which a page is damaged, or that was cut off, and how a
// damaged year is met at opening. Which records stand on a page is read from the sound file's
// bytes.

#include "support/class_file.h"
#include "support/year_session.h"
#include "year/repair.h"
#include "year/year_mending.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr qsizetype PageSize = 4096;
constexpr qsizetype ProtectedPageSize = 1024;
constexpr qsizetype MarkLength = 14; ///< enough that no other record has it

/// All records of a file by table, a text each, and where the bytes of its texts stand in the file.
struct YearRecords {
    QHash<QString, QStringList> records;
    QHash<QString, QByteArray> marks; ///< by record, of those that have enough text to be found by
};

YearRecords recordsOf(const dao::Database& year) {
    YearRecords all;
    for (const QString& table : year.TableDefs().names()) {
        dao::Recordset rows = year.OpenRecordset(table, dao::RecordsetType::Snapshot);
        for (; !rows.EOF_(); rows.MoveNext()) {
            QString record = table;
            QByteArray mark; // texts that follow each other stand together in the file
            for (int i = 0; i < rows.FieldCount(); ++i) {
                const dao::Value value = rows.Collect(i);
                record += u'|' + (value.isNull() ? u"~"_s : value.toText());
                if (value.isText())
                    mark += value.toText().toUtf8();
                else if (!value.isNull())
                    mark.clear();
            }
            all.records[table] += record;
            if (mark.size() >= MarkLength)
                all.marks[record] = mark;
        }
    }
    return all;
}

class RepairTest : public YearSession {
protected:
    void SetUp() override {
        createYear(twoWeekAnswers(), path(), seams);
        dao::Database database = engine.OpenDatabase(path());
        fillClasses(database);
        fillSheets(database);
        sound = recordsOf(database);
        database.Close();
        bytes = bytesOf(path());
    }

    static void fillClasses(const dao::Database& database) {
        int size = 30;
        for (const QString& code : {u"7A"_s, u"9C"_s}) {
            QStringList names;
            for (int i = 1; i <= size; ++i)
                names += u"%1's pupil %2,First"_s.arg(code).arg(i);
            addPupils(database, code, names);
            database.TableDefs()[marksTable(code)].Fields().Append(
                emptyableField(u"Remark"_s, dao::DataType::Text, 50));
            for (dao::Recordset marks = database.OpenRecordset(marksTable(code)); !marks.EOF_();
                 marks.MoveNext()) {
                marks.Edit();
                marks[u"Remark"] = u"%2's remark on %1"_s.arg(marks.Collect(0).toText(), code);
                marks.Update();
            }
            size -= 7;
        }
    }

    static void fillSheets(const dao::Database& database) {
        int number = 0;
        for (dao::Recordset sheets = database.OpenRecordset(PlanningTable); !sheets.EOF_();
             sheets.MoveNext()) {
            sheets.Edit();
            ++number;
            sheets[u"Lesson1"] = u"Lesson %1 "_s.arg(number).repeated(number * 30);
            sheets[u"Notes"] = u"Notes on day %1"_s.arg(number);
            sheets.Update();
        }
    }

    QByteArray withPage(qsizetype page, qsizetype size, char filling) const {
        QByteArray damaged = bytes;
        return damaged.replace(page * size, size, QByteArray(size, filling));
    }

    /// Mends a file of these bytes; the records that did not come back although no byte of theirs
    /// was among `gone`.
    QStringList lostFrom(const QByteArray& damaged, const QByteArray& gone) {
        writeFile(path(u"damaged.mdb"_s), damaged);
        engine.RepairDatabase(path(u"damaged.mdb"_s), {}, {}, yearKnowledge());
        const dao::FileCheck check = engine.CheckDatabase(path(u"damaged.mdb"_s));
        EXPECT_TRUE(check.fault.isEmpty());
        for (const dao::TableCheck& table : check.tables)
            EXPECT_EQ(table.fault, QString()) << qPrintable(table.table);
        const YearRecords mended = recordsOf(engine.OpenDatabase(path(u"damaged.mdb"_s)));
        QStringList lost;
        for (auto table = sound.records.cbegin(); table != sound.records.cend(); ++table) {
            for (const QString& record : table.value()) {
                const QByteArray mark = sound.marks.value(record);
                const bool isGone = mark.isEmpty() || isPartOf(mark, gone);
                if (!isGone && !mended.records.value(table.key()).contains(record))
                    lost += record;
            }
        }
        return lost;
    }

    static QString summary(const QStringList& lost) {
        return u"%1 records, the first %2"_s.arg(lost.size()).arg(lost.value(0).left(60));
    }

    /// Whether the start or the end of a mark stands in these bytes, or they are a part of it.
    static bool isPartOf(const QByteArray& mark, const QByteArray& gone) {
        return gone.contains(mark.first(MarkLength)) || gone.contains(mark.last(MarkLength)) ||
               (mark.size() > PageSize && gone.contains(mark.mid(mark.size() / 2, MarkLength)));
    }

    YearRecords sound;
    QByteArray bytes;
};

} // namespace

TEST_F(RepairTest, OnePageCostsNoRecordOnAnother) {
    for (qsizetype page = 0; page < bytes.size() / PageSize; ++page) {
        const QStringList lost =
            lostFrom(withPage(page, PageSize, '\x55'), bytes.mid(page * PageSize, PageSize));
        EXPECT_TRUE(lost.isEmpty()) << "page " << page + 1 << ": " << qPrintable(summary(lost));
    }
}

TEST_F(RepairTest, ACutFileKeepsWhatIsInFrontOfTheCut) {
    for (const int percent : {95, 80, 60, 40}) {
        const qsizetype left = bytes.size() * percent / 100;
        const QStringList lost =
            lostFrom(bytes.first(left), bytes.sliced(left / PageSize * PageSize));
        EXPECT_TRUE(lost.isEmpty()) << percent << " %: " << qPrintable(summary(lost));
    }
}

TEST_F(RepairTest, AProtectedYearComesBackUnderItsPassword) {
    const QString password = u"geheim"_s;
    engine.OpenDatabase(path()).NewPassword({}, password);
    bytes = bytesOf(path());
    qsizetype all = 0;
    for (const QStringList& records : std::as_const(sound.records))
        all += records.size();
    const qsizetype pages = bytes.size() / ProtectedPageSize;
    QByteArray firstPage = bytes;
    firstPage.replace(200, 20, QByteArray(20, '\x55'));
    for (const QByteArray& damaged :
         {firstPage, withPage(1, ProtectedPageSize, '\x55'), withPage(2, ProtectedPageSize, '\x55'),
          withPage(pages / 2, ProtectedPageSize, 0), bytes.chopped(700)}) {
        writeFile(path(u"damaged.mdb"_s), damaged);
        const auto repair = [&](const QString& given) {
            return engine.RepairDatabase(path(u"damaged.mdb"_s), dao::connectText(given), {},
                                         yearKnowledge());
        };
        EXPECT_EQ(errorOf([&] { repair(u"wrong"_s); }), dao::WrongPassword);
        const dao::RepairReport report = repair(password);
        qint64 gone = 0;
        for (const dao::RepairedTable& table : report.tables)
            gone += table.lost + table.inPart;
        EXPECT_LE(gone, 12) << "more than a page holds";
        qsizetype kept = 0;
        const YearRecords mended = recordsOf(
            engine.OpenDatabase(path(u"damaged.mdb"_s), false, false, dao::connectText(password)));
        for (auto table = sound.records.cbegin(); table != sound.records.cend(); ++table) {
            for (const QString& record : table.value())
                kept += mended.records.value(table.key()).contains(record);
        }
        EXPECT_GE(kept, all - gone);
    }
}

TEST_F(RepairTest, TheYearsOwnRecordIsMadeAnewFromTheSheets) {
    const qsizetype page = bytes.indexOf("Mrs A Morrow") / PageSize;
    writeFile(path(), withPage(page, PageSize, '\x55'));
    seams.prompts.expect(PromptKind::Message, u"Invalid Database"_s, AnswerYes);
    seams.prompts.expect(PromptKind::Message, u"Database Repaired:"_s, AnswerOk);
    ASSERT_EQ(OpenOrRepair(session, path(), {}), OpenDone);
    EXPECT_EQ(session.PeriodsPerDay, 5);
    EXPECT_EQ(session.TTweekly, 1);
    EXPECT_EQ(session.StartWeek, u"B"_s);
    EXPECT_EQ(session.AcademicYear, u"2024-2025"_s);
}

TEST_F(RepairTest, ADamagedYearIsMendedWhenItIsOpened) {
    const QByteArray damaged = withPage(bytes.indexOf("7A's pupil 3") / PageSize, PageSize, '\x55');
    writeFile(path(), damaged);
    seams.prompts.expect(PromptKind::Message, u"Invalid Database"_s, AnswerNo);
    EXPECT_EQ(OpenOrRepair(session, path(), {}), OpenCancelled);
    EXPECT_TRUE(seams.prompts.last().text.contains(u"year.damaged.mdb"_s));
    EXPECT_EQ(bytesOf(path()), damaged);

    seams.prompts.expect(PromptKind::Message, u"Invalid Database"_s, AnswerYes);
    seams.prompts.expect(PromptKind::Message, u"Database Repaired:"_s, AnswerOk);
    EXPECT_EQ(OpenOrRepair(session, path(), {}), OpenDone);
    const QString told = seams.prompts.last().text;
    EXPECT_TRUE(told.contains(u"Class_7A: 0 records saved"_s)) << qPrintable(told);
    EXPECT_TRUE(told.contains(u"Planning (13)"_s)) << qPrintable(told);
    EXPECT_EQ(bytesOf(path(u"year.damaged.mdb"_s)), damaged);
    EXPECT_EQ(rows(registerTable(u"7A"_s)).RecordCount(), 30) << "pupils stand for the lost ones";
    EXPECT_EQ(rows(classTable(u"7A"_s)).Collect(u"Surname").toText(), u"? 1"_s);
    session.CloseAllDatabases();

    writeFile(path(), damaged); // and a second damaged file takes nobody's place
    seams.prompts.expect(PromptKind::Message, u"Repair Database:"_s, AnswerYes);
    seams.prompts.expect(PromptKind::Message, u"Database Repaired:"_s, AnswerOk);
    EXPECT_EQ(RepairDatabaseFile(backupContext(session), path())->kept,
              path(u"year.damaged 2.mdb"_s));
}
