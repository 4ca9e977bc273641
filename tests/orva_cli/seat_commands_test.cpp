// Seating plans without a window: made, made anew, given another class's layout.

#include "seating/plan_tables.h"
#include "support/class_file.h"
#include "support/engine_places.h"
#include "support/engine_program.h"
#include "support/year_file.h"

using namespace Qt::StringLiterals;

namespace {

class SeatCommandsTest : public EngineFiles {
protected:
    void SetUp() override {
        TestSeams seams;
        createYear(twoWeekAnswers(), year, seams);
        const dao::Database database = engine.OpenDatabase(year);
        addPupils(database, u"7A"_s, {u"O'Brien,Zoë"_s, u"Ames,Ann"_s});
        addPupils(database, u"9C"_s, {u"May,Bo"_s});
    }
    Ended run(const QStringList& arguments) const {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
        environment.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
        return runProgram(test::built(u"bin/orva-cli"_s), arguments, {}, environment);
    }

    const QString year = path(u"Year.mdb"_s);
};

} // namespace

TEST_F(SeatCommandsTest, MakesPlansAndAsksBeforeOneIsMadeAnew) {
    const QString plan = u"2\t225\t225\t855\t615\tAnn\\r\\nAmes\n"
                         "1\t1065\t225\t855\t615\tZoë\\r\\nO'Brien\n"
                         "0\t3652\t5355\t1695\t615\tTEACHER\n"_s;
    const Ended made = run({u"seat"_s, year, u"7A"_s});
    EXPECT_EQ(made.output, plan) << qPrintable(made.errors);
    const Ended again = run({u"seat"_s, year, u"7A"_s});
    EXPECT_EQ(again.status, 1);
    EXPECT_TRUE(again.errors.startsWith(u"[Regenerate Plan] "_s));
    EXPECT_EQ(run({u"seat"_s, year, u"7A"_s, u"--yes"_s}).output, plan);
    const QStringList room{u"seat"_s, year,          u"7A"_s,       u"--room"_s,
                           u"R1"_s,   u"--canvas"_s, u"2001x1000"_s};
    EXPECT_TRUE(run(room).output.endsWith(u"\n0\t153\t355\t1695\t615\tTEACHER\n"_s));
    EXPECT_EQ(run(room).status, 1) << "it is there";
    EXPECT_EQ(run({u"seat"_s, year, u"6Z"_s}).status, 1);
    EXPECT_EQ(run({u"seat"_s, year, u"7A"_s, u"--room"_s, u"R 2"_s}).status, 1);
    EXPECT_EQ(run({u"seat"_s, year, u"7A"_s, u"--canvas"_s, u"12"_s}).status, 2);
}

TEST_F(SeatCommandsTest, CopiesALayoutOntoAClassWithoutAPlan) {
    ASSERT_EQ(run({u"seat"_s, year, u"7A"_s, u"--canvas"_s, u"12000x3000"_s}).status, 0);
    const QString copied = u"1\t225\t225\t855\t615\tBo\\r\\nMay\n"
                           "0\t5152\t2355\t1695\t615\tTEACHER\n"_s;
    const Ended done = run({u"seat-copy"_s, year, u"9C"_s, u"7A"_s});
    EXPECT_EQ(done.output, copied) << qPrintable(done.errors);
    const Ended tooFew = run({u"seat-copy"_s, year, u"7A"_s, u"9C"_s});
    EXPECT_EQ(tooFew.status, 1);
    EXPECT_TRUE(tooFew.errors.contains(u"You currently need 1 more desks."_s));
    EXPECT_EQ(run({u"seat-copy"_s, year, u"9C"_s, u"8X"_s}).status, 1) << "no plan to copy";
}
