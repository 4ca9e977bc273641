#pragma once

#include "core/program_settings.h"
#include "frame/main_frame.h"

#include <QStringList>

using namespace Qt::StringLiterals;

/// A main window that keeps what it was told, in order, and has every window.
class ScriptedFrame : public MainFrame {
public:
    QStringList log;
    QString caption;
    QList<ToolWindow> windows; ///< those that were opened
    WindowSubject subject;     ///< of the one that was opened last
    bool mayLeave = true;

    bool has(ToolWindow) const override { return true; }
    void open(ToolWindow window, const WindowSubject& asked = {}) override {
        subject = asked;
        if (window == ToolWindow::StartupWizard)
            log += asked.index() == 0 ? u"wizard"_s : u"wizard setup"_s;
        else
            windows += window;
    }
    bool close(ToolWindow window) override {
        windows.removeAll(window);
        return true;
    }
    void SetCaption(const QString& text) override { caption = text; }
    void EnableInput(bool enable) override { log += enable ? u"enable"_s : u"disable"_s; }
    bool MayLeave() override { return mayLeave; }
    void CloseOpenForms() override {
        log += u"close forms"_s;
        windows.clear();
    }
    void run(ToolWindow window, FrameCommand, const WindowSubject& about) override {
        open(window, about);
    }
    QList<ToolWindow> visible() const override { return windows; }
    QList<StartupWindow> startupWindows() const override {
        return {{setting::Open_Register, ToolWindow::Classes},
                {setting::Open_COE, ToolWindow::CalendarOfEvents},
                {setting::Open_Planning, ToolWindow::DailySheet}};
    }
    void DestroySplash() override {}
    void Unload() override { log += u"unload"_s; }
    void Help_Menu(HelpItem item) override { log += u"help %1"_s.arg(static_cast<int>(item)); }
};
