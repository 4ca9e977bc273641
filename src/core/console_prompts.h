#pragma once

#include "core/prompts.h"

/// The prompts of a program without windows: a box is printed on standard error, its title and its
/// text on one line, and nobody is waited for. Questions are declined, boxes that close by
/// themselves report their default button, and every dialog counts as cancelled.
class ConsolePrompts : public Prompts {
public:
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
    QList<int> ReturnString(const SeveralItemsRequest& request) override;
    std::optional<SpreadsheetChoice> ReturnString(const SpreadsheetRequest& request) override;
    std::optional<NewField> ReturnString(const NewFieldRequest& request) override;
    QString PromptForPassword() override;
};
