#pragma once

#include <QDialog>

#include <vector>

class QListWidget;
class QStackedWidget;
class Session;
class SettingPage;
class ViewSettings;

/// The dialog in which everything is set. Its buttons write the page that is selected, and that one
/// alone: what was changed on another page is lost when the dialog closes.
class SettingsDialog : public QDialog {
    Q_OBJECT

public:
    explicit SettingsDialog(Session& session);

    /// Selects a page of `SettingsPage`.
    void showPage(qint64 page);

private:
    void makePages(Session& session);
    QWidget* makeButtons();
    void Acquire_Settings();
    void DisplayFrame(int page);
    bool applyPage();

    Session& m_session;
    QListWidget* m_list;
    QStackedWidget* m_frame;
    ViewSettings* m_view = nullptr;
    std::vector<SettingPage*> m_pages;
};
