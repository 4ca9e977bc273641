#pragma once

#include "core/prompts.h"

#include <QList>
#include <QStringList>

#include <variant>

enum class PromptKind {
    Plain,
    Message,
    AutoMessage,
    Input,
    Dates,
    Link,
    File,
    Folder,
    Colour,
    Font,
    Selector,
    Password,
};

/// What the person does: nothing is Cancel; a number is the button (or the colour), a text what was
/// typed, or the item that was chosen of a list, several texts several items.
using PromptReply = std::variant<std::monostate, int, BoxAnswer, QString, QStringList, DatePeriod,
                                 LinkAnswer, FontRecord, SpreadsheetChoice, NewField>;

/// One dialog as the person saw it.
struct SeenPrompt {
    PromptKind kind;
    QString title;
    QString text;
    int flags = 0;
    BoxLook look = {};
    QString proposal = {};  ///< what stood in it: a proposed text, a path, a start folder
    QStringList items = {}; ///< of a list
};

/// Prompts that a test answers beforehand, in the order of asking. A dialog that the test did not
/// foresee, or that comes out of order, fails the test and is cancelled; so does one that was
/// foreseen and never came. The dialogs for colours, fonts and passwords have no title.
class ScriptedPrompts : public Prompts {
public:
    ScriptedPrompts() = default;
    ~ScriptedPrompts() override;
    ScriptedPrompts(const ScriptedPrompts&) = delete;
    ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

    void expect(PromptKind kind, const QString& title, PromptReply reply = {});

    const QList<SeenPrompt>& seen() const { return m_seen; }
    /// The last dialog; fails the test when there was none.
    SeenPrompt last() const;

    PromptAnswer PlainBox(const QString& text, int flags, const QString& title) override;
    BoxAnswer msg_Box(const QString& text, int flags, const QString& title,
                      const BoxLook& look) override;
    BoxAnswer MsgAuto_box(const QString& text, int flags, const QString& title, int seconds,
                          const BoxLook& look) override;
    QString input_box(const QString& text, int flags, const QString& title, const QString& proposal,
                      qint32 colour) override;
    std::optional<DatePeriod> Date_Box(const QString& title, const DatePeriod& limits) override;
    std::optional<LinkAnswer> File_Link(const QString& title, const QString& text,
                                        const QString& name, const QString& path) override;
    QString OpenFileDialog(const QString& title, const QList<FileFilter>& filters,
                           const QString& startFolder, int flags, bool save) override;
    QString ChooseFolder(const QString& title) override;
    std::optional<qint32> ChooseColour(qint32 colour) override;
    std::optional<FontRecord> ChooseFont(const FontRecord& font) override;
    std::optional<int> ReturnString(const OneItemRequest& request) override;
    std::optional<QList<int>> ReturnString(const SeveralItemsRequest& request) override;
    std::optional<SpreadsheetChoice> ReturnString(const SpreadsheetRequest& request) override;
    std::optional<NewField> ReturnString(const NewFieldRequest& request) override;
    QString PromptForPassword() override;

private:
    struct Expected {
        PromptKind kind;
        QString title;
        PromptReply reply;
    };
    QList<Expected> m_expected;
    QList<SeenPrompt> m_seen;

    template<typename Reply>
    std::optional<Reply> reply(const SeenPrompt& prompt);
};
