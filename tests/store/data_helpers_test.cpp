#include "store/data_helpers.h"

#include "store/schema.h"
#include "store/table_names.h"
#include "support/year_file.h"

#include <gtest/gtest.h>

namespace {

class DataHelpers : public testing::Test {
protected:
    YearFile m_file{oneWeekAnswers()};
    dao::Database m_database = m_file.open();
    ScriptedPrompts m_prompts;

    dao::Recordset termDates() { return m_database.OpenRecordset(TermDatesTable); }
    static qint64 term(const dao::Recordset& rows) { return rows.Collect(u"Term").toInteger(); }
};

TEST_F(DataHelpers, TablesMatchExactlyAndFieldsByAnyCase) {
    EXPECT_TRUE(TableExists(m_database, QStringLiteral("TermDates")));
    EXPECT_FALSE(TableExists(m_database, QStringLiteral("termdates")));
    EXPECT_TRUE(FieldInRecordset(termDates(), QStringLiteral("TERM")));
    EXPECT_FALSE(FieldInTableDef(m_database.TableDefs()[TermDatesTable], QStringLiteral("Terms")));
}

TEST_F(DataHelpers, AddFieldComesLastWithItsFlag) {
    using enum dao::DataType;
    struct Case {
        const char* name;
        dao::DataType type;
        int size;
        ZeroLengthFlag flag;
        bool allowed;
    };
    const Case cases[] = {
        {"A", Text, 7, ZeroLengthFlag::On, true},   {"B", Memo, 0, ZeroLengthFlag::On, true},
        {"C", Text, 7, ZeroLengthFlag::Off, false}, {"D", Memo, 0, ZeroLengthFlag::NotGiven, false},
        {"E", Long, 0, ZeroLengthFlag::On, false},
    };
    for (const Case& each : cases) {
        AddField(m_database, TermDatesTable, QLatin1String(each.name), each.type, each.size,
                 each.flag);
        const dao::FieldCollection fields = m_database.TableDefs()[TermDatesTable].Fields();
        const dao::Field last = fields[fields.Count() - 1];
        EXPECT_EQ(last.Name, QLatin1String(each.name));
        EXPECT_EQ(last.AllowZeroLength, each.allowed) << each.name;
    }
}

TEST_F(DataHelpers, DeleteAllRecordsTellsOfAnEmptyOne) {
    dao::Recordset rows = termDates();
    DeleteAllRecords(rows, m_prompts);
    EXPECT_EQ(termDates().RecordCount(), 0);
    m_prompts.expect(PromptKind::Plain, QStringLiteral("Delete All Records error"), int(AnswerOk));
    dao::Recordset empty = termDates();
    DeleteAllRecords(empty, m_prompts);
    EXPECT_TRUE(m_prompts.last().text.startsWith(QLatin1String("Error : ")));
    EXPECT_TRUE(m_prompts.last().text.endsWith(QLatin1String("Error number 3021")));
}

TEST_F(DataHelpers, FindingKeepsOrLeavesThePlace) {
    dao::Recordset rows = termDates();
    rows.MoveNext();
    EXPECT_FALSE(FindInRecordset(rows, QStringLiteral("Term = 9")));
    EXPECT_EQ(term(rows), 2);
    EXPECT_TRUE(FindInRecordset(rows, QStringLiteral("Term = 1")));
    EXPECT_EQ(term(rows), 1);
    EXPECT_FALSE(FindFirstInRecordset(rows, QStringLiteral("Term = 9")));
    EXPECT_EQ(term(rows), 4);
    EXPECT_TRUE(FindFirstInRecordset(rows, QStringLiteral("Term = 3")));
    rows.MoveLast();
    rows.MoveNext(); // no place to come back to
    EXPECT_FALSE(FindInRecordset(rows, QStringLiteral("Term = 9")));
    CreateRoomIDTable(m_database);
    dao::Recordset empty = m_database.OpenRecordset(RoomIDTable);
    EXPECT_FALSE(FindInRecordset(empty, QStringLiteral("this is no condition")));
}

TEST_F(DataHelpers, StepsStopAtTheEnds) {
    dao::Recordset rows = termDates();
    EXPECT_FALSE(DataMovePrevious(rows));
    EXPECT_EQ(term(rows), 1);
    EXPECT_TRUE(DataMoveNext(rows) && DataMoveNext(rows) && DataMoveNext(rows));
    EXPECT_FALSE(DataMoveNext(rows));
    EXPECT_EQ(term(rows), 4);
    EXPECT_TRUE(DataMovePrevious(rows));
    EXPECT_EQ(term(rows), 3);
    for (int left = 3; left > 0; --left) {
        EXPECT_TRUE(DataDelete(rows)) << left;
        EXPECT_EQ(rows.RecordCount(), left);
    }
    EXPECT_FALSE(DataDelete(rows));
    EXPECT_FALSE(DataMoveNext(rows) || DataMovePrevious(rows));
}

TEST_F(DataHelpers, ClosingClosesAll) {
    dao::DBEngine engine;
    dao::Database database = engine.OpenDatabase(m_file.path());
    dao::Recordset rows = database.OpenRecordset(TermDatesTable);
    CloseRecordsets(database, m_prompts);
    EXPECT_FALSE(rows.isOpen());
    EXPECT_TRUE(database.isOpen());
    rows = database.OpenRecordset(TermDatesTable);
    CloseAllDatabases(engine.Workspaces(0), m_prompts);
    EXPECT_FALSE(rows.isOpen() || database.isOpen());
    EXPECT_TRUE(engine.Workspaces(0).Databases().isEmpty());
}

TEST_F(DataHelpers, TablesOnDemand) {
    CreateFileLinksTable(m_database);
    CreateLessonNotesTable(m_database);
    CreateRoomIDTable(m_database);
    CreateClassTempTable(m_database);
    for (const QString& table : {FileLinksTable, LessonNotesTable, RoomIDTable, ClassTempTable})
        EXPECT_TRUE(TableExists(m_database, table)) << table.toStdString();
}

} // namespace
