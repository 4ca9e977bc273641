#pragma once

#include "core/console_prompts.h"
#include "core/progress.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/system_clock.h"
#include "year/year_opening.h"

using namespace Qt::StringLiterals;

/// Ways out of the rules that lead nowhere: nothing of what is measured is the desktop's.
class SilentProgress : public Progress {
public:
    void open(const QString&) override {}
    void UpdateProgress(int, const QString&, const QString&) override {}
    void close() override {}
};

class AbsentShell : public Shell {
public:
    void ShellRun(const QString&, const QString&, const QString&, const QString&) override {}
    void PlaySoundFile(const QString&, bool) override {}
    QImage CaptureScreen() override { return {}; }
    QByteArray FetchText(const QString&) override { return {}; }
};

/// A session without a year, over a folder of its own.
class QuietSession {
public:
    explicit QuietSession(const QString& folder)
        : m_settings(folder + u"/settings.ini"_s)
        , m_session(m_engine, m_settings, {m_prompts, m_progress, m_shell, m_clock},
                    yearOpening()) {}

    Session& session() { return m_session; }

private:
    dao::DBEngine m_engine;
    Settings m_settings;
    SilentProgress m_progress;
    ConsolePrompts m_prompts;
    AbsentShell m_shell;
    SystemClock m_clock;
    Session m_session;
};
