// The New Class Wizard's pages and checks.

#include "classes/new_class.h"
#include "support/class_file.h"

namespace {

class NewClassTest : public testing::Test {
protected:
    TestSeams seams;
};

} // namespace

TEST_F(NewClassTest, KeysOfTheCodeBox) {
    for (const QString& key : {u"aA"_s, u"ZZ"_s, u"77"_s, u"[["_s, u"éÉ"_s, u"\b\b"_s, u"\r\r"_s})
        EXPECT_EQ(classCodeKey(seams.prompts, key.first(1)), key.sliced(1));
    for (const QString& refused : {u" "_s, u"'"_s, u"~"_s, u"\x7F"_s}) {
        seams.prompts.expect(PromptKind::Plain, u"Invalid Character"_s, AnswerOk);
        EXPECT_EQ(classCodeKey(seams.prompts, refused), QString());
    }
}

TEST_F(NewClassTest, TheFirstPageWantsANewCode) {
    YearFile file(twoWeekAnswers());
    NewClass answers = readNewClass(file.open());
    EXPECT_EQ(answers.codesInUse, (QStringList{u"7A"_s, u"8X"_s, u"9C"_s}));

    seams.prompts.expect(PromptKind::Plain, u"New Class setup"_s, AnswerOk);
    EXPECT_EQ(nextPage(answers, ClassCodePage, seams.prompts), NewClassStep::Stay);
    EXPECT_EQ(seams.prompts.last().text, u"You have not entered a new Classcode!\n"
                                         "You must do this before you can continue."_s);
    for (const QString& taken : {u"8X"_s, u"TEMP"_s}) {
        answers.code = taken;
        seams.prompts.expect(PromptKind::Plain, u"New Class Setup"_s, AnswerOk);
        EXPECT_EQ(nextPage(answers, ClassCodePage, seams.prompts), NewClassStep::Stay);
        EXPECT_EQ(seams.prompts.last().text,
                  u"This Classcode is already in use! Please enter a unique code."_s);
        EXPECT_TRUE(answers.code.isEmpty());
    }
}

TEST_F(NewClassTest, PagesOfOneAndTwoWeeks) {
    YearFile twoWeeks(twoWeekAnswers());
    NewClass answers = readNewClass(twoWeeks.open());
    answers.code = u"N"_s;
    EXPECT_EQ(nextPage(answers, ClassCodePage, seams.prompts), NewClassStep::Move);
    EXPECT_EQ(nextButtonText(answers), u"Next >>"_s);
    EXPECT_EQ(nextPage(answers, TimetableAPage, seams.prompts), NewClassStep::Move);
    EXPECT_EQ(answers.page, TimetableBPage);
    EXPECT_EQ(nextButtonText(answers), u"Next >>"_s);
    EXPECT_EQ(nextPage(answers, TimetableBPage, seams.prompts), NewClassStep::Finish);
    EXPECT_EQ(nextButtonText(answers), u"Finish >>"_s);
    previousPage(answers, TimetableBPage);
    EXPECT_EQ(answers.page, TimetableAPage);
    EXPECT_EQ(nextButtonText(answers), u"Next >>"_s);

    YearFile oneWeek(oneWeekAnswers());
    answers = readNewClass(oneWeek.open());
    answers.code = u"N"_s;
    EXPECT_EQ(nextPage(answers, ClassCodePage, seams.prompts), NewClassStep::Move);
    EXPECT_EQ(nextButtonText(answers), u"Finish >>"_s);
    EXPECT_EQ(nextPage(answers, TimetableAPage, seams.prompts), NewClassStep::Finish);
}

TEST_F(NewClassTest, PicksToggleAndGoWithTheirCode) {
    YearFile file(twoWeekAnswers());
    NewClass answers = readNewClass(file.open());
    answers.code = u"N"_s;
    seams.prompts.expect(PromptKind::Plain, u"Period unavailable"_s, AnswerOk);
    EXPECT_FALSE(toggleCell(answers, u'A', cellOf(3, 0), seams.prompts)); // 7A is there
    EXPECT_TRUE(toggleCell(answers, u'A', cellOf(2, 0), seams.prompts));
    EXPECT_TRUE(toggleCell(answers, u'A', cellOf(5, 4), seams.prompts));
    EXPECT_TRUE(toggleCell(answers, u'A', cellOf(5, 4), seams.prompts));
    EXPECT_TRUE(toggleCell(answers, u'B', cellOf(3, 0), seams.prompts));
    EXPECT_EQ(pickedPeriods(answers).weekA[0], u"2"_s);
    EXPECT_EQ(pickedPeriods(answers).weekA[4], QString());
    EXPECT_EQ(pickedPeriods(answers).weekB[0], u"3"_s);

    answers.code = u"M"_s;
    nextPage(answers, ClassCodePage, seams.prompts);
    EXPECT_EQ(pickedPeriods(answers).weekA[0], QString());
    EXPECT_EQ(answers.weekA[cellOf(2, 0)].caption, QString());
    EXPECT_EQ(answers.weekA[cellOf(3, 0)].caption, u"7A"_s);
}
