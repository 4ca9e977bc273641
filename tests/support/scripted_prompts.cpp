#include "support/scripted_prompts.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

std::string described(PromptKind kind, const QString& title) {
    static constexpr const char* names[] = {
        "plain box", "message", "closing message", "input", "dates",    "link",
        "file",      "folder",  "colour",          "font",  "selector", "password"};
    return std::string(names[static_cast<int>(kind)]) + " '" + title.toStdString() + "'";
}

} // namespace

ScriptedPrompts::~ScriptedPrompts() {
    for (const Expected& expected : std::as_const(m_expected))
        ADD_FAILURE() << "never asked: " << described(expected.kind, expected.title);
}

void ScriptedPrompts::expect(PromptKind kind, const QString& title, PromptReply reply) {
    m_expected.append({kind, title, std::move(reply)});
}

SeenPrompt ScriptedPrompts::last() const {
    if (!m_seen.isEmpty())
        return m_seen.last();
    ADD_FAILURE() << "no dialog was shown";
    return {};
}

template<typename Reply>
std::optional<Reply> ScriptedPrompts::reply(const SeenPrompt& prompt) {
    m_seen.append(prompt);
    if (m_expected.isEmpty() || m_expected.first().kind != prompt.kind ||
        m_expected.first().title != prompt.title) {
        ADD_FAILURE() << "unforeseen: " << described(prompt.kind, prompt.title) << "\n"
                      << prompt.text.toStdString();
        return std::nullopt;
    }
    const PromptReply reply = m_expected.takeFirst().reply;
    if (std::holds_alternative<std::monostate>(reply))
        return std::nullopt;
    const auto* fitting = std::get_if<Reply>(&reply);
    if (!fitting) {
        ADD_FAILURE() << "a reply of the wrong kind: " << described(prompt.kind, prompt.title);
        return std::nullopt;
    }
    return *fitting;
}

PromptAnswer ScriptedPrompts::PlainBox(const QString& text, int flags, const QString& title) {
    return static_cast<PromptAnswer>(
        reply<int>({PromptKind::Plain, title, text, flags}).value_or(AnswerCancel));
}

int ScriptedPrompts::msg_Box(const QString& text, int flags, const QString& title,
                             const BoxLook& look) {
    return reply<int>({PromptKind::Message, title, text, flags, look}).value_or(AnswerCancel);
}

int ScriptedPrompts::MsgAuto_box(const QString& text, int flags, const QString& title, int,
                                 const BoxLook& look) {
    return reply<int>({PromptKind::AutoMessage, title, text, flags, look}).value_or(AnswerCancel);
}

QString ScriptedPrompts::input_box(const QString& text, int flags, const QString& title,
                                   const QString& proposal, qint32) {
    return reply<QString>({PromptKind::Input, title, text, flags, {}, proposal})
        .value_or(QString());
}

std::optional<DatePeriod> ScriptedPrompts::Date_Box(const QString& title, const DatePeriod&) {
    return reply<DatePeriod>({PromptKind::Dates, title, {}});
}

QString ScriptedPrompts::File_Link(const QString& title, const QString& text, const QString&,
                                   const QString& path) {
    return reply<QString>({PromptKind::Link, title, text, 0, {}, path}).value_or(QString());
}

QString ScriptedPrompts::OpenFileDialog(const QString& title, const QList<FileFilter>&,
                                        const QString& startFolder, int flags, bool) {
    return reply<QString>({PromptKind::File, title, {}, flags, {}, startFolder})
        .value_or(QString());
}

QString ScriptedPrompts::ChooseFolder(const QString& title) {
    return reply<QString>({PromptKind::Folder, title, {}}).value_or(QString());
}

std::optional<qint32> ScriptedPrompts::ChooseColour(qint32) {
    return reply<int>({PromptKind::Colour, {}, {}});
}

std::optional<FontRecord> ScriptedPrompts::ChooseFont(const FontRecord&) {
    return reply<FontRecord>({PromptKind::Font, {}, {}});
}

QString ScriptedPrompts::ReturnString(const SelectorRequest& request) {
    m_selectors.append(request);
    return reply<QString>({PromptKind::Selector, request.title, request.text, 0, {}, request.name})
        .value_or(QString());
}

QString ScriptedPrompts::PromptForPassword() {
    return reply<QString>({PromptKind::Password, {}, {}}).value_or(QString());
}
