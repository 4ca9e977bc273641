#pragma once

#include "core/shell.h"

#include <QObject>

class Prompts;
class QProcess;

/// The desktop itself. A file that is a program is started; every other file, a folder or an
/// address is handed to what the person's desktop has for it. What cannot be opened is told in a
/// box, also when the desktop finds that out a moment later.
class DesktopShell : public QObject, public Shell {
    Q_OBJECT

public:
    explicit DesktopShell(Prompts& prompts);
    ~DesktopShell() override;

    /// `verb` has one meaning here, to open. `parameters` are those of a program, apart by blanks;
    /// one that holds blanks stands in double quotes.
    void ShellRun(const QString& verb, const QString& file, const QString& parameters,
                  const QString& folder) override;
    bool HasWordProcessor() override;
    /// LibreOffice, where it is installed, makes a new document of it.
    void OpenNewDocument(const QString& path) override;
    /// Silent on a computer that has no sound.
    void PlaySoundFile(const QString& path, bool loop, const std::function<void()>& ended) override;
    void Notify(const QString& text) override;
    void WhenWoken(const std::function<void()>& act) override;
    /// By the desktop's screenshot portal where there is one, else from the display itself.
    PowerStatus GetSystemPowerStatus() override;
    QString SetSystemPowerState(bool suspend, bool force) override;
    QImage CaptureScreen() override;
    QByteArray FetchText(const QString& address) override;

private:
    void handToDesktop(const QString& target, const QString& folder);
    void showFailure(const QString& file);

    Prompts& m_prompts;
    bool m_mayPlay = false; ///< a sound was started in this run
};
