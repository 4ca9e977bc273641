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

SeenPrompt seenSelector(const SelectorRequest& request, const QStringList& items = {}) {
    return {
        .kind = PromptKind::Selector, .title = request.title, .text = request.text, .items = items};
}

/// Fails the test where one is not offered.
QList<int> placesOf(const QStringList& chosen, const QStringList& offered) {
    QList<int> places;
    for (const QString& item : chosen) {
        const auto place = offered.indexOf(item);
        if (place < 0)
            ADD_FAILURE() << "not offered: " << item.toStdString();
        else
            places += static_cast<int>(place);
    }
    return places;
}

} // namespace

ScriptedPrompts::~ScriptedPrompts() {
    for (const Expected& expected : std::as_const(m_expected))
        ADD_FAILURE() << "never asked: " << described(expected.kind, expected.title);
}

void ScriptedPrompts::expect(PromptKind kind, const QString& title, PromptReply reply) {
    const bool isBox = kind == PromptKind::Message || kind == PromptKind::AutoMessage;
    if (const int* button = std::get_if<int>(&reply); button && isBox)
        reply = BoxAnswer{static_cast<PromptAnswer>(*button)};
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

BoxAnswer ScriptedPrompts::msg_Box(const QString& text, int flags, const QString& title,
                                   const BoxLook& look) {
    return reply<BoxAnswer>({PromptKind::Message, title, text, flags, look}).value_or(BoxAnswer());
}

BoxAnswer ScriptedPrompts::MsgAuto_box(const QString& text, int flags, const QString& title, int,
                                       const BoxLook& look) {
    return reply<BoxAnswer>({PromptKind::AutoMessage, title, text, flags, look})
        .value_or(BoxAnswer());
}

QString ScriptedPrompts::input_box(const QString& text, int flags, const QString& title,
                                   const QString& proposal, qint32) {
    return reply<QString>({PromptKind::Input, title, text, flags, {}, proposal})
        .value_or(QString());
}

std::optional<DatePeriod> ScriptedPrompts::Date_Box(const QString& title, const DatePeriod&) {
    return reply<DatePeriod>({PromptKind::Dates, title, {}});
}

std::optional<LinkAnswer> ScriptedPrompts::File_Link(const QString& title, const QString& text,
                                                     const QString&, const QString& path) {
    return reply<LinkAnswer>({PromptKind::Link, title, text, 0, {}, path});
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

std::optional<int> ScriptedPrompts::ReturnString(const OneItemRequest& request) {
    const auto item = reply<QString>(seenSelector(request, request.items));
    if (!item)
        return std::nullopt;
    const QList<int> places = placesOf({*item}, request.items);
    return places.isEmpty() ? std::nullopt : std::optional(places.first());
}

std::optional<QList<int>> ScriptedPrompts::ReturnString(const SeveralItemsRequest& request) {
    const auto chosen = reply<QStringList>(seenSelector(request, request.items));
    return chosen ? std::optional(placesOf(*chosen, request.items)) : std::nullopt;
}

std::optional<SpreadsheetChoice> ScriptedPrompts::ReturnString(const SpreadsheetRequest& request) {
    return reply<SpreadsheetChoice>(seenSelector(request));
}

std::optional<NewField> ScriptedPrompts::ReturnString(const NewFieldRequest& request) {
    SeenPrompt seen = seenSelector(request);
    seen.proposal = request.name;
    return reply<NewField>(seen);
}

QString ScriptedPrompts::PromptForPassword() {
    return reply<QString>({PromptKind::Password, {}, {}}).value_or(QString());
}
