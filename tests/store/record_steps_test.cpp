#include "store/record_steps.h"

#include "support/year_file.h"

namespace {

class RecordSteps : public testing::Test {
protected:
    YearFile m_file{oneWeekAnswers()};
    dao::Database m_database = m_file.open();
    ScriptedPrompts m_prompts;

    dao::Recordset termDates() { return m_database.OpenRecordset(TermDatesTable); }
    static qint64 term(const dao::Recordset& rows) { return rows.Collect(u"Term").toInteger(); }
};

TEST_F(RecordSteps, FindingKeepsOrLeavesThePlace) {
    dao::Recordset rows = termDates();
    rows.MoveNext();
    EXPECT_FALSE(FindInRecordset(rows, u"Term = 9"_s));
    EXPECT_EQ(term(rows), 2);
    EXPECT_TRUE(FindInRecordset(rows, u"Term = 1"_s));
    EXPECT_EQ(term(rows), 1);
    EXPECT_FALSE(FindFirstInRecordset(rows, u"Term = 9"_s));
    EXPECT_EQ(term(rows), 4);
    EXPECT_TRUE(FindFirstInRecordset(rows, u"Term = 3"_s));
    rows.MoveLast();
    rows.MoveNext(); // no place to come back to
    EXPECT_FALSE(FindInRecordset(rows, u"Term = 9"_s));
    CreateRoomIDTable(m_database);
    dao::Recordset empty = m_database.OpenRecordset(RoomIDTable);
    EXPECT_FALSE(FindInRecordset(empty, u"this is no condition"_s));
}

TEST_F(RecordSteps, StepsStopAtTheEnds) {
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

TEST_F(RecordSteps, DeleteAllRecordsTellsOfAnEmptyOne) {
    dao::Recordset rows = termDates();
    DeleteAllRecords(rows, m_prompts);
    EXPECT_EQ(termDates().RecordCount(), 0);
    m_prompts.expect(PromptKind::Plain, u"Delete All Records error"_s, int(AnswerOk));
    dao::Recordset empty = termDates();
    DeleteAllRecords(empty, m_prompts);
    EXPECT_TRUE(m_prompts.last().text.startsWith(QLatin1String("Error : ")));
    EXPECT_TRUE(m_prompts.last().text.endsWith(QLatin1String("Error number 3021")));
}

} // namespace
