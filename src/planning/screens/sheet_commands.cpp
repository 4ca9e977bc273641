#include "planning/screens/sheet_commands.h"

#include "controls/edit_menu.h"
#include "controls/format_tools.h"
#include "controls/icons.h"
#include "controls/insert_object_menu.h"
#include "controls/layout_toolbar.h"
#include "controls/rich_text_box.h"
#include "core/session.h"
#include "planning/short_term_plan.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

/// Commands that open a window; there is no such command where the program lacks the window.
struct WindowCommand {
    ToolWindow window;
    QString caption;
    QString icon;
};
const WindowCommand windowCommands[] = {
    {.window = ToolWindow::Search, .caption = u"Search Plans..."_s, .icon = u"search"_s},
    {.window = ToolWindow::History, .caption = u"Show Lesson History"_s, .icon = u"history"_s},
    {.window = ToolWindow::Classes, .caption = u"Open Register..."_s, .icon = u"register"_s},
};

} // namespace

SheetCommands::SheetCommands(Session& session, FormatTools& tools, QWidget& window)
    : QObject(&window), m_session(session), m_tools(tools) {
    makeWindowActions();
    makePlanningMenu(window);
    makeExportMenu(window);
    makePeriodMenu(window);
    makeToolbar(window);
    m_propertiesButton->setCheckable(true);
    addEvents();
}

void SheetCommands::makePlanningMenu(QWidget& window) {
    m_planningMenu = new QMenu(u"&Planning"_s, &window);
    m_planningMenu->setObjectName(u"mnuPlanningSheet"_s);
    const auto add = [this](const QString& iconName, const QString& text,
                            void (SheetCommands::*wanted)()) {
        QAction* action = m_planningMenu->addAction(icon(iconName), text);
        connect(action, &QAction::triggered, this, wanted);
        return action;
    };
    add(u"new"_s, u"Open\\Create New ..."_s, &SheetCommands::createWanted);
    add(u"daily"_s, u"Open\\Create for TODAY"_s, &SheetCommands::todayWanted);
    add(u"daily"_s, u"Open\\Create for TOMORROW"_s, &SheetCommands::tomorrowWanted);
    m_planningMenu->addSeparator();
    if (QAction* search = m_windowActions.value(ToolWindow::Search)) {
        search->setShortcut(Qt::CTRL | Qt::Key_F);
        search->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        window.addAction(search);
        m_planningMenu->addAction(search);
    }
    m_delete = add(u"delete"_s, u"Delete selected Sheet"_s, &SheetCommands::deleteWanted);
}

void SheetCommands::makeWindowActions() {
    for (const WindowCommand& command : windowCommands) {
        if (!m_session.GetWindows().has(command.window))
            continue;
        auto* action = new QAction(icon(command.icon), command.caption, this);
        connect(action, &QAction::triggered, this, [this, window = command.window] {
            if (window == ToolWindow::Classes)
                emit registerWanted();
            else if (window == ToolWindow::History)
                emit historyWanted();
            else
                m_session.GetWindows().open(window);
        });
        m_windowActions.insert(command.window, action);
    }
}

void SheetCommands::makePeriodMenu(QWidget& window) {
    m_periodMenu = new QMenu(u"Pe&riod"_s, &window);
    m_periodMenu->setObjectName(u"mnuPeriod"_s);
    m_maximise = m_periodMenu->addAction(icon(u"maximise"_s), u"Maximise Selected Activity"_s, this,
                                         &SheetCommands::maximiseWanted);
    m_maximise->setShortcut(Qt::CTRL | Qt::Key_M);
    m_maximise->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    window.addAction(m_maximise);
    m_periodMenu->addSeparator();
    if (QAction* history = m_windowActions.value(ToolWindow::History))
        m_periodMenu->addAction(history);
    m_properties = m_periodMenu->addAction(icon(u"properties"_s), u"Show Lesson Properties"_s, this,
                                           &SheetCommands::planToggled);
    m_properties->setCheckable(true);
    m_periodMenu->addMenu(m_exportMenu);
    m_periodMenu->addMenu(m_tools.insertMenu());
    if (QAction* lessonRegister = m_windowActions.value(ToolWindow::Classes))
        m_periodMenu->addAction(lessonRegister);
}

void SheetCommands::makeExportMenu(QWidget& window) {
    m_exportMenu = new QMenu(u"Export to MS Word"_s, &window);
    m_exportMenu->setObjectName(u"mnuExport"_s);
    m_exportMenu->addAction(u"Daily Planning Sheet"_s, this, &SheetCommands::quickPlanWanted);
    m_exportPlan =
        m_exportMenu->addAction(u"Short Term Plan"_s, this, &SheetCommands::shortTermPlanWanted);
    m_exportMenu->addAction(u"Create Cover Sheet(s)..."_s, this, &SheetCommands::coverSheetsWanted);
}

void SheetCommands::makeToolbar(QWidget& window) {
    struct Button {
        QString tip;
        QString icon;
        QAction* action;
        QMenu* menu;
    };
    QList<Button> buttons;
    if (QAction* search = m_windowActions.value(ToolWindow::Search))
        buttons += {u"Search Plans."_s, u"search"_s, search, nullptr};
    buttons += {u"Delete this Plan."_s, u"delete"_s, m_delete, nullptr};
    if (QAction* history = m_windowActions.value(ToolWindow::History))
        buttons += {u"History Viewer."_s, u"history"_s, history, nullptr};
    buttons +=
        {u"Toggle Lesson Properties. (STP details)"_s, u"properties"_s, m_properties, nullptr};
    buttons += {u"Export to MSWord options."_s, u"export"_s, nullptr, m_exportMenu};
    buttons += {u"Insert Object."_s, u"insert_object"_s, nullptr, m_tools.insertMenu()};
    QStringList tips;
    QStringList icons;
    for (const Button& button : buttons) {
        tips += button.tip;
        icons += button.icon;
    }
    m_toolbar = new LayoutToolbar(u"ORVA_Btns"_s, QString(buttons.size(), u'B'), tips.join(u'|'),
                                  icons.join(u'|'), &window);
    for (qsizetype i = 0; i < buttons.size(); ++i) {
        if (buttons[i].menu) {
            m_toolbar->setMenu(i, buttons[i].menu);
            continue;
        }
        QAction* button = m_toolbar->button(i);
        connect(button, &QAction::triggered, buttons[i].action, &QAction::trigger);
        connect(buttons[i].action, &QAction::enabledChanged, button, &QAction::setEnabled);
        if (buttons[i].action == m_properties)
            m_propertiesButton = button;
    }
}

void SheetCommands::addEvents() {
    struct Entry {
        QString name;
        QString text;
        SheetEvent event;
    };
    const Entry entries[] = {
        {u"mnuAddPerWeek"_s, u"Create a weekly event..."_s, SheetEvent::AddWeekly},
        {u"mnuAddPer2weeks"_s, u"Create a fortnightly event..."_s, SheetEvent::AddFortnightly},
        {u"mnuRemovePerWeek"_s, u"Remove  from  weekly events..."_s, SheetEvent::Remove},
    };
    for (const Entry& entry : entries) {
        auto* action = new QAction(entry.text, this);
        action->setObjectName(entry.name);
        connect(action, &QAction::triggered, this,
                [this, event = entry.event] { emit eventWanted(event); });
        m_tools.editMenu()->addSelectionAction(action);
    }
}

void SheetCommands::enable(const SheetState& sheet) {
    m_delete->setEnabled(sheet.isThere);
    m_exportMenu->setEnabled(sheet.isThere);
    m_exportPlan->setEnabled(ShortTermPlan::takes(sheet.period));
    m_maximise->setEnabled(sheet.period > 0 && !sheet.isPlanOpen);
    m_properties->setEnabled(sheet.isPlanOpen || ShortTermPlan::takes(sheet.period));
    for (QAction* properties : {m_properties, m_propertiesButton})
        properties->setChecked(sheet.isPlanOpen);
    if (QAction* history = m_windowActions.value(ToolWindow::History))
        history->setEnabled(sheet.hasClass);
}
