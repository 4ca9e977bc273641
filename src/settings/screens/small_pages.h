#pragma once

#include "settings/screens/setting_page.h"

class ColourButton;
class QCheckBox;
class QListWidget;
class QPushButton;
class Session;

/// The colours of the calendar of events.
class EventsSettings : public SettingPage {
    Q_OBJECT

public:
    explicit EventsSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    Session& m_session;
    ColourButton* m_weekend;
    ColourButton* m_holiday;
};

/// The warning before incident reports, and the teacher's own titles of incidents, which are kept
/// at once.
class IncidentSettings : public SettingPage {
    Q_OBJECT

public:
    explicit IncidentSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    void showTitles();

    Session& m_session;
    QCheckBox* m_hidesWarning;
    QListWidget* m_titles;
    QPushButton* m_remove;
};

/// The questions of the address book.
class AddressSettings : public SettingPage {
    Q_OBJECT

public:
    explicit AddressSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    Session& m_session;
    QCheckBox* m_contacts;
    QCheckBox* m_groups;
};
