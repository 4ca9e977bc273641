#include "settings/screens/small_pages.h"

#include "controls/colour_button.h"
#include "core/prompts.h"
#include "core/session.h"
#include "incidents/incident_titles.h"
#include "settings/screens/setting_controls.h"
#include "settings/settings_pages.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

EventsSettings::EventsSettings(Session& session)
    : m_session(session)
    , m_weekend(
          new ColourButton(u"WeekendCol"_s, u"&Weekend Colour..."_s, session.GetSeams().prompts))
    , m_holiday(
          new ColourButton(u"HolidayCol"_s, u"&Holiday Colour..."_s, session.GetSeams().prompts)) {
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation(u"The days of weekends and holidays have these colours in the "
                                  "calendar of events."_s));
    layout->addWidget(m_weekend, 0, Qt::AlignLeft);
    layout->addWidget(m_holiday, 0, Qt::AlignLeft);
    layout->addStretch();
}

void EventsSettings::acquire() {
    const EventsValues page = readEvents(m_session.GetSettings());
    m_weekend->setColour(page.weekend);
    m_holiday->setColour(page.holiday);
}

bool EventsSettings::apply() {
    Apply_COE(m_session.GetSettings(), {m_weekend->colour(), m_holiday->colour()});
    return true;
}

IncidentSettings::IncidentSettings(Session& session)
    : m_session(session)
    , m_hidesWarning(new QCheckBox(u"Do &not show the security warning"_s))
    , m_titles(new QListWidget)
    , m_remove(new QPushButton(u"&Remove"_s)) {
    m_hidesWarning->setObjectName(u"CkSecurity"_s);
    m_titles->setObjectName(u"List3"_s);
    m_titles->setAccessibleName(u"Your own titles of incidents"_s);
    m_remove->setObjectName(u"RemoveTitle"_s);
    auto* add = new QPushButton(u"&Add..."_s);
    add->setObjectName(u"AddTitle"_s);
    connect(add, &QPushButton::clicked, this, [this] {
        addIncidentTitle(
            m_session.GetSettings(),
            m_session.GetSeams().prompts.input_box(u"Please enter a title for incident reports:"_s,
                                                   OkCancelButtons, u"Add a Title"_s, {}));
        showTitles();
    });
    connect(m_remove, &QPushButton::clicked, this, [this] {
        removeIncidentTitle(m_session.GetSettings(), m_titles->currentItem()->text());
        showTitles();
    });
    connect(m_titles, &QListWidget::currentRowChanged, this,
            [this](int row) { m_remove->setEnabled(row >= 0); });
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(m_remove);
    buttons->addStretch();
    auto* titles = new QHBoxLayout;
    titles->addWidget(m_titles, 1);
    titles->addLayout(buttons);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation(u"These titles are offered for incident reports beside the "
                                  "built-in ones. They are added and removed at once."_s));
    layout->addLayout(titles, 1);
    layout->addWidget(m_hidesWarning);
}

void IncidentSettings::showTitles() {
    m_titles->clear();
    m_titles->addItems(ownIncidentTitles(m_session.GetSettings()));
    m_remove->setEnabled(false);
}

void IncidentSettings::acquire() {
    m_hidesWarning->setChecked(readHidesIncidentWarning(m_session.GetSettings()));
    showTitles();
}

bool IncidentSettings::apply() {
    Apply_Incidents(m_session.GetSettings(), m_hidesWarning->isChecked());
    return true;
}

AddressSettings::AddressSettings(Session& session)
    : m_session(session)
    , m_contacts(new QCheckBox(u"Delete &contacts without asking"_s))
    , m_groups(new QCheckBox(u"Delete &groups without asking"_s)) {
    m_contacts->setObjectName(u"CkContacts"_s);
    m_groups->setObjectName(u"CkGroups"_s);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(explanation(u"The address book asks before it deletes a contact, or a whole "
                                  "group of them."_s));
    layout->addWidget(m_contacts);
    layout->addWidget(m_groups);
    layout->addStretch();
}

void AddressSettings::acquire() {
    const AddressValues page = readAddresses(m_session.GetSettings());
    m_contacts->setChecked(page.deletesContacts);
    m_groups->setChecked(page.deletesGroups);
}

bool AddressSettings::apply() {
    Apply_Addresses(m_session.GetSettings(), {m_contacts->isChecked(), m_groups->isChecked()});
    return true;
}
