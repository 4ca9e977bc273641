// The pages of the settings without their dialog: what each writes, and what it leaves alone.

#include "classes/class_settings.h"
#include "core/core_settings.h"
#include "incidents/incident_titles.h"
#include "organiser/post_it_settings.h"
#include "planning/planning_settings.h"
#include "settings/password_change.h"
#include "settings/register_key_prompt.h"
#include "settings/settings_pages.h"
#include "store/engine/error.h"
#include "support/planning_year.h"

namespace {

class SettingPagesTest : public PlanningYear {
protected:
    SettingPagesTest() {
        session.DatabasePath = path();
        openYear(twoWeekAnswers());
    }
    Settings& kept() { return session.GetSettings(); }
    bool opensWith(const QString& password) {
        session.CloseAllDatabases();
        try {
            const dao::Database year =
                session.Engine().OpenDatabase(path(), false, true, dao::connectText(password));
            return year.isOpen();
        } catch (const dao::EngineError&) {
            return false;
        }
    }
};

} // namespace

TEST_F(SettingPagesTest, WithoutADefaultDatabaseTheWizardIsNotSkippedEither) {
    Apply_General(kept(), {.closing = ClosingBackup::BackUpOnly,
                           .defaultDatabase = u"/home/x/year.mdb"_s,
                           .skipsWizard = true,
                           .checksForUpgrade = false});
    EXPECT_EQ(readGeneral(kept()).defaultDatabase, u"/home/x/year.mdb"_s);
    EXPECT_TRUE(kept().get(setting::DontShowStartup));
    Apply_General(kept(), {.closing = ClosingBackup::Ask, .defaultDatabase = {}});
    EXPECT_FALSE(kept().find(setting::DefaultDatabasePath));
    EXPECT_FALSE(kept().find(setting::DontShowStartup));
    EXPECT_EQ(kept().get(setting::AutoBackup), ClosingBackup::Ask);
}

TEST_F(SettingPagesTest, AnEmptyBoxOfThePlansIsNotKept) {
    Apply_Planning(kept(), {.font = {},
                            .showsClassCoding = true,
                            .subject = u"Maths"_s,
                            .ability = u"Set 1"_s,
                            .unit = {},
                            .term = 2,
                            .times = {u"5 mins"_s, {}, u"10 mins"_s}});
    const PlanningValues read = readPlanning(kept());
    EXPECT_EQ(read.term, 2);
    EXPECT_EQ(read.times, (std::array{u"5 mins"_s, QString(), u"10 mins"_s}));
    Apply_Planning(kept(), PlanningValues());
    EXPECT_FALSE(kept().find(setting::STP_Subject));
    EXPECT_FALSE(kept().find(setting::STP_Term));
    EXPECT_FALSE(kept().find(setting::STP_Time3));
}

TEST_F(SettingPagesTest, BreaksGoIntoTheYear) {
    Apply_Timetable(session, {.breaks = {1, 0, 3}, .font = {.name = u"DejaVu Sans"_s, .size = 11}});
    const TimetableValues read = readTimetable(session);
    EXPECT_EQ(read.breaks, (std::array{1, 0, 3}));
    EXPECT_EQ(read.font.size, 11);
}

TEST_F(SettingPagesTest, TheKeysOfTheRegisterAreWrittenAsAWhole) {
    Apply_Register(kept(), {.keys = {u"L=Late"_s, u"H=No homework"_s}, .previousDates = 4});
    Apply_Register(kept(), {.keys = {u"S=Sick"_s}, .previousDates = 10});
    EXPECT_EQ(readRegister(session).keys, QStringList(u"S=Sick"_s));
    EXPECT_EQ(steppedPreviousDates(10, 1), 10);
    EXPECT_EQ(steppedPreviousDates(1, -1), 1);
    EXPECT_EQ(steppedPreviousDates(9, 1), 10);
}

TEST_F(SettingPagesTest, AKeyIsALetterWithADescription) {
    const struct {
        QString entry;
        QStringList present;
        QString refusal; ///< the title of its box
        QString row;
    } cases[] = {
        {u"l=Late"_s, {}, {}, u"L=Late"_s},
        {u"lLate"_s, {}, u"Invalid Entry"_s, {}},
        {u"l"_s, {}, u"Invalid Entry"_s, {}},
        {u"l=again"_s, {u"L=Late"_s}, u"Duplicate Entry"_s, {}},
        {QString(), {}, {}, {}},
    };
    for (const auto& [entry, present, refusal, row] : cases) {
        seams.prompts.expect(PromptKind::Input, u"Add a Character"_s, entry);
        if (!refusal.isEmpty())
            seams.prompts.expect(PromptKind::Message, refusal, AnswerOk);
        EXPECT_EQ(askRegisterKey(seams.prompts, present), row) << entry.toStdString();
    }
}

TEST_F(SettingPagesTest, TitlesAreKeptAtOnceUnderTheNextNumber) {
    addIncidentTitle(kept(), u"Late to lessons"_s);
    addIncidentTitle(kept(), u"O'Brien's phone"_s);
    addIncidentTitle(kept(), u"Late to lessons"_s);
    removeIncidentTitle(kept(), u"Late to lessons"_s);
    addIncidentTitle(kept(), u"No kit"_s);
    EXPECT_EQ(ownIncidentTitles(kept()), QStringList({u"O'Brien's phone"_s, u"No kit"_s}));
}

TEST_F(SettingPagesTest, APasswordIsSetChangedAndTakenAway) {
    const auto expectBox = [&](const QString& title) {
        seams.prompts.expect(PromptKind::Message, title, AnswerOk);
    };
    expectBox(u"Nothing to remove"_s);
    EXPECT_FALSE(RemovePassword(session, {}));
    expectBox(u"Missing Entry"_s);
    EXPECT_EQ(SetPassword(session, {}, u"a"_s, {}), PasswordChange::Refused);
    expectBox(u"Invalid Password"_s);
    EXPECT_EQ(SetPassword(session, {}, u"secret"_s, u"Secret"_s), PasswordChange::Mismatch);
    expectBox(u"Password Changed"_s);
    EXPECT_EQ(SetPassword(session, {}, u"it's"_s, u"it's"_s), PasswordChange::Done);
    EXPECT_EQ(session.DatabasePassword, u"it's"_s);
    expectBox(u"Password NOT Changed"_s);
    EXPECT_EQ(SetPassword(session, u"wrong"_s, u"b"_s, u"b"_s), PasswordChange::Refused);
    EXPECT_EQ(session.DatabasePassword, u"it's"_s);
    EXPECT_TRUE(session.CurrentDB.isOpen());
    EXPECT_FALSE(opensWith({}));
    EXPECT_TRUE(opensWith(u"it's"_s));
    ASSERT_EQ(session.OpenDatabaseFile(path(), u"it's"_s), OpenDone);
    expectBox(u"Password Removed"_s);
    EXPECT_TRUE(RemovePassword(session, u"it's"_s));
    EXPECT_TRUE(opensWith({}));
}
