#include "core/database_closing.h"

#include "support/year_file.h"

namespace {

class DatabaseClosing : public testing::Test {
protected:
    YearFile m_file{oneWeekAnswers()};
    ScriptedPrompts m_prompts;
};

TEST_F(DatabaseClosing, ClosingClosesAll) {
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

} // namespace
