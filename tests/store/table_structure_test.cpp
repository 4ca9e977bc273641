#include "store/table_structure.h"

#include "support/year_file.h"

namespace {

class TableStructure : public testing::Test {
protected:
    YearFile m_file{oneWeekAnswers()};
    dao::Database m_database = m_file.open();
};

TEST_F(TableStructure, TablesMatchExactlyAndFieldsByAnyCase) {
    EXPECT_TRUE(TableExists(m_database, u"TermDates"_s));
    EXPECT_FALSE(TableExists(m_database, u"termdates"_s));
    EXPECT_TRUE(FieldInRecordset(m_database.OpenRecordset(TermDatesTable), u"TERM"_s));
    EXPECT_FALSE(FieldInTableDef(m_database.TableDefs()[TermDatesTable], u"Terms"_s));
}

TEST_F(TableStructure, AddFieldComesLastWithItsFlag) {
    using enum dao::DataType;
    const struct {
        const char* name;
        dao::DataType type;
        int size;
        ZeroLengthFlag flag;
        bool allowed;
    } cases[] = {
        {"A", Text, 7, ZeroLengthFlag::On, true},   {"B", Memo, 0, ZeroLengthFlag::On, true},
        {"C", Text, 7, ZeroLengthFlag::Off, false}, {"D", Memo, 0, ZeroLengthFlag::NotGiven, false},
        {"E", Long, 0, ZeroLengthFlag::On, false},
    };
    for (const auto& each : cases) {
        AddField(m_database, TermDatesTable, QLatin1String(each.name), each.type, each.size,
                 each.flag);
        const dao::FieldCollection fields = m_database.TableDefs()[TermDatesTable].Fields();
        const dao::Field last = fields[fields.Count() - 1];
        EXPECT_EQ(last.Name, QLatin1String(each.name));
        EXPECT_EQ(last.AllowZeroLength, each.allowed) << each.name;
    }
}

} // namespace
