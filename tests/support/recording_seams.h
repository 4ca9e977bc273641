#pragma once

#include "core/progress.h"
#include "core/seams.h"
#include "core/shell.h"
#include "support/scripted_clock.h"
#include "support/scripted_prompts.h"

using namespace Qt::StringLiterals;

/// Keeps what a progress window would have shown.
class RecordingProgress : public Progress {
public:
    struct Step {
        int percent;
        QString line1;
        QString line2;
    };
    QString title;
    QList<Step> steps;
    bool isOpen = false;

    void open(const QString& windowTitle) override {
        title = windowTitle;
        isOpen = true;
    }
    void UpdateProgress(int percent, const QString& line1, const QString& line2) override {
        steps.append({percent, line1, line2});
    }
    void close() override { isOpen = false; }
};

/// Keeps what the desktop was asked to do.
class RecordingShell : public Shell {
public:
    struct Run {
        QString verb;
        QString file;
    };
    QList<Run> runs;
    QStringList sounds;
    std::function<void()> soundEnded; ///< of the sound played last
    QStringList notifications;
    std::function<void()> woken; ///< what waits for the computer to wake
    QByteArray fetched;          ///< what every address gives

    void ShellRun(const QString& verb, const QString& file, const QString&,
                  const QString&) override {
        runs.append({verb, file});
    }
    bool hasWordProcessor = true;
    bool HasWordProcessor() override { return hasWordProcessor; }
    void OpenNewDocument(const QString& path) override { runs.append({u"new document"_s, path}); }
    void PlaySoundFile(const QString& path, bool, const std::function<void()>& ended) override {
        sounds.append(path);
        soundEnded = ended;
    }
    void Notify(const QString& text) override { notifications.append(text); }
    void WhenWoken(const std::function<void()>& act) override { woken = act; }
    PowerStatus power; ///< as it is told
    QString noSleep;   ///< why the computer does not sleep
    int sleeps = 0;    ///< asked for
    PowerStatus GetSystemPowerStatus() override { return power; }
    QString SetSystemPowerState(bool, bool) override {
        ++sleeps;
        return noSleep;
    }
    QImage screen; ///< what it shows
    QImage CaptureScreen() override { return screen; }
    QByteArray FetchText(const QString& address) override {
        runs.append({u"fetch"_s, address});
        return fetched;
    }
};

/// A mail client that holds what a test puts into it.
class RecordingMailClient : public MailClient {
public:
    MailItems<QString> notes;
    MailItems<MailEvent> events;
    MailItems<MailContact> contacts;
    QString noteFault; ///< why no note can be added
    QStringList added;

    MailItems<QString> Outlook_ReadNotes() override { return notes; }
    MailItems<MailEvent> Outlook_ReadCalendar() override { return events; }
    MailItems<MailContact> Outlook_ReadContacts() override { return contacts; }
    QString Outlook_AddNote(const QString& text) override {
        if (noteFault.isEmpty())
            added += text;
        return noteFault;
    }
};

/// All ways out of the rules, in the hands of a test. The clock stands on a Monday morning.
struct TestSeams {
    ScriptedPrompts prompts;
    RecordingProgress progress;
    RecordingShell shell;
    RecordingMailClient mail;
    ScriptedClock clock{QDateTime(QDate(2024, 9, 9), QTime(8, 30))};

    Seams seams() { return {prompts, progress, shell, clock, mail}; }
};
