
#include "support/recording_seams.h"

#include <gtest/gtest.h>

TEST(PromptButtons, TheDefaultAndTheDecliningAnswerOfEachSet) {
    struct Case {
        int flags;
        PromptAnswer usual;
        PromptAnswer declined;
    };
    const Case cases[] = {
        {OkButton, AnswerOk, AnswerOk},
        {OkButton | SecondButtonDefault, AnswerOk, AnswerOk},
        {OkCancelButtons | WarningIcon, AnswerOk, AnswerCancel},
        {AbortRetryIgnoreButtons, AnswerAbort, AnswerAbort},
        {AbortRetryIgnoreButtons | SecondButtonDefault, AnswerRetry, AnswerAbort},
        {YesNoCancelButtons | InformationIcon, AnswerYes, AnswerCancel},
        {YesNoButtons | QuestionIcon | SecondButtonDefault, AnswerNo, AnswerNo},
        {RetryCancelButtons | CriticalIcon, AnswerRetry, AnswerCancel},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(defaultAnswer(c.flags), c.usual) << c.flags;
        EXPECT_EQ(decliningAnswer(c.flags), c.declined) << c.flags;
    }
}

TEST(Shell, MailHasNoBlankInItsCommand) {
    TestSeams test;
    test.shell.SendMail(u"head@school.org"_s, u"Week 3 & 4"_s, u"Dear all,\nsee you"_s);
    EXPECT_EQ(
        test.shell.runs.constFirst().file,
        u"mailto:head@school.org?subject=Week%203%20%26%204&body=Dear%20all%2C%0Asee%20you"_s);
}

TEST(ScriptedClock, TimersRunInOrderAtTheirOwnTime) {
    using namespace std::chrono_literals;
    TestSeams test;
    Clock& clock = test.seams().clock;
    const QDateTime start = clock.now();
    QList<qint64> fired;
    const auto note = [&] { fired.append(start.secsTo(clock.now())); };
    const auto last = clock.after(30s, note);
    std::unique_ptr<Timer> again = clock.after(10s, [&] {
        note();
        again = clock.after(15s, note);
    });
    clock.after(5s, note).reset();
    const auto later = clock.after(60s, note);
    test.clock.advance(40s);
    EXPECT_EQ(fired, (QList<qint64>{10, 25, 30}));
    EXPECT_EQ(test.clock.running(), 1);
}
