#include "core/console_prompts.h"

#include "core/tab_separated.h"

#include <cstdio>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

void print(const QString& title, const QString& text) {
    const QString line = u"[%1] %2\n"_s.arg(escapedText(title), escapedText(text));
    std::fputs(line.toUtf8().constData(), stderr);
}

} // namespace

PromptAnswer ConsolePrompts::answerTo(int flags) {
    if (promptButtons(flags).size() == 1)
        return AnswerOk;
    if (m_consent == Consent::Yes)
        return firstOffered(flags, {AnswerYes, AnswerOk, AnswerCancel, AnswerAbort});
    m_hasDeclined = true;
    return firstOffered(flags, {AnswerNo, AnswerCancel, AnswerAbort});
}

PromptAnswer ConsolePrompts::PlainBox(const QString& text, int flags, const QString& title) {
    print(title, text);
    return answerTo(flags);
}

BoxAnswer ConsolePrompts::msg_Box(const QString& text, int flags, const QString& title,
                                  const BoxLook&) {
    return {PlainBox(text, flags, title)};
}

BoxAnswer ConsolePrompts::MsgAuto_box(const QString& text, int flags, const QString& title, int,
                                      const BoxLook&) {
    return {PlainBox(text, flags, title)};
}

QString ConsolePrompts::input_box(const QString& text, int, const QString& title, const QString&,
                                  qint32) {
    print(title, text);
    return {};
}

std::optional<DatePeriod> ConsolePrompts::Date_Box(const QString&, const DatePeriod&) {
    return std::nullopt;
}

std::optional<LinkAnswer> ConsolePrompts::File_Link(const QString&, const QString&, const QString&,
                                                    const QString&) {
    return std::nullopt;
}

QString ConsolePrompts::OpenFileDialog(const QString&, const QList<FileFilter>&, const QString&,
                                       int, bool) {
    return {};
}

QString ConsolePrompts::ChooseFolder(const QString&) {
    return {};
}

std::optional<qint32> ConsolePrompts::ChooseColour(qint32) {
    return std::nullopt;
}

std::optional<FontRecord> ConsolePrompts::ChooseFont(const FontRecord&) {
    return std::nullopt;
}

std::optional<int> ConsolePrompts::ReturnString(const OneItemRequest&) {
    return std::nullopt;
}

std::optional<QList<int>> ConsolePrompts::ReturnString(const SeveralItemsRequest&) {
    return std::nullopt;
}

std::optional<SpreadsheetChoice> ConsolePrompts::ReturnString(const SpreadsheetRequest&) {
    return std::nullopt;
}

std::optional<NewField> ConsolePrompts::ReturnString(const NewFieldRequest&) {
    return std::nullopt;
}

QString ConsolePrompts::PromptForPassword() {
    if (m_password.isEmpty())
        print(u"Enter Password"_s, u"The file opens with its password only."_s);
    return std::exchange(m_password, {});
}
