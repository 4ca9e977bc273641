#pragma once

#include "frame/main_frame.h"

/// A main window that keeps what it was told, in order, and opens any window by name.
class ScriptedFrame : public MainFrame {
public:
    QStringList log;
    QString caption;
    QStringList forms;

    void SetCaption(const QString& text) override { caption = text; }
    void EnableInput(bool enable) override {
        log += enable ? QStringLiteral("enable") : QStringLiteral("disable");
    }
    void CloseOpenForms() override {
        log += QStringLiteral("close forms");
        forms.clear();
    }
    void ShowStartupWizard() override { log += QStringLiteral("wizard"); }
    void ShowStartupWizardSetup() override { log += QStringLiteral("wizard setup"); }
    void OpenForm(const QString& name) override { forms += name; }
    void OpenFormOn(const QString& name, const QVariant& subject) override {
        forms += name;
        log += name + QStringLiteral(" on ") + subject.toString();
    }
    void RefreshForm(const QString& name) override { log += QStringLiteral("refresh ") + name; }
    void CloseForm(const QString& name) override { forms.removeAll(name); }
    void RunFormCommand(const QString& name, FrameCommand) override { forms += name; }
    QStringList visibleForms() const override { return forms; }
    void DestroySplash() override {}
    void Unload() override { log += QStringLiteral("unload"); }
    void ToolbarAlign() override {}
    void ShadeMDI() override {}
    void Help_Menu(HelpItem item) override {
        log += QStringLiteral("help %1").arg(static_cast<int>(item));
    }
};
