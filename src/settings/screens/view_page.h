#pragma once

#include "settings/screens/setting_page.h"
#include "settings/settings_pages.h"

class ColourButton;
class FontSample;
class QCheckBox;
class QComboBox;
class QTabWidget;

/// The look of the main window and of post-it notes.
class ViewSettings : public SettingPage {
    Q_OBJECT

public:
    explicit ViewSettings(Session& session);

    void acquire() override;
    bool apply() override;
    void showPostIts();

private:
    QWidget* makeWindowTab();
    QWidget* makePostItTab();

    Session& m_session;
    bool m_isEndChosen = false; ///< else the shading ends in the scheme's own colour
    QTabWidget* m_tabs;
    QComboBox* m_toolbar = nullptr;
    QComboBox* m_fadeStyle = nullptr;
    ColourButton* m_fadeStart = nullptr;
    ColourButton* m_fadeEnd = nullptr;
    QCheckBox* m_flat = nullptr;
    QCheckBox* m_loads = nullptr;
    ColourButton* m_caption = nullptr;
    ColourButton* m_paper = nullptr;
    FontSample* m_font = nullptr;
};
