#pragma once

#include "core/main_frame.h"

#include <QMainWindow>
#include <QPointer>

class MdiBackground;
class PlacedWidget;
class QMdiSubWindow;
class Session;

/// The main window: the frame of the whole program, as long as the process. It owns the tool
/// windows and knows nothing of what they do.
class mdiORVA : public QMainWindow, public MainFrame {
    Q_OBJECT

public:
    /// `startsByItself`: the first showing opens the default database or the wizard.
    /// `splash` shows while the program starts; the frame closes it when it stands.
    explicit mdiORVA(Session& session, bool startsByItself = true, QWidget* splash = nullptr);
    ~mdiORVA() override;

    void SetCaption(const QString& caption) override;
    void EnableInput(bool enable) override;
    void CloseOpenForms() override;
    void ShowStartupWizard() override;
    void ShowStartupWizardSetup() override;
    void OpenForm(const QString& name) override;
    QStringList visibleForms() const override;
    void DestroySplash() override;

signals:
    /// The frame stands for the first time; the start goes on behind it.
    void shown();
    /// The frame has been drawn for the first time and the start has run its course.
    void started();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void buildFileMenu();
    void buildHelpMenu();
    void activateFirst();
    QMdiSubWindow* loadedForm(const QString& name) const;
    PlacedWidget placedForm(QMdiSubWindow& form) const;
    void loadForm(const QString& name);
    void bringForward(QMdiSubWindow* form, const QString& placementKey);

    Session& m_session;
    MdiBackground* m_client;
    QPointer<QWidget> m_splash;
    bool m_startPending;
    QList<QMdiSubWindow*> m_forms; ///< in the order of loading
};
