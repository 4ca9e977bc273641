#include "core/console_prompts.h"

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

void print(const QString& title, const QString& text) {
    const QString line = (title + u": "_s + text).simplified() + u'\n';
    std::fputs(line.toLocal8Bit().constData(), stderr);
}

} // namespace

PromptAnswer ConsolePrompts::PlainBox(const QString& text, int flags, const QString& title) {
    print(title, text);
    return decliningAnswer(flags);
}

BoxAnswer ConsolePrompts::msg_Box(const QString& text, int flags, const QString& title,
                                  const BoxLook&) {
    return {PlainBox(text, flags, title)};
}

BoxAnswer ConsolePrompts::MsgAuto_box(const QString& text, int flags, const QString& title, int,
                                      const BoxLook&) {
    print(title, text);
    return {defaultAnswer(flags)};
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

QList<int> ConsolePrompts::ReturnString(const SeveralItemsRequest&) {
    return {};
}

std::optional<SpreadsheetChoice> ConsolePrompts::ReturnString(const SpreadsheetRequest&) {
    return std::nullopt;
}

std::optional<NewField> ConsolePrompts::ReturnString(const NewFieldRequest&) {
    return std::nullopt;
}

QString ConsolePrompts::PromptForPassword() {
    return {};
}
