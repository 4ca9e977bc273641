#pragma once

#include "core/font_record.h"
#include "core/new_field.h"
#include "core/selector.h"

#include <QDate>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <optional>

/// The button that closed a box.
enum PromptAnswer {
    AnswerOk = 1,
    AnswerCancel = 2,
    AnswerAbort = 3,
    AnswerRetry = 4,
    AnswerIgnore = 5,
    AnswerYes = 6,
    AnswerNo = 7,
};

/// What msg_Box and MsgAuto_box answer.
struct BoxAnswer {
    PromptAnswer button = AnswerCancel;
    bool ticked = false; ///< the check box, where there is one

    bool operator==(const BoxAnswer&) const = default;
    bool operator==(PromptAnswer other) const { return button == other; }
};

/// The word of flags of a box: one set of buttons, at most one icon, and the default button.
enum PromptFlag {
    OkButton = 0,
    OkCancelButtons = 1,
    AbortRetryIgnoreButtons = 2,
    YesNoCancelButtons = 3,
    YesNoButtons = 4,
    RetryCancelButtons = 5,
    CriticalIcon = 16,
    QuestionIcon = 32,
    WarningIcon = 48,
    InformationIcon = 64,
    SecondButtonDefault = 256,
    /// Escape presses the first button: for a question whose Yes leaves everything as it is.
    FirstButtonDeclines = 0x10000,
};

/// The part of a word of flags that picks the icon.
inline constexpr int IconMask = 0x70;

struct PromptButton {
    PromptAnswer answer;
    QString caption;
};

/// The buttons of a word of flags, from left to right. A set that does not exist has "OK" alone.
QList<PromptButton> promptButtons(int flags);

/// The button that Enter presses, and that a box which closes by itself reports.
PromptAnswer defaultAnswer(int flags);

/// The first of the answers for which a word of flags has a button; OK where it has none of them.
PromptAnswer firstOffered(int flags, std::initializer_list<PromptAnswer> answers);

/// The answer of somebody who wants nothing done, which Escape gives too: Cancel, else No, else
/// Abort; "OK" where that is the only button. With FirstButtonDeclines that of the first button.
PromptAnswer decliningAnswer(int flags);

/// What msg_Box and MsgAuto_box may be given beyond their text.
struct BoxLook {
    qint32 colour = 0;              ///< background, red in the low byte; 0 is the usual pale yellow
    std::optional<FontRecord> font; ///< the usual one where none is given
    QStringList captions;           ///< up to four, in place of the set's own, from the left
    QString checkBox;               ///< a check box with this caption; none where it is empty
    std::optional<QRect> below;     ///< of the screen: the box stands below it, not in the middle
};

struct FileFilter {
    QString label;   ///< "All file types"
    QString pattern; ///< "*.*"; several are separated by semicolons
};

/// The word of flags of OpenFileDialog.
enum FileDialogFlag {
    PathMustExist = 0x800,
    FileMustExist = 0x1000,
    ExplorerStyle = 0x80000,
};

struct DatePeriod {
    QDate first;
    QDate last;

    bool operator==(const DatePeriod&) const = default;
};

/// What File_Link answers.
struct LinkAnswer {
    QString name;
    QString path; ///< of a file, or a web address

    bool operator==(const LinkAnswer&) const = default;
};

/// How the rules ask the person. Every operation shows one dialog, waits for it and answers what
/// the person did; none changes anything else. Tests and tools without a window put others in its
/// place.
class Prompts {
public:
    virtual ~Prompts() = default;

    /// The system's plain message box. `flags` is made of PromptFlag.
    virtual PromptAnswer PlainBox(const QString& text, int flags, const QString& title) = 0;

    /// The program's own message box.
    virtual BoxAnswer msg_Box(const QString& text, int flags, const QString& title,
                              const BoxLook& look = {}) = 0;
    /// A message box that closes by itself after so many seconds and then reports the default
    /// button.
    virtual BoxAnswer MsgAuto_box(const QString& text, int flags, const QString& title, int seconds,
                                  const BoxLook& look = {}) = 0;
    /// Asks for a line of text; empty when it was cancelled.
    virtual QString input_box(const QString& text, int flags, const QString& title,
                              const QString& proposal = {}, qint32 colour = 0) = 0;
    /// Asks for a period within the limits, the first day not behind the last; nothing when it was
    /// cancelled.
    virtual std::optional<DatePeriod> Date_Box(const QString& title, const DatePeriod& limits) = 0;
    /// Asks for a file or web address and a name for it. Nothing when it was cancelled.
    virtual std::optional<LinkAnswer> File_Link(const QString& title, const QString& text,
                                                const QString& name, const QString& path) = 0;

    /// Asks for the path of a file to open, or to save when `save`; empty when it was cancelled.
    /// `flags` is made of FileDialogFlag. To replace a file that exists is the caller's question.
    virtual QString OpenFileDialog(const QString& title, const QList<FileFilter>& filters,
                                   const QString& startFolder, int flags, bool save) = 0;
    /// Asks for a folder, answered without a separator at its end; empty when it was cancelled.
    virtual QString ChooseFolder(const QString& title) = 0;
    /// Asks for a colour, red in the low byte; nothing when it was cancelled.
    virtual std::optional<qint32> ChooseColour(qint32 colour) = 0;
    virtual std::optional<FontRecord> ChooseFont(const FontRecord& font) = 0;

    /// Asks by a page of the selector, one a request. Answers the place of an item in the list, the
    /// places of several in order (there may be none), or what was chosen; nothing when it was
    /// cancelled.
    virtual std::optional<int> ReturnString(const OneItemRequest& request) = 0;
    virtual std::optional<QList<int>> ReturnString(const SeveralItemsRequest& request) = 0;
    virtual std::optional<SpreadsheetChoice> ReturnString(const SpreadsheetRequest& request) = 0;
    virtual std::optional<NewField> ReturnString(const NewFieldRequest& request) = 0;

    /// Asks for the password of a database; empty when it was cancelled.
    virtual QString PromptForPassword() = 0;
};
