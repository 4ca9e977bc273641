#pragma once

#include "core/paths.h"
#include "settings/screens/setting_page.h"

class QListWidget;
class Session;

/// Where dialogs start and backups go.
class FolderSettings : public SettingPage {
    Q_OBJECT

public:
    explicit FolderSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    void choose();
    void showRow(int row);

    Session& m_session;
    FolderDefaults m_folders;
    QListWidget* m_list;
};
