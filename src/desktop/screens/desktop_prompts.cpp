#include "desktop/screens/desktop_prompts.h"

#include "controls/colours.h"
#include "controls/fonts.h"
#include "core/clock.h"
#include "desktop/screens/password_dialog.h"
#include "desktop/screens/prompt_dialog.h"
#include "desktop/screens/selector_dialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

struct StandardAnswer {
    PromptAnswer answer;
    QMessageBox::StandardButton button;
};

constexpr StandardAnswer standardAnswers[] = {
    {AnswerOk, QMessageBox::Ok},         {AnswerCancel, QMessageBox::Cancel},
    {AnswerAbort, QMessageBox::Abort},   {AnswerRetry, QMessageBox::Retry},
    {AnswerIgnore, QMessageBox::Ignore}, {AnswerYes, QMessageBox::Yes},
    {AnswerNo, QMessageBox::No},
};

QMessageBox::StandardButton buttonOf(PromptAnswer answer) {
    for (const StandardAnswer& standard : standardAnswers) {
        if (standard.answer == answer)
            return standard.button;
    }
    return QMessageBox::NoButton;
}

QMessageBox::Icon iconOf(int flags) {
    switch (flags & IconMask) {
    case CriticalIcon:
        return QMessageBox::Critical;
    case QuestionIcon:
        return QMessageBox::Question;
    case WarningIcon:
        return QMessageBox::Warning;
    case InformationIcon:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

/// The pattern for every file is "*" here: names without a dot count too.
QString patternsOf(const FileFilter& filter) {
    QStringList patterns = filter.pattern.split(u';', Qt::SkipEmptyParts);
    patterns.replaceInStrings(u"*.*"_s, u"*"_s);
    return patterns.join(u' ');
}

QStringList nameFilters(const QList<FileFilter>& filters) {
    QStringList result;
    for (const FileFilter& filter : filters)
        result += u"%1 (%2)"_s.arg(filter.label, patternsOf(filter));
    return result;
}

/// A folder, or the nearest above it that is there.
QString existingFolder(const QString& folder) {
    QString path = QDir::cleanPath(folder);
    while (!path.isEmpty() && !QDir(path).exists() && QFileInfo(path).path() != path)
        path = QFileInfo(path).path();
    return path;
}

/// The window that asks. The pointer is the usual one meanwhile, also in the middle of long work.
/// It has the keyboard again when its dialog has gone: a desktop where several windows float may
/// hand it to another, and what is typed next would go astray.
class Asking {
public:
    explicit Asking(QWidget* window) : m_window(window) {
        QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~Asking() {
        QGuiApplication::restoreOverrideCursor();
        const bool isAtWork = QGuiApplication::applicationState() == Qt::ApplicationActive;
        if (m_window && m_window->isVisible() && isAtWork)
            m_window->activateWindow();
    }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

    operator QWidget*() const { return m_window; }

private:
    QPointer<QWidget> m_window;
};

} // namespace

DesktopPrompts::DesktopPrompts(Clock& clock, QWidget* mainWindow)
    : m_clock(clock), m_mainWindow(mainWindow) {}

QWidget* DesktopPrompts::owner() const {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    QWidget* active = QApplication::activeWindow();
    return active ? active : m_mainWindow.data();
}

PromptAnswer DesktopPrompts::PlainBox(const QString& text, int flags, const QString& title) {
    const Asking asking(owner());
    QMessageBox box(asking);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(iconOf(flags));
    for (const PromptButton& button : promptButtons(flags))
        box.addButton(buttonOf(button.answer));
    box.setDefaultButton(buttonOf(defaultAnswer(flags)));
    box.setEscapeButton(buttonOf(decliningAnswer(flags)));
    const int pressed = box.exec();
    for (const StandardAnswer& standard : standardAnswers) {
        if (standard.button == pressed)
            return standard.answer;
    }
    return decliningAnswer(flags);
}

BoxAnswer DesktopPrompts::msg_Box(const QString& text, int flags, const QString& title,
                                  const BoxLook& look) {
    return PromptDialog(Asking(owner())).msg_Box(text, flags, title, look);
}

BoxAnswer DesktopPrompts::MsgAuto_box(const QString& text, int flags, const QString& title,
                                      int seconds, const BoxLook& look) {
    return PromptDialog(Asking(owner())).MsgAuto_box(text, flags, title, seconds, look, m_clock);
}

QString DesktopPrompts::input_box(const QString& text, int flags, const QString& title,
                                  const QString& proposal, qint32 colour) {
    return PromptDialog(Asking(owner())).input_box(text, flags, title, proposal, colour);
}

std::optional<DatePeriod> DesktopPrompts::Date_Box(const QString& title, const DatePeriod& limits) {
    return PromptDialog(Asking(owner())).Date_Box(title, limits, m_clock.today(), *this);
}

std::optional<LinkAnswer> DesktopPrompts::File_Link(const QString& title, const QString& text,
                                                    const QString& name, const QString& path) {
    return PromptDialog(Asking(owner())).File_Link(title, text, name, path, *this);
}

QString DesktopPrompts::OpenFileDialog(const QString& title, const QList<FileFilter>& filters,
                                       const QString& startFolder, int flags, bool save) {
    const Asking asking(owner());
    QFileDialog dialog(asking, title, existingFolder(startFolder));
    dialog.setNameFilters(nameFilters(filters));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    const bool mustExist = !save && (flags & FileMustExist) != 0;
    dialog.setFileMode(mustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return QDir::toNativeSeparators(dialog.selectedFiles().value(0));
}

QString DesktopPrompts::ChooseFolder(const QString& title) {
    return QDir::toNativeSeparators(QFileDialog::getExistingDirectory(Asking(owner()), title));
}

std::optional<qint32> DesktopPrompts::ChooseColour(qint32 colour) {
    const QColor chosen = QColorDialog::getColor(toColour(colour), Asking(owner()));
    return chosen.isValid() ? std::optional(fromColour(chosen)) : std::nullopt;
}

std::optional<FontRecord> DesktopPrompts::ChooseFont(const FontRecord& font) {
    const Asking asking(owner());
    QFontDialog dialog(toFont(font), asking);
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    qint32 colour = font.colour;
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        auto* button = buttons->addButton(u"Co&lour..."_s, QDialogButtonBox::ActionRole);
        QObject::connect(button, &QPushButton::clicked, &dialog,
                         [&] { colour = ChooseColour(colour).value_or(colour); });
    }
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return toFontRecord(dialog.selectedFont(), colour);
}

std::optional<int> DesktopPrompts::ReturnString(const OneItemRequest& request) {
    return SelectorDialog(*this, Asking(owner())).ReturnString(request);
}

std::optional<QList<int>> DesktopPrompts::ReturnString(const SeveralItemsRequest& request) {
    return SelectorDialog(*this, Asking(owner())).ReturnString(request);
}

std::optional<SpreadsheetChoice> DesktopPrompts::ReturnString(const SpreadsheetRequest& request) {
    return SelectorDialog(*this, Asking(owner())).ReturnString(request);
}

std::optional<NewField> DesktopPrompts::ReturnString(const NewFieldRequest& request) {
    return SelectorDialog(*this, Asking(owner())).ReturnString(request);
}

QString DesktopPrompts::PromptForPassword() {
    return PasswordDialog(Asking(owner())).ask();
}
