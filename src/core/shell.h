#pragma once

#include "core/power_status.h"

#include <QByteArray>
#include <QImage>
#include <QString>

#include <functional>

/// How the rules reach the desktop: other programs, mail, sound and what the desktop itself
/// says and hears. An implementation tells the
/// person when something could not be done, so nothing is answered.
class Shell {
public:
    virtual ~Shell() = default;

    /// Runs a verb on a file, folder or address: "Open" hands it to the program that is set for
    /// it; a starter of the desktop (`.desktop`) starts its program. `folder` is where that program
    /// starts.
    virtual void ShellRun(const QString& verb, const QString& file, const QString& parameters = {},
                          const QString& folder = {}) = 0;
    /// Whether there is a program that opens a document of a word processor (Rich Text Format).
    virtual bool HasWordProcessor() = 0;
    /// Opens such a document in it: as a new one that was never saved, where the program can do so.
    virtual void OpenNewDocument(const QString& path) = 0;
    /// Plays a wave file beside other work, over and over when `loop`, in place of what plays. A
    /// file that is missing is silent. An empty path ends what plays. `ended` is called once, when
    /// the sound is over, whether it was played to its end, had to give way or could not be heard;
    /// that may be at once.
    virtual void PlaySoundFile(const QString& path, bool loop,
                               const std::function<void()>& ended = {}) = 0;
    /// Says something by the desktop's own notification, which is seen over all programs. Nothing
    /// where the desktop has none.
    virtual void Notify(const QString& text) = 0;
    /// Calls `act` from the event loop each time the computer has woken from its sleep, where the
    /// desktop tells of that.
    virtual void WhenWoken(const std::function<void()>& act) = 0;

    /// How the computer is powered.
    virtual PowerStatus GetSystemPowerStatus() = 0;
    /// Lets the computer sleep (`suspend`; else it hibernates), if need be against programs that
    /// hold it back (`force`). Answers why it does not; empty where it does.
    virtual QString SetSystemPowerState(bool suspend, bool force) = 0;

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
