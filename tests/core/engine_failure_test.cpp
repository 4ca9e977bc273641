#include "core/engine_failure.h"

#include "store/engine/error.h"
#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(EngineFailure, ABoxSaysWhatItsTextAsksFor) {
    const dao::EngineError error(dao::NoSuchItem, u"No item a %1 and %2"_s);
    const QString says = error.description();
    ASSERT_TRUE(says.contains(u"a %1 and %2"_s)); // marks of its own stay as they are
    const struct {
        FailureBox box;
        QString text;
    } cases[] = {
        {{u"Title"}, u"Error : "_s + says + u"\nError number 3265"_s},
        {{u"Title", u"number %2\n%1"}, u"number 3265\n"_s + says},
        {{u"Title", u"number %2", OkButton | WarningIcon}, u"number 3265"_s},
        {{.title = u"Title", .text = u"%1", .flags = OkButton}, says},
    };
    ScriptedPrompts prompts;
    for (const auto& [box, text] : cases) {
        prompts.expect(PromptKind::Plain, u"Title"_s, AnswerOk);
        EXPECT_FALSE(tryTelling(prompts, box, [&] { throw error; }));
        EXPECT_EQ(prompts.last().text, text);
        EXPECT_EQ(prompts.last().flags, box.flags);
    }
    EXPECT_TRUE(tryTelling(prompts, {u"Title"}, [] {}));
}
