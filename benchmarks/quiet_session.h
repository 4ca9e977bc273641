#pragma once

#include "core/console_prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/silent_seams.h"
#include "core/system_clock.h"
#include "year/year_opening.h"

#include <QDir>

using namespace Qt::StringLiterals;

/// A session without a year, over a folder of its own, which it makes.
class QuietSession {
public:
    explicit QuietSession(const QString& folder)
        : m_settings(made(folder) + u"/settings.ini"_s)
        , m_session(m_engine, m_settings, {m_prompts, m_progress, m_shell, m_clock},
                    yearOpening()) {}

    Session& session() { return m_session; }

private:
    static QString made(const QString& folder) {
        QDir().mkpath(folder);
        return folder;
    }

    dao::DBEngine m_engine;
    Settings m_settings;
    SilentProgress m_progress;
    ConsolePrompts m_prompts;
    AbsentShell m_shell;
    SystemClock m_clock;
    Session m_session;
};

/// A session over a year with days of so many periods, opened without its upgrades.
class QuietYear {
public:
    QuietYear(const QString& path, int periods) : m_quiet(path + u".settings"_s) {
        session().CurrentDB = session().Engine().OpenDatabase(path);
        session().PeriodsPerDay = static_cast<qint16>(periods);
    }
    Session& session() { return m_quiet.session(); }

private:
    QuietSession m_quiet;
};
