#pragma once

#include "settings/screens/setting_page.h"

class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;
class Session;

/// The marks of the register and what the class window shows.
class RegisterSettings : public SettingPage {
    Q_OBJECT

public:
    explicit RegisterSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    QStringList rows() const;
    QLayout* makeKeys();
    QLayout* makeDates();

    Session& m_session;
    QListWidget* m_keys;
    QPushButton* m_remove;
    QLabel* m_dates;
    QCheckBox* m_picture;
    QCheckBox* m_notes;
};
