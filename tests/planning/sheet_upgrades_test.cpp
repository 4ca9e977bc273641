#include "planning/sheet_upgrades.h"

#include "calendar/term_weeks.h"
#include "support/year_file.h"

namespace {

QString column(const dao::Database& database, const QString& field) {
    QString text;
    dao::Recordset sheets = database.OpenRecordset(PlanningTable);
    for (; !sheets.EOF_(); sheets.MoveNext())
        text += sheets.Collect(field).toText();
    return text;
}

/// A year's file as an older version made it: without weeks and letters.
class OlderFile {
public:
    OlderFile() : m_file(twoWeekAnswers()), m_database(m_file.open()) {
        m_weeks = column(m_database, u"Week"_s);
        m_letters = column(m_database, u"ABWeek"_s);
        fields().Delete(u"ABWeek");
        fields().Delete(u"Week");
    }
    dao::Database& database() { return m_database; }
    dao::FieldCollection fields() { return m_database.TableDefs()[PlanningTable].Fields(); }
    const QString& weeks() const { return m_weeks; }
    const QString& letters() const { return m_letters; }

private:
    YearFile m_file;
    dao::Database m_database;
    QString m_weeks;
    QString m_letters;
};

TEST(Upgrades, WeeksAndLettersComeBackAsCreationGaveThem) {
    OlderFile file;
    AddWeekField(file.database());
    AddABWeekField(file.database(), 1, u"B"_s);
    EXPECT_EQ(column(file.database(), u"Week"_s), file.weeks());
    EXPECT_EQ(column(file.database(), u"ABWeek"_s), file.letters());
    EXPECT_EQ(file.fields()[2].Name, u"Week"_s);
    EXPECT_EQ(file.fields()[2].Type, dao::DataType::Integer);
    EXPECT_EQ(file.fields()[3].Name, u"ABWeek"_s);
    EXPECT_EQ(file.fields()[3].Size, 1);
    // A second run finds the fields and does nothing, whatever it is told.
    AddWeekField(file.database());
    AddABWeekField(file.database(), 1, u"A"_s);
    EXPECT_EQ(column(file.database(), u"ABWeek"_s), file.letters());
}

TEST(Upgrades, LettersOnlyWithTwoTimetables) {
    OlderFile file;
    AddWeekField(file.database());
    AddABWeekField(file.database(), 0, QString());
    EXPECT_FALSE(file.fields().Contains(u"ABWeek"));
    AddABWeekField(file.database(), 1, u"x"_s); // all but "B" counts as "A"
    EXPECT_TRUE(column(file.database(), u"ABWeek"_s).startsWith(u'A'));
}

TEST(Upgrades, ASheetWithoutADateLeavesTheFileAsItWas) {
    OlderFile file;
    changeRecord(file.database(), PlanningTable, u"PlanDate"_s, u"nodate"_s);
    EXPECT_THROW(AddWeekField(file.database()), dao::EngineError);
    EXPECT_FALSE(file.fields().Contains(u"Week"));
}

} // namespace
