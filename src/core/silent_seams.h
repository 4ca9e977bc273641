#pragma once

#include "core/progress.h"
#include "core/shell.h"

/// The seams of a program without windows that lead nowhere: nothing is shown, and the desktop is
/// left alone. What it asks and says goes through ConsolePrompts.

class SilentProgress : public Progress {
public:
    void open(const QString&) override {}
    void UpdateProgress(int, const QString&, const QString&) override {}
    void close() override {}
};

class AbsentShell : public Shell {
public:
    void ShellRun(const QString&, const QString&, const QString&, const QString&) override {}
    bool HasWordProcessor() override { return false; }
    void OpenNewDocument(const QString&) override {}
    void PlaySoundFile(const QString&, bool, const std::function<void()>& ended) override {
        if (ended)
            ended();
    }
    void Notify(const QString&) override {}
    void WhenWoken(const std::function<void()>&) override {}
    PowerStatus GetSystemPowerStatus() override { return {}; }
    QString SetSystemPowerState(bool, bool) override { return {}; }
    QImage CaptureScreen() override { return {}; }
    QByteArray FetchText(const QString&) override { return {}; }
};
