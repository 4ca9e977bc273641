#pragma once

#include "settings/screens/setting_page.h"

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;
class Session;

/// What happens at the end, the password of the year and the database that opens by itself.
class GeneralSettings : public SettingPage {
    Q_OBJECT

public:
    explicit GeneralSettings(Session& session);

    void acquire() override;
    bool apply() override;

signals:
    void yearLost(); ///< a backup was made, and the year did not come open again

private:
    QWidget* makeClosingTab();
    QWidget* makePasswordTab();
    QWidget* makeDatabaseTab();
    void setDefault(const QString& path);
    void clearPasswords(qsizetype first);

    Session& m_session;
    std::array<QRadioButton*, 4> m_closing{};
    std::array<QLineEdit*, 3> m_passwords{};
    QLabel* m_default = nullptr;
    QString m_defaultPath;
    QCheckBox* m_skipsWizard = nullptr;
    QCheckBox* m_checksForUpgrade = nullptr;
};
