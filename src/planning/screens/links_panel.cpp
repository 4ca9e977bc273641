#include "planning/screens/links_panel.h"

#include "controls/icons.h"
#include "core/prompts.h"
#include "core/session.h"
#include "desktop/screens/prompt_dialog.h"
#include "planning/file_links.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

LinksPanel::LinksPanel(const Session& session, const QString& list, QWidget* parent)
    : QWidget(parent)
    , m_session(session)
    , m_toggle(new QToolButton)
    , m_panel(new QFrame)
    , m_list(new QComboBox) {
    m_toggle->setObjectName(u"cmdToggle"_s);
    m_toggle->setIcon(icon(u"links"_s));
    m_toggle->setText(u"File Links"_s);
    m_toggle->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_toggle->setCheckable(true);
    m_toggle->setChecked(true);
    m_toggle->setFocusPolicy(Qt::TabFocus);
    m_toggle->setAccessibleName(u"Show the file links"_s);
    m_panel->setObjectName(u"linkpnl"_s);
    m_list->setObjectName(list);
    m_list->setAccessibleName(u"File links of the period"_s);
    m_list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* panel = new QHBoxLayout(m_panel);
    panel->setContentsMargins({});
    panel->addWidget(m_list, 1);
    m_add = addButton(u"link_add"_s, u"Add"_s, &LinksPanel::add);
    m_open = addButton(u"link_open"_s, u"Open"_s, &LinksPanel::open);
    m_remove = addButton(u"link_remove"_s, u"Remove"_s, &LinksPanel::remove);
    QPushButton* all = addButton(u"links"_s, u"All Links"_s, &LinksPanel::showAll);
    for (QPushButton* button : {m_add, m_open, m_remove, all})
        panel->addWidget(button);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 0, 4, 4);
    layout->addWidget(m_toggle);
    layout->addWidget(m_panel, 1);
    layout->addStretch();
    connect(m_toggle, &QToolButton::toggled, m_panel, &QWidget::setVisible);
    reload();
}

QPushButton* LinksPanel::addButton(const QString& iconName, const QString& text,
                                   void (LinksPanel::*act)()) {
    auto* button = new QPushButton(icon(iconName), text);
    button->setObjectName(u"cmd"_s + text.section(u' ', 0, 0) + u"Link"_s);
    button->setToolTip(text.endsWith(u's') ? u"All file links of the year"_s
                                           : text + u" a file link"_s);
    button->setAccessibleName(button->toolTip());
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, act);
    return button;
}

void LinksPanel::showLinks(const QString& planDate, int period) {
    m_planDate = planDate;
    m_period = period;
    reload();
}

void LinksPanel::reload() {
    m_list->clear();
    if (m_period > 0) {
        for (const FileLink& link : ::GetFileLinks(
                 m_session.CurrentDB, m_session.GetSeams().prompts, m_planDate, m_period))
            m_list->addItem(link.name);
    }
    const bool hasLinks = m_list->count() > 0;
    m_list->setEnabled(hasLinks);
    m_add->setEnabled(m_period > 0);
    m_open->setEnabled(hasLinks);
    m_remove->setEnabled(hasLinks);
}

void LinksPanel::add() {
    if (AddFileLink(m_session.CurrentDB, m_session.GetSeams().prompts, m_planDate, m_period))
        reload();
}

void LinksPanel::open() {
    OpenLink(m_session.CurrentDB, m_session.GetSettings(), m_session.GetSeams(), m_planDate,
             m_list->currentText());
}

void LinksPanel::remove() {
    RemoveFileLink(m_session.CurrentDB, m_session.GetSeams().prompts, m_list->currentText());
    reload();
}

void LinksPanel::showAll() {
    const Seams& seams = m_session.GetSeams();
    PromptDialog(this).ALL_File_Links(
        u"File Links"_s, u"All file links used within planning are shown below"_s,
        AllFileLinks(m_session.CurrentDB, seams.prompts), [this, &seams](const FileLink& link) {
            OpenFileLink(link.path, m_session.GetSettings(), seams.shell, seams.prompts);
        });
    reload();
}
