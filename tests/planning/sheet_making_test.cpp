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

TEST_F(SheetMakingTest, TheLetterOfTheWeeksSheetsSaysWhichTimetableHolds) {
    const QStringList none{{}, {}, {}, {}, {}};
    const QStringList mondayA{u"7A"_s, {}, u"7A"_s, {}, {}};
    const QStringList mondayB{u"9C"_s, u"9C"_s, {}, {}, {}};
    const struct {
        const char* letters; ///< of the five sheets of the week; '-' for none
        QString startWeek;
        QStringList classes;
    } cases[] = {
        {"AAAAA", u"C"_s, mondayA}, {"BBBBB", u"B"_s, mondayB}, {"-B--A", u"B"_s, mondayA},
        {"-B---", u"B"_s, mondayB}, {"ABB--", u"C"_s, mondayB}, {"-----", u"A"_s, mondayB},
        {"-----", u"C"_s, none},
    };
    for (const auto& [letters, startWeek, classes] : cases) {
        changeRecord(database, u"Admin"_s, u"StartWeek"_s, startWeek);
        dao::Recordset week =
            database.OpenRecordset(u"SELECT * FROM Planning WHERE Week = 2 ORDER BY ID"_s);
        for (int day = 0; day < 5; ++day, week.MoveNext()) {
            const QChar letter = QLatin1Char(letters[day]);
            week.Edit();
            week.SetCollect(u"ABWeek", letter == u'-' ? dao::Value() : QString(letter));
            week.Update();
        }
        EXPECT_EQ(classesOfNewSheet(), classes) << letters;
    }
}

TEST_F(SheetMakingTest, ASheetIsAddedWholeOrNotAtAll) {
    dao::Recordset sheets = database.OpenRecordset(u"SELECT * FROM Planning"_s);
    const int before = sheets.RecordCount();
    database.TableDefs().Delete(u"Classcodes"_s); // fails behind the row's own writing
    EXPECT_THROW(AddNewPlan(database, sheets, u"24-09-09"_s), std::exception);
    EXPECT_EQ(database.OpenRecordset(u"Planning"_s).RecordCount(), before);
    EXPECT_EQ(sheets.RecordCount(), before);
}
