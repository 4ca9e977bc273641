// Seating plans without their window: where desks stand, the tables, plans of rooms, layouts.

#include "classes/class_removal.h"
#include "classes/pupils.h"
#include "seating/plan_layout.h"
#include "seating/plan_making.h"
#include "seating/plan_tables.h"
#include "store/engine/error.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "support/class_file.h"
#include "support/year_session.h"

#include <deque>

namespace {

class PlansTest : public YearSession {
protected:
    PlansTest() {
        openYear(oneWeekAnswers());
        seat(u"7A"_s, 3);
    }
    const dao::Database& year() { return session.CurrentDB; }
    /// Pupils named by numbers, the last surname first.
    void seat(const QString& classCode, int count) {
        QStringList names;
        for (int i = count; i > 0; --i)
            names += u"S%1,F%1"_s.arg(i, 2, 10, QLatin1Char('0'));
        addPupils(year(), classCode, names);
    }
    bool generate(const QString& classCode, const QString& roomCode = {}) {
        return GenerateNewPlan(year(), {classCode, roomCode}, room, seams.prompts);
    }
    Desks plan(const QString& classCode, const QString& roomCode = {}) {
        Desks desks;
        readPlan(year(), {classCode, roomCode}, desks);
        return desks;
    }
    static QStringList lefts(const Desks& desks) {
        QStringList texts;
        for (const Desk& desk : desks)
            texts += QString::number(desk.place.left());
        return texts;
    }
    static RandomNumber scripted(std::deque<double> numbers) {
        return [numbers]() mutable {
            const double number = numbers.front();
            numbers.pop_front();
            return number;
        };
    }

    Classroom room{.canvas = {9000, 6000}};
};

} // namespace

TEST(PlanLayout, DesksStandInRowsOfEightAsPairs) {
    const struct {
        int count;
        int width;          ///< of the canvas
        QList<QPoint> last; ///< corners of the last desks
    } cases[] = {
        {0, 9000, {}},
        {1, 9000, {{225, 225}}},
        // The gap is (9000 - 6840 - 500) / 3 = 553.33.
        {3, 9000, {{225, 225}, {1065, 225}, {2473, 225}}},
        {8, 9000, {{6969, 225}, {7809, 225}}},
        {9, 9000, {{7809, 225}, {225, 1425}}},
        {35, 9000, {{225, 5025}, {1065, 5025}, {2473, 5025}}},
        // (6001 - 7340) / 3 = -446.33: pairs overlap.
        {3, 6001, {{1065, 225}, {1474, 225}}},
    };
    for (const auto& each : cases) {
        const QList<QRect> places = deskRows(each.count, {855, 615}, {each.width, 6000});
        EXPECT_EQ(places.size(), each.count);
        for (qsizetype i = 0; i < each.last.size(); ++i)
            EXPECT_EQ(places[places.size() - each.last.size() + i],
                      QRect(each.last[i], QSize(855, 615)))
                << each.count << " desks, " << i;
    }
    EXPECT_EQ(teachersPlace({1695, 615}, {9000, 6000}), QRect(3652, 5355, 1695, 615));
    EXPECT_EQ(teachersPlace({1695, 615}, {1000, 6000}).left(), -348) << "halves are rounded down";
}

TEST(PlanLayout, AShuffleIsAPassOfSwapsAndLeavesTheTeacher) {
    Desks desks;
    shuffle(desks, [] { return 0.5; });
    for (int id = 1; id <= 3; ++id)
        desks += {.id = id, .place = {id * 1000, 0, 800 + id, 600}};
    desks += {.id = TeachersDesk, .place = {9000, 0, 1, 1}};
    std::deque<double> numbers{0.99, 0.34, 0.0};
    shuffle(desks, [&] {
        const double number = numbers.front();
        numbers.pop_front();
        return number;
    });
    // 1 with 3, 2 with itself, 3 with 1: as it was. Then 1 with 2, 2 with 3, 3 with itself.
    EXPECT_EQ(desks[0].place, QRect(1000, 0, 801, 600));
    numbers = {0.34, 0.99, 1.0};
    shuffle(desks, [&] {
        const double number = numbers.front();
        numbers.pop_front();
        return number;
    });
    EXPECT_EQ(desks[0].place, QRect(2000, 0, 802, 600));
    EXPECT_EQ(desks[1].place, QRect(3000, 0, 803, 600));
    EXPECT_EQ(desks[2].place, QRect(1000, 0, 801, 600));
    EXPECT_EQ(desks[3].place.left(), 9000);
}

TEST(PlanLayout, AListedPupilReadsSurnameFirst) {
    const struct {
        QString caption;
        QString entry; ///< empty: not listed
    } cases[] = {{u"Ann\r\nLee"_s, u"Lee\tAnn"_s},
                 {u"Mary Ann\r\nO'Brien"_s, u"O'Brien\tMary Ann"_s},
                 {u"Ann Lee\r\n"_s, u"Lee\r\n\tAnn"_s},
                 {u"Ann Lee"_s, u"Lee\tAnn"_s},
                 {u"Ann"_s, {}}};
    for (const auto& each : cases) {
        const QList<ListedPupil> listed = listedPupils({{.id = 1, .caption = each.caption}});
        EXPECT_EQ(listed.isEmpty() ? QString() : listed.first().entry, each.entry);
    }
}

TEST_F(PlansTest, ANewPlanHasItsDesksBySurnameTiedToThePupils) {
    ASSERT_TRUE(generate(u"7A"_s));
    const Desks desks = plan(u"7A"_s);
    ASSERT_EQ(desks.size(), 4);
    EXPECT_EQ(desks[0].caption, u"F01\r\nS01"_s);
    EXPECT_EQ(desks[0].id, 3) << "the order of their making, not of the numbers";
    EXPECT_EQ(desks[3].caption, u"TEACHER"_s);
    EXPECT_EQ(lefts(desks), QStringList({u"225"_s, u"1065"_s, u"2473"_s, u"3652"_s}));
    dao::Recordset pupil = rows(u"SELECT * FROM Class_7A WHERE ID = 3"_s);
    pupil.Delete();
    pupil.Close();
    EXPECT_EQ(plan(u"7A"_s).first().id, 2) << "by the relation";
    EXPECT_EQ(planLag(plan(u"7A"_s), pupilsToSeat(year(), u"7A"_s)), QString());
    put(u"SELECT * FROM Class_7A WHERE ID = 2"_s, u"Surname"_s, u"New"_s);
    EXPECT_EQ(planLag({}, pupilsToSeat(year(), u"7A"_s)), u"2 pupils have no desk"_s);
    EXPECT_EQ(planLag(plan(u"7A"_s), pupilsToSeat(year(), u"7A"_s)), u"1 desk has an old name"_s);
}

TEST_F(PlansTest, PlansOfClassesWhoseCodesContainOneAnotherStayApart) {
    const QStringList codes{u"B"_s, u"AB"_s, u"A_B"_s};
    for (const QString& code : codes) {
        year().TableDefs().Append(schemaTableDef(Table::Class, {}, code));
        seat(code, 1);
    }
    ASSERT_TRUE(generate(u"B"_s));
    ASSERT_TRUE(generate(u"AB"_s));
    ASSERT_TRUE(generate(u"B"_s, u"R1"_s));
    ASSERT_TRUE(generate(u"AB"_s, u"R1"_s));
    ASSERT_TRUE(generate(u"A_B"_s, u"R2"_s));
    EXPECT_EQ(GetMultiPlans(year(), u"AB"_s), QStringList({u"Default"_s, u"R1"_s}));
    // The test is on the tail of the name and on the first underline.
    EXPECT_EQ(GetMultiPlans(year(), u"B"_s),
              QStringList({u"Default"_s, u"R1"_s, u"R1"_s, u"R2"_s}));
    ASSERT_TRUE(Delete_Class(year(), u"B"_s, seams.prompts));
    EXPECT_EQ(planTables(year(), {u"B"_s, u"R1"_s}), PlanTables::None);
    for (const PlanName& kept :
         {PlanName{u"AB"_s, {}}, PlanName{u"AB"_s, u"R1"_s}, PlanName{u"A_B"_s, u"R2"_s}})
        EXPECT_EQ(planTables(year(), kept), PlanTables::Both) << qPrintable(kept.classCode);
}

TEST_F(PlansTest, AHalfOfAPairRefusesARoomAndIsLeftAsItWas) {
    ASSERT_TRUE(generate(u"7A"_s, u"R1"_s));
    for (const QString& half :
         {seatingPlanTable(u"7A"_s, u"R1"_s), seatingPlanExtraTable(u"7A"_s, u"R1"_s)}) {
        deletePlan(year(), {u"7A"_s, u"R1"_s});
        ASSERT_TRUE(generate(u"7A"_s, u"R1"_s));
        year().TableDefs().Delete(half);
        const PlanTables before = planTables(year(), {u"7A"_s, u"R1"_s});
        seams.prompts.expect(PromptKind::Plain, u"Unable to generate seating plan"_s, AnswerOk);
        EXPECT_FALSE(generate(u"7A"_s, u"R1"_s));
        EXPECT_EQ(planTables(year(), {u"7A"_s, u"R1"_s}), before);
    }
    year().TableDefs().Append(schemaTableDef(Table::SeatingPlanExtra, {}, u"7A"_s));
    EXPECT_TRUE(RegenerateTable(year(), u"7A"_s, room, seams.prompts)) << "whatever is there";
    EXPECT_EQ(plan(u"7A"_s).size(), 4);
}

TEST_F(PlansTest, APlanInUseIsNotMadeAndNothingIsLost) {
    ASSERT_TRUE(generate(u"7A"_s));
    dao::Recordset open = rows(u"Class_7A"_s);
    seams.prompts.expect(PromptKind::Message, u"Unable to generate seating plan"_s, AnswerOk);
    EXPECT_FALSE(RegenerateTable(year(), u"7A"_s, room, seams.prompts));
    open.Close();
    EXPECT_EQ(plan(u"7A"_s).size(), 4);
}

TEST_F(PlansTest, RoomCodesThatWouldBeTakenForOthersAreRefused) {
    for (const QString& code : {u"R 1"_s, u"R_1"_s, u"default"_s}) {
        seams.prompts.expect(PromptKind::Input, u"Room ID"_s, code);
        seams.prompts.expect(PromptKind::Message, u"Invalid Code"_s, AnswerOk);
        EXPECT_EQ(Create_NewPlan(year(), u"7A"_s, room, seams.prompts), QString());
    }
    for (const QString& code : {u"Lab's]1"_s, u"a.b"_s}) {
        seams.prompts.expect(PromptKind::Input, u"Room ID"_s, code);
        if (code.contains(u'.'))
            seams.prompts.expect(PromptKind::Plain, u"Unable to generate seating plan"_s, AnswerOk);
        const bool isMade = !Create_NewPlan(year(), u"7A"_s, room, seams.prompts).isEmpty();
        EXPECT_EQ(isMade, !code.contains(u'.'));
    }
    EXPECT_EQ(GetMultiPlans(year(), u"7A"_s), QStringList({u"Default"_s, u"Lab's]1"_s}));
    for (const PromptAnswer answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::Message, u"Delete Seating Plan"_s, answer);
        EXPECT_EQ(deleteRoomPlan(year(), {u"7A"_s, u"Lab's]1"_s}, seams.prompts),
                  answer == AnswerYes);
    }
    EXPECT_EQ(GetMultiPlans(year(), u"7A"_s), QStringList(u"Default"_s));
}

TEST_F(PlansTest, SavingWritesWhatChangedAndNamesWhoIsGone) {
    ASSERT_TRUE(generate(u"7A"_s));
    addEmptyDesk(year(), {u"7A"_s, {}},
                 {.id = -1, .place = {0, 0, 855, 615}, .caption = u"EMPTY"_s});
    Desks desks = plan(u"7A"_s);
    EXPECT_EQ(desks[3].id, -1);
    EXPECT_TRUE(desks[4].isTeachers());
    EXPECT_EQ(nextEmptyId(desks), -2);
    for (Desk& desk : desks)
        desk.place.translate(15, 30);
    EXPECT_TRUE(savePlan(year(), {u"7A"_s, {}}, desks).isEmpty());
    EXPECT_EQ(plan(u"7A"_s), desks);
    rows(u"SELECT * FROM sPlan_7A WHERE ID = 2"_s).Delete();
    rows(u"SELECT * FROM sPlanExtra_7A WHERE ID = 0"_s).Delete();
    rows(u"SELECT * FROM sPlanExtra_7A WHERE ID = -1"_s).Delete();
    const Desks missing = savePlan(year(), {u"7A"_s, {}}, desks);
    ASSERT_EQ(missing.size(), 1) << "only pupils are told";
    EXPECT_EQ(missing.first().id, 2);
    EXPECT_EQ(plan(u"7A"_s).size(), 2) << "and no teacher";
}

TEST_F(PlansTest, ALayoutIsCopiedWhereThereAreDesksEnough) {
    seat(u"8X"_s, 2);
    ASSERT_TRUE(generate(u"7A"_s));
    ASSERT_TRUE(generate(u"8X"_s));
    Desks desks = plan(u"7A"_s);
    const Desks before = desks;
    seams.prompts.expect(PromptKind::Message, u"Unable to copy layout:"_s, AnswerOk);
    EXPECT_FALSE(CopyLayout(year(), u"8X"_s, desks, seams.prompts));
    EXPECT_TRUE(seams.prompts.last().text.contains(u"You currently need 1 more desks."_s));
    EXPECT_EQ(desks, before);
    const QRect empty(4000, 4000, 900, 700);
    addEmptyDesk(year(), {u"8X"_s, {}}, {.id = -1, .place = empty});
    seams.prompts.expect(PromptKind::Message, u"Layout Copied"_s, AnswerOk);
    EXPECT_TRUE(CopyLayout(year(), u"8X"_s, desks, seams.prompts));
    EXPECT_EQ(desks[2].place, empty) << "the empty desk seats the last pupil";
    EXPECT_EQ(desks[2].id, before[2].id);
    // Without a teacher's desk on either side the rest is taken all the same.
    rows(u"SELECT * FROM sPlanExtra_8X WHERE ID = 0"_s).Delete();
    addEmptyDesk(year(), {u"8X"_s, {}}, {.id = -2, .place = empty});
    desks = before;
    desks.removeLast();
    seams.prompts.expect(PromptKind::Message, u"Layout Copied"_s, AnswerOk);
    EXPECT_TRUE(CopyLayout(year(), u"8X"_s, desks, seams.prompts));
    EXPECT_EQ(desks[2].place, empty);
}
