#pragma once

#include "settings/screens/setting_page.h"

#include <array>

class FontSample;
class QComboBox;
class Session;

/// Where the breaks of a day fall, and the font of the timetable.
class TimetableSettings : public SettingPage {
    Q_OBJECT

public:
    explicit TimetableSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    Session& m_session;
    std::array<QComboBox*, 3> m_breaks{};
    FontSample* m_font;
};
