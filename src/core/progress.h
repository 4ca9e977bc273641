#pragma once

#include <QString>

/// How the rules show that long work moves: one window with a bar and two lines.
class Progress {
public:
    virtual ~Progress() = default;

    virtual void open(const QString& title) = 0;
    /// Sets the bar (0 to 100) and each line that is not empty, and lets pending events run: call
    /// it only where the work could be watched, never in the middle of a change. Does nothing
    /// while no window is open.
    virtual void UpdateProgress(int percent, const QString& line1 = {},
                                const QString& line2 = {}) = 0;
    virtual void close() = 0;
};

/// Keeps the progress window open for a scope, so that it goes whatever way the work ends.
class ProgressWindow {
public:
    ProgressWindow(Progress& progress, const QString& title) : m_progress(progress) {
        m_progress.open(title);
    }
    ~ProgressWindow() { m_progress.close(); }
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

private:
    Progress& m_progress;
};
