#pragma once

#include "settings/screens/setting_page.h"

#include <array>

class FontSample;
class QCheckBox;
class QComboBox;
class QLineEdit;
class Session;

/// The font of planning sheets, and what a new short term plan begins with.
class PlanningSettings : public SettingPage {
    Q_OBJECT

public:
    explicit PlanningSettings(Session& session);

    void acquire() override;
    bool apply() override;

private:
    void reset();

    Session& m_session;
    FontSample* m_font;
    QCheckBox* m_coding;
    QComboBox* m_subject;
    QLineEdit* m_ability;
    QLineEdit* m_unit;
    QComboBox* m_term;
    std::array<QComboBox*, 3> m_times{};
};
