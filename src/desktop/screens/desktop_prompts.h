#pragma once

#include "core/link_target.h"
#include "core/prompts.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class Clock;

/// The prompts as windows: the program's own by PromptDialog, plain boxes and the choices of files,
/// folders, colours and fonts by the platform's dialogs. A dialog stands above the window the
/// person is in, or else above the main window.
class DesktopPrompts : public Prompts {
public:
    /// `clock` closes the boxes that close by themselves.
    explicit DesktopPrompts(Clock& clock, QWidget* mainWindow = nullptr);
    /// The main window, for where it is made after the prompts.
    void SetMainWindow(QWidget* mainWindow) { m_mainWindow = mainWindow; }

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
    /// The font dialog with a button for the colour, which the toolkit's own lacks.
    std::optional<FontRecord> ChooseFont(const FontRecord& font) override;
    std::optional<int> ReturnString(const OneItemRequest& request) override;
    std::optional<QList<int>> ReturnString(const SeveralItemsRequest& request) override;
    std::optional<SpreadsheetChoice> ReturnString(const SpreadsheetRequest& request) override;
    std::optional<NewField> ReturnString(const NewFieldRequest& request) override;
    QString PromptForPassword() override;

private:
    QWidget* owner() const;

    Clock& m_clock;
    QPointer<QWidget> m_mainWindow;
};
