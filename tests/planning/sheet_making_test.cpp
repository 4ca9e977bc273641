// Which classes a new sheet gets where the timetable is not as it should be.

#include "planning/sheet_fields.h"
#include "planning/sheet_making.h"

#include "support/year_file.h"

namespace {

class SheetMakingTest : public testing::Test {
protected:
    /// Of a sheet that is added for Monday 9 September, in an A week.
    QStringList classesOfNewSheet() {
        dao::Recordset sheets = database.OpenRecordset(u"Planning"_s);
        AddNewPlan(database, sheets, u"24-09-09"_s);
        QStringList classes;
        for (int period = 1; period <= file.answers().periodsPerDay; ++period)
            classes += sheets.Collect(classField(period)).toText();
        return classes;
    }

    YearFile file{twoWeekAnswers()};
    dao::Database database = file.open();
};

} // namespace

TEST_F(SheetMakingTest, ALaterClassWinsAClashAndPeriodsBeyondTheDayAreNone) {
    changeRecord(database, u"SELECT * FROM Classcodes WHERE Classcode = '8X'"_s, u"Mon"_s,
                 u"1790x"_s);
    EXPECT_EQ(classesOfNewSheet(), (QStringList{u"8X"_s, {}, u"7A"_s, {}, {}}));
}

TEST_F(SheetMakingTest, WithoutAStartLetterNoTimetableHolds) {
    changeRecord(database, u"Admin"_s, u"StartWeek"_s, u"C"_s);
    EXPECT_EQ(classesOfNewSheet(), (QStringList{{}, {}, {}, {}, {}}));
}

TEST_F(SheetMakingTest, ASheetIsAddedWholeOrNotAtAll) {
    dao::Recordset sheets = database.OpenRecordset(u"SELECT * FROM Planning"_s);
    const int before = sheets.RecordCount();
    database.TableDefs().Delete(u"Classcodes"_s); // fails behind the row's own writing
    EXPECT_THROW(AddNewPlan(database, sheets, u"24-09-09"_s), std::exception);
    EXPECT_EQ(database.OpenRecordset(u"Planning"_s).RecordCount(), before);
    EXPECT_EQ(sheets.RecordCount(), before);
}
