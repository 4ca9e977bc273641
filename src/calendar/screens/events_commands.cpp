#include "calendar/screens/events_commands.h"

#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/icons.h"
#include "controls/layout_toolbar.h"
#include "core/session.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

struct PlanningPost {
    DayBlock block;
    QString caption;
};
const PlanningPost planningPosts[] = {
    {DayBlock::DinnerTime, u"Add to Planning: 'Dinner Time'"_s},
    {DayBlock::AfterSchool, u"Add to Planning: 'After School'"_s},
    {DayBlock::Notes, u"Add to Planning: 'Notes'"_s},
};

} // namespace

EventsCommands::EventsCommands(const Session& session, FormatTools& tools, QMenu& months,
                               QWidget& window)
    : QObject(&window), m_menu(new QMenu(u"&Calendar"_s, &window)) {
    makeToolbar(session, window);
    makeMenu(session, months);
    addPosts(session, tools);
}

void EventsCommands::makeToolbar(const Session& session, QWidget& window) {
    const bool hasPlanning = session.GetWindows().has(ToolWindow::DailySheet);
    QStringList tips{u"Show Holidays"_s, u"Import from ORVA database"_s, u"Import from Outlook"_s};
    QStringList icons{u"calendar"_s, u"open"_s, u"mail"_s};
    if (hasPlanning) {
        tips.prepend(u"Show Planning..."_s);
        icons.prepend(u"daily"_s);
    }
    m_toolbar = new LayoutToolbar(u"Options"_s, hasPlanning ? u"B|B|BB"_s : u"B|BB"_s,
                                  tips.join(u'|'), icons.join(u'|'), &window);
    qsizetype next = 0;
    if (hasPlanning) {
        m_showPlanning = m_toolbar->button(next++);
        m_showPlanning->setEnabled(false);
        connect(m_showPlanning, &QAction::triggered, this, &EventsCommands::planningWanted);
    }
    m_showHolidays = m_toolbar->button(next++);
    m_showHolidays->setCheckable(true);
    m_import = m_toolbar->button(next++);
    connect(m_import, &QAction::triggered, this, &EventsCommands::importWanted);
    m_mailImport = m_toolbar->button(next);
    connect(m_mailImport, &QAction::triggered, this, &EventsCommands::mailImportWanted);
}

void EventsCommands::makeMenu(const Session& session, QMenu& months) {
    m_menu->setObjectName(u"mnuCOE"_s);
    m_menu->addMenu(&months);
    if (m_showPlanning)
        m_menu->addAction(m_showPlanning);
    m_menu->addSeparator();
    m_menu->addAction(m_showHolidays);
    m_menu->addSeparator();
    m_menu->addAction(m_import);
    m_menu->addAction(m_mailImport);
    if (!session.GetWindows().has(ToolWindow::Settings))
        return;
    m_menu->addSeparator();
    QAction* settings = m_menu->addAction(icon(u"settings"_s), u"Settings..."_s);
    connect(settings, &QAction::triggered, this, [&windows = session.GetWindows()] {
        windows.open(ToolWindow::Settings, qint64{EventsSettingsPage});
    });
}

void EventsCommands::addPosts(const Session& session, FormatTools& tools) {
    for (const PlanningPost& post : planningPosts) {
        auto* action = new QAction(post.caption, this);
        connect(action, &QAction::triggered, this,
                [this, block = post.block] { emit postWanted(block); });
        tools.editMenu()->addSelectionAction(action);
    }
    if (!session.GetWindows().has(ToolWindow::Reminders))
        return;
    auto* schedule = new QAction(u"Schedule this event..."_s, this);
    connect(schedule, &QAction::triggered, this, &EventsCommands::scheduleWanted);
    tools.editMenu()->addSelectionAction(schedule);
}

void EventsCommands::setHasDay(bool hasDay) {
    if (m_showPlanning)
        m_showPlanning->setEnabled(hasDay);
}
