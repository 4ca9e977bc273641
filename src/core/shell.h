#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

/// How the rules reach the desktop: other programs, mail and sound. An implementation tells the
/// person when something could not be done, so nothing is answered.
class Shell {
public:
    virtual ~Shell() = default;

    /// Runs a verb on a file, folder or address: "Open" hands it to the program that is set for
    /// it. `folder` is where that program starts.
    virtual void ShellRun(const QString& verb, const QString& file, const QString& parameters = {},
                          const QString& folder = {}) = 0;
    /// Plays a wave file beside other work, over and over when `loop`, in place of what plays. A
    /// file that is missing is silent. An empty path ends what plays.
    virtual void PlaySoundFile(const QString& path, bool loop) = 0;

    /// What the screen shows without the program's own windows, which are gone for that moment, at
    /// its own resolution; a null picture where the desktop gives none.
    virtual QImage CaptureScreen() = 0;

    /// What the internet address gives; empty when it can't be had within some seconds.
    virtual QByteArray FetchText(const QString& address) = 0;

    void ShellOpenFolder(const QString& folder);
    void OpenUrl(const QString& url);
    /// Starts a mail in the person's mail client.
    void SendMail(const QString& address, const QString& subject, const QString& body);
};
