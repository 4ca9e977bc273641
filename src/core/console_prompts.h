#pragma once

#include "core/prompts.h"

/// How a program without windows answers what it is asked.
enum class Consent { No, Yes };

/// The prompts of a program without windows: a box is one line on standard error, "[Title] text"
/// with line breaks as \n, and nobody is waited for. A question is answered No, or Yes with the
/// consent of whoever started the program; a box with OK alone is a message. Every dialog counts as
/// cancelled.
///
/// Of a set of buttons without No that is Cancel, else Abort; of one without Yes it is OK. To retry
/// helps nobody here, so where that is all there is to agree to, the answer is No's all the same.
class ConsolePrompts : public Prompts {
public:
    explicit ConsolePrompts(Consent consent = Consent::No) : m_consent(consent) {}

    /// Gives the password for the next file that asks for one; each is given once.
    void OfferPassword(const QString& password) { m_password = password; }
    /// Whether a question was answered No.
    bool hasDeclined() const { return m_hasDeclined; }

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
    PromptAnswer answerTo(int flags);

    Consent m_consent;
    QString m_password;
    bool m_hasDeclined = false;
};
