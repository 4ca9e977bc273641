#include "settings/screens/settings_dialog.h"

#include "core/prompts.h"
#include "core/session.h"
#include "core/tool_windows.h"
#include "settings/screens/folders_page.h"
#include "settings/screens/general_page.h"
#include "settings/screens/planning_page.h"
#include "settings/screens/register_page.h"
#include "settings/screens/small_pages.h"
#include "settings/screens/timetable_page.h"
#include "settings/screens/view_page.h"
#include "store/engine/error.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SettingsDialog::SettingsDialog(Session& session)
    : m_session(session), m_list(new QListWidget), m_frame(new QStackedWidget) {
    setObjectName(u"SettingsFrm"_s);
    setWindowTitle(u"Settings:"_s);
    setWindowModality(Qt::WindowModal);
    m_list->setObjectName(u"CL1"_s);
    m_list->setAccessibleName(u"Pages of the settings"_s);
    m_frame->setObjectName(u"Frame1"_s);
    makePages(session);
    auto* pages = new QHBoxLayout;
    pages->addWidget(m_list);
    pages->addWidget(m_frame, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(pages, 1);
    layout->addWidget(makeButtons());
    m_list->setFixedWidth(m_list->sizeHintForColumn(0) + 2 * m_list->frameWidth() + 12);
    connect(m_list, &QListWidget::currentRowChanged, this, &SettingsDialog::DisplayFrame);
    Acquire_Settings();
    // Enter is "OK" wherever the focus is, but for a button that has it.
    auto* ok = findChild<QPushButton*>(u"Command1(2)"_s);
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(button == ok);
    ok->setDefault(true);
    m_list->setCurrentRow(0);
    m_list->setFocus();
}

void SettingsDialog::makePages(Session& session) {
    auto* general = new GeneralSettings(session);
    connect(general, &GeneralSettings::yearLost, this, &QDialog::reject);
    m_view = new ViewSettings(session);
    m_pages = {general,
               m_view,
               new FolderSettings(session),
               new TimetableSettings(session),
               new PlanningSettings(session),
               new RegisterSettings(session),
               new EventsSettings(session),
               new IncidentSettings(session),
               new AddressSettings(session)};
    for (SettingPage* page : m_pages)
        m_frame->addWidget(page);
    m_list->addItems({u"General Settings"_s, u"View Settings"_s, u"File Locations"_s,
                      u"Personal Timetable"_s, u"Daily/Weekly Planning"_s,
                      u"Register/Grades/Classes"_s, u"Calendar of Events"_s, u"Incident Reporter"_s,
                      u"Address Book"_s});
}

QWidget* SettingsDialog::makeButtons() {
    auto* write = new QPushButton(u"A&pply"_s);
    auto* leave = new QPushButton(u"Cancel"_s);
    auto* writeAndLeave = new QPushButton(u"OK"_s);
    connect(write, &QPushButton::clicked, this, &SettingsDialog::applyPage);
    connect(leave, &QPushButton::clicked, this, &QDialog::reject);
    connect(writeAndLeave, &QPushButton::clicked, this, [this] {
        if (applyPage())
            accept();
    });
    auto* foot = new QWidget;
    auto* layout = new QHBoxLayout(foot);
    layout->setContentsMargins({});
    layout->addStretch();
    int element = 0;
    for (QPushButton* button : {write, leave, writeAndLeave}) {
        button->setObjectName(u"Command1(%1)"_s.arg(element++));
        layout->addWidget(button);
    }
    return foot;
}

void SettingsDialog::Acquire_Settings() {
    bool isWhole = true;
    for (SettingPage* page : m_pages) {
        try {
            page->acquire();
        } catch (const dao::EngineError&) {
            isWhole = false;
        }
    }
    if (!isWhole)
        m_session.GetSeams().prompts.msg_Box(
            u"There was an error whilst trying to acquire settings from the registry!\n"
            "ORVA will attempt to continue."_s,
            OkButton | WarningIcon, u"Error loading Registry Settings"_s);
}

void SettingsDialog::DisplayFrame(int page) {
    m_frame->setCurrentIndex(page);
}

void SettingsDialog::showPage(qint64 page) {
    const bool isPostIts = page == PostItSettingsPage;
    m_list->setCurrentRow(static_cast<int>(isPostIts ? ViewSettingsPage : page));
    if (isPostIts)
        m_view->showPostIts();
}

bool SettingsDialog::applyPage() {
    return m_pages.at(static_cast<size_t>(m_list->currentRow()))->apply();
}
