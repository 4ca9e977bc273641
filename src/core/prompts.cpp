#include "core/prompts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int ButtonsMask = 15;

} // namespace

QList<PromptButton> promptButtons(int flags) {
    const PromptButton ok{AnswerOk, u"OK"_s};
    const PromptButton cancel{AnswerCancel, u"Cancel"_s};
    const PromptButton retry{AnswerRetry, u"Retry"_s};
    const PromptButton yes{AnswerYes, u"Yes"_s};
    const PromptButton no{AnswerNo, u"No"_s};
    switch (flags & ButtonsMask) {
    case OkCancelButtons:
        return {ok, cancel};
    case AbortRetryIgnoreButtons:
        return {{AnswerAbort, u"Abort"_s}, retry, {AnswerIgnore, u"Ignore"_s}};
    case YesNoCancelButtons:
        return {yes, no, cancel};
    case YesNoButtons:
        return {yes, no};
    case RetryCancelButtons:
        return {retry, cancel};
    default:
        return {ok};
    }
}

PromptAnswer defaultAnswer(int flags) {
    const QList<PromptButton> buttons = promptButtons(flags);
    const bool second = (flags & SecondButtonDefault) != 0 && buttons.size() > 1;
    return buttons.at(second ? 1 : 0).answer;
}

PromptAnswer firstOffered(int flags, std::initializer_list<PromptAnswer> answers) {
    const QList<PromptButton> buttons = promptButtons(flags);
    for (const PromptAnswer answer : answers) {
        if (std::any_of(buttons.begin(), buttons.end(),
                        [answer](const PromptButton& button) { return button.answer == answer; }))
            return answer;
    }
    return AnswerOk;
}

PromptAnswer decliningAnswer(int flags) {
    if ((flags & FirstButtonDeclines) != 0)
        return promptButtons(flags).constFirst().answer;
    return firstOffered(flags, {AnswerCancel, AnswerNo, AnswerAbort});
}
