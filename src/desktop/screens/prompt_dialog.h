#pragma once

#include "core/link_target.h"
#include "core/prompts.h"

#include <QDialog>

#include <functional>

class Clock;
class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

/// The one form behind all of the program's own prompts: a balloon with an icon and a text, a page
/// of fields where the prompt has one, a check box, and the buttons. Each operation below prepares
/// the form, shows it, waits, and answers what the person did; a form serves one of them, once.
///
/// Enter presses the default button (or the one with the focus), Escape and the window's close
/// button answer for somebody who wants nothing done. A button is also pressed by the letter that
/// is underlined in it, alone or with Alt. What the operations answer is told in core/prompts.h.
class PromptDialog : public QDialog {
    Q_OBJECT

public:
    explicit PromptDialog(QWidget* parent = nullptr);

    BoxAnswer msg_Box(const QString& text, int flags, const QString& title, const BoxLook& look);
    BoxAnswer MsgAuto_box(const QString& text, int flags, const QString& title, int seconds,
                          const BoxLook& look, Clock& clock);
    QString input_box(const QString& text, int flags, const QString& title, const QString& proposal,
                      qint32 colour);
    /// Starts with the limits themselves, or with `today` where there is none. `prompts` shows what
    /// is wrong with the dates.
    std::optional<DatePeriod> Date_Box(const QString& title, const DatePeriod& limits, QDate today,
                                       Prompts& prompts);
    std::optional<LinkAnswer> File_Link(const QString& title, const QString& text,
                                        const QString& name, const QString& path, Prompts& prompts);
    /// Shows links in a grid; a double click or Enter opens one by `open`, and the form stays.
    void ALL_File_Links(const QString& title, const QString& text, const QList<FileLink>& links,
                        const std::function<void(const FileLink&)>& open);

    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void prepare(const QString& text, int flags, const QString& title, const BoxLook& look);
    void drawBalloon(const BoxLook& look);
    void standBelow(const QRect& place);
    void writeText(const QString& text, const BoxLook& look);
    void setIcon(int flags);
    void addCheckBox(const QString& caption);
    void addPage(QWidget* page);
    void setUpButtons(int flags, const QStringList& ownCaptions);
    void setDefaultButton(int flags);
    void press(PromptAnswer answer);
    BoxAnswer answer();

    QWidget* m_balloon;
    QLabel* m_icon;
    QLabel* m_text;
    QCheckBox* m_checkBox;
    QVBoxLayout* m_pages;
    QHBoxLayout* m_buttonRow;
    QList<QPushButton*> m_buttons;
    QPushButton* m_default = nullptr;
    std::function<bool()> m_mayAccept; ///< whether OK may close the form; empty: always
    PromptAnswer m_escapeAnswer = AnswerCancel;
};
