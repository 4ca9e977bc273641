// The frame, driven through its own menus: what it shows and allows in each state of the session.

#include "calendar/timetable_settings.h"
#include "core/core_settings.h"
#include "core/program_settings.h"
#include "frame/screens/accessible_program.h"
#include "frame/screens/frame_menus.h"
#include "frame/screens/frame_toolbar.h"
#include "frame/screens/main_window.h"
#include "frame/screens/window_table.h"
#include "help/screens/context_help.h"
#include "support/screen_checks.h"
#include "support/year_session.h"
#include "year/recent_years.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

/// A tool window that notes when it is closed.
class PlainWindow : public QWidget {
public:
    PlainWindow(const QString& name, QStringList& closed) : m_closed(closed) {
        setObjectName(name);
        setWindowTitle(name);
        auto* field = new QLineEdit;
        field->setObjectName(name + u"_field"_s);
        auto* bar = new QMenuBar;
        bar->setObjectName(name + u"_bar"_s);
        auto* layout = new QVBoxLayout(this);
        layout->setMenuBar(bar);
        layout->addWidget(field);
    }

protected:
    void closeEvent(QCloseEvent* event) override {
        m_closed += objectName();
        QWidget::closeEvent(event);
    }

private:
    QStringList& m_closed;
};

class FrameTest : public YearSession {
protected:
    FrameTest() {
        session.Start(path(u"app"_s));
        const std::pair<ToolWindow, QStringView> named[] = {
            {ToolWindow::DailySheet, u"ORVAfrm"},
            {ToolWindow::WeeklySheet, u"ORVA2frm"},
            {ToolWindow::Timetable, u"TTfrm"},
            {ToolWindow::Classes, u"RegisterFrm"},
            {ToolWindow::CalendarOfEvents, u"COEfrm"},
            {ToolWindow::Reminders, u"Schedulefrm"},
            {ToolWindow::Incidents, u"IncidentFrm"},
            {ToolWindow::SeatingPlans, u"SeatingPlanFrm"},
            {ToolWindow::AddressBook, u"ContactsFrm"}};
        for (const auto& [window, nameView] : named) {
            const QString name = nameView.toString();
            windows.push_back({.window = window,
                               .name = name,
                               .placementKey = name + u"Place"_s,
                               .minimisedKey = name + u"Minimised"_s,
                               .make = [this, name](Session&, const WindowSubject&) {
                                   return new PlainWindow(name, closed);
                               }});
        }
        for (const ToolWindow window : {ToolWindow::Postits, ToolWindow::Settings})
            windows.push_back({.window = window,
                               .run = [this](Session&, FrameCommand command, const WindowSubject&) {
                                   ran += command;
                               }});
        windows.push_back({.window = ToolWindow::UserTools, .fill = [](Session&, QMenu& menu) {
                               menu.clear();
                               menu.addAction(u"Archive Class..."_s);
                           }});
    }

    /// A frame with every window that there can be, and with a year or without.
    std::unique_ptr<MainWindow> fullFrame(bool isEnabled) {
        auto frame = std::make_unique<MainWindow>(session, windows, false);
        frame->show();
        frame->EnableInput(isEnabled);
        QCoreApplication::processEvents();
        return frame;
    }
    QMdiSubWindow& form(MainWindow& frame, const QString& name) {
        return *qobject_cast<QMdiSubWindow*>(control<PlainWindow>(frame, name).parentWidget());
    }
    /// Shows the frame and waits for the end of its start.
    void start(MainWindow& frame) {
        QSignalSpy started(&frame, &MainWindow::started);
        frame.show();
        ASSERT_TRUE(!started.isEmpty() || started.wait());
    }
    static QAction* action(MainWindow& frame, const char* name) {
        return frame.findChild<QAction*>(QString::fromLatin1(name));
    }

    std::vector<WindowEntry> windows;
    QStringList closed;
    QList<FrameCommand> ran;
};

} // namespace

TEST_F(FrameTest, OpensTheDefaultYearAtItsFirstActivation) {
    createYear(twoWeekAnswers(), path(u"year.mdb"_s), seams);
    settings.set(setting::DefaultDatabasePath, path(u"year.mdb"_s));
    settings.set(setting::DontShowStartup, true);
    MainWindow frame(session, windowTable());
    EXPECT_FALSE(session.CurrentDB.isOpen());
    start(frame);
    EXPECT_TRUE(session.CurrentDB.isOpen());
    EXPECT_TRUE(frame.windowTitle().endsWith(u"year.mdb"_s));
    action(frame, "mnufileItem(8)")->trigger();
    EXPECT_FALSE(frame.isVisible() || session.CurrentDB.isOpen());
    EXPECT_TRUE(settings.find(Setting<qint32>{setting::Options, u"WindowState"}));
}

TEST_F(FrameTest, EveryItemOfTheMenusIsNamedAndLegible) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->menus().popup(FrameCommand::PostitMenu);
    for (QMenu* menu : frame->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
        for (const QAction* item : menu->actions())
            EXPECT_TRUE(item->isSeparator() || !item->objectName().isEmpty());
        menu->popup({});
        checkScreen(*menu, menu->objectName());
        menu->close();
    }
}

TEST_F(FrameTest, CommandsAreAllowedByTheState) {
    const std::unique_ptr<MainWindow> frame = fullFrame(false);
    for (const bool isOpen : {false, true, false}) {
        frame->EnableInput(isOpen);
        EXPECT_EQ(control<FrameToolbar>(*frame, u"Toolbar1"_s).isEnabled(), isOpen);
        for (const CommandEntry& entry : commandTable())
            EXPECT_EQ(frame->menus().action(entry.command).isEnabled(),
                      (isOpen || !entry.needsDatabase) && !entry.needsTwoWeeks)
                << entry.caption.toStdString();
    }
}

TEST_F(FrameTest, InputReachesTheVisibleWindowsOnlyWhileItIsAllowed) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->open(ToolWindow::Timetable);
    frame->open(ToolWindow::CalendarOfEvents);
    form(*frame, u"COEfrm"_s).hide();
    frame->EnableInput(false);
    EXPECT_FALSE(form(*frame, u"TTfrm"_s).isEnabled());
    EXPECT_TRUE(form(*frame, u"COEfrm"_s).isEnabled());
    frame->EnableInput(true);
    EXPECT_TRUE(form(*frame, u"TTfrm"_s).isEnabled());
}

TEST_F(FrameTest, ACommandLoadsItsWindowOnceAndBringsItForward) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    const struct {
        QStringView name;
        int twips;
    } values[] = {{u"Top", 600}, {u"Left", 900}, {u"Width", 6000}, {u"Height", 4500}};
    for (const auto& [name, twips] : values)
        settings.set(Setting<qint32>{u"TTfrmMinimised", name}, twips);

    action(*frame, "mnuSettingsItem(1)")->trigger();
    action(*frame, "mnuPlanning(1)")->trigger();
    EXPECT_EQ(frame->visible(), QList({ToolWindow::Timetable, ToolWindow::WeeklySheet}));
    QMdiSubWindow& timetable = form(*frame, u"TTfrm"_s);
    timetable.setGeometry(10, 10, 300, 200);
    action(*frame, "mnuSettingsItem(1)")->trigger();
    EXPECT_EQ(timetable.mdiArea()->activeSubWindow(), &timetable);
    EXPECT_EQ(timetable.geometry(), QRect(10, 10, 300, 200));
    timetable.showMinimized();
    action(*frame, "mnuSettingsItem(1)")->trigger();
    EXPECT_FALSE(timetable.isMinimized());
    EXPECT_EQ(timetable.geometry(), QRect(60, 40, 400, 300));

    seams.prompts.expect(PromptKind::Message, u"Security warning"_s, AnswerYes);
    action(*frame, "Incidents")->trigger();
    action(*frame, "mnuPostitHideAll")->trigger();
    action(*frame, "mnuSettingsItem(7)")->trigger();
    EXPECT_EQ(frame->visible().last(), ToolWindow::Incidents);
    EXPECT_EQ(ran, QList({FrameCommand::PostitHideAll, FrameCommand::GeneralSettings}));
}

TEST_F(FrameTest, ManyWindowsOfAKindAreToldApartByTheirSubjects) {
    windows.push_back(
        {.window = ToolWindow::History,
         .name = u"Note"_s,
         .kind = WindowKind::FloatingMany,
         .make = [this](Session&,
                        const WindowSubject&) { return new PlainWindow(u"Note"_s, closed); },
         .show =
             [](QWidget& window, const WindowSubject& subject) {
                 window.setWindowTitle(QString::number(std::get<qint64>(subject)));
             }});
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    for (int round = 0; round < 2; ++round) {
        for (qint64 note = 1; note <= 20; ++note)
            frame->open(ToolWindow::History, note);
    }
    EXPECT_EQ(frame->visible().size(), 20);
    EXPECT_EQ(frame->findChildren<QWidget*>(u"Note"_s).last()->windowTitle(), u"20"_s);
    frame->CloseOpenForms();
    EXPECT_EQ(closed.size(), 20);
}

TEST_F(FrameTest, AWindowThatClosesKeepsItsPlace) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->open(ToolWindow::Timetable);
    frame->open(ToolWindow::CalendarOfEvents);
    form(*frame, u"TTfrm"_s).setGeometry(40, 60, 300, 200);
    form(*frame, u"COEfrm"_s).close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frame->CloseOpenForms();
    EXPECT_EQ(closed, QStringList({u"COEfrm"_s, u"TTfrm"_s}));
    EXPECT_TRUE(frame->visible().isEmpty());
    EXPECT_EQ(settings.get(Setting<qint32>{u"TTfrmPlace", u"Left"}), 600);
    EXPECT_TRUE(settings.find(Setting<qint32>{u"COEfrmPlace", u"WindowState"}));
    frame->open(ToolWindow::Timetable);
    EXPECT_EQ(form(*frame, u"TTfrm"_s).geometry(), QRect(40, 60, 300, 200));
}

TEST_F(FrameTest, TheToolbarStandsInTheMiddleOfEachSide) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    auto& toolbar = control<FrameToolbar>(*frame, u"Toolbar1"_s);
    const struct {
        int alignment;
        Qt::ToolBarArea area;
        QString picture;
    } sides[] = {
        {0, Qt::LeftToolBarArea, u"left"_s},
        {2, Qt::RightToolBarArea, u"right"_s},
        {3, Qt::TopToolBarArea, u"top"_s},
        {4, Qt::BottomToolBarArea, u"bottom"_s},
    };
    const Setting<qint32> stored{setting::Root, setting::ToolbarAlignment.name};
    for (const auto& [alignment, area, picture] : sides) {
        settings.set(stored, alignment);
        QCoreApplication::processEvents();
        EXPECT_EQ(frame->toolBarArea(&toolbar), area);
        const QRect first = toolbar.buttonOf(FrameCommand::OpenDatabase)->geometry();
        const QRect last = toolbar.buttonOf(FrameCommand::AddressBook)->geometry();
        const QPoint off = first.united(last).center() - toolbar.rect().center();
        const bool isUpright = toolbar.orientation() == Qt::Vertical;
        EXPECT_LE(std::abs(isUpright ? off.y() : off.x()), 3) << alignment;

        toolbar.buttonOf(FrameCommand::PostitMenu)->setFocus();
        QTest::keyClick(toolbar.buttonOf(FrameCommand::PostitMenu), Qt::Key_Space);
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(popup) << alignment;
        EXPECT_EQ(popup->activeAction(), popup->actions().first());
        popup->close();
        checkScreen(*frame, u"mdiORVA_"_s + picture);
    }
}

TEST_F(FrameTest, APopupOfAWindowIsFilledBeforeItShows) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    auto& toolbar = control<FrameToolbar>(*frame, u"Toolbar1"_s);
    for (int times = 0; times < 2; ++times) {
        QTest::mouseClick(toolbar.buttonOf(FrameCommand::ToolsMenu), Qt::LeftButton);
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_TRUE(popup);
        EXPECT_EQ(popup->actions().size(), 1);
        popup->close();
    }
}

TEST_F(FrameTest, TheViewMenuHidesTheToolbarThatStaysHidden) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    auto& toolbar = control<FrameToolbar>(*frame, u"Toolbar1"_s);
    EXPECT_TRUE(toolbar.isVisible());
    action(*frame, "mnuSettingsItem(5)")->trigger();
    EXPECT_FALSE(toolbar.isVisible());
    frame->ToolbarAlign();
    EXPECT_FALSE(toolbar.isVisible());
    action(*frame, "mnuSettingsItem(5)")->trigger();
    EXPECT_TRUE(toolbar.isVisible());
}

TEST_F(FrameTest, TheKeyboardReachesTheToolbarAndComesBack) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->activateWindow();
    frame->open(ToolWindow::Timetable);
    auto& field = control<QLineEdit>(*frame, u"TTfrm_field"_s);
    field.setFocus();
    press(*frame, Qt::Key_F6);
    EXPECT_EQ(frame->focusWidget()->objectName(), u"Toolbar1(0)"_s);
    press(*frame, Qt::Key_End);
    press(*frame, Qt::Key_F6);
    EXPECT_EQ(frame->focusWidget(), &field);
    press(*frame, Qt::Key_F6);
    EXPECT_EQ(frame->focusWidget()->objectName(), u"Toolbar1(11)"_s);
}

TEST_F(FrameTest, AToolWindowHasTheMenusOfTheFrame) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->open(ToolWindow::Timetable);
    auto& bar = control<QMenuBar>(*frame, u"TTfrm_bar"_s);
    ASSERT_EQ(bar.actions().size(), 3);
    bar.actions()[1]->menu()->actions()[1]->trigger();
    EXPECT_EQ(frame->visible(), QList({ToolWindow::Timetable}));
    // The window goes while the menu that was opened in it is still at work.
    QMenu& file = *bar.actions()[0]->menu();
    bar.setActiveAction(bar.actions()[0]);
    file.popup({});
    QTest::mouseClick(&file, Qt::LeftButton, {},
                      file.actionGeometry(action(*frame, "mnufileItem(2)")).center());
    EXPECT_EQ(closed, QStringList(u"TTfrm"_s));
    EXPECT_TRUE(frame->visible().isEmpty());
    EXPECT_FALSE(frame->menus().action(FrameCommand::Timetable).isEnabled());
}

TEST_F(FrameTest, AssistiveToolsFindTheMenusOfEveryBarAndThoseOfContexts) {
    showContextMenusToAssistiveTools();
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    const auto menusIn = [&frame](const QString& bar) {
        QStringList names;
        QAccessibleInterface* found =
            QAccessible::queryAccessibleInterface(&control<QMenuBar>(*frame, bar));
        for (int i = 0; i < found->childCount(); ++i) {
            QAccessibleInterface* menu = found->child(i);
            names += menu && menu->isValid() ? menu->text(QAccessible::Name) : u"gone"_s;
        }
        return names.join(u' ');
    };
    for (const ToolWindow window : {ToolWindow::DailySheet, ToolWindow::WeeklySheet}) {
        frame->open(window);
        const QString name = window == ToolWindow::DailySheet ? u"ORVAfrm"_s : u"ORVA2frm"_s;
        EXPECT_EQ(menusIn(name + u"_bar"_s), u"File View Help"_s);
        EXPECT_TRUE(frame->close(window));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(menusIn(u"menuBar"_s), u"File View Help"_s);
    }
    QMenu context(frame.get());
    context.addAction(u"Edit..."_s);
    QAccessibleInterface* program = QAccessible::queryAccessibleInterface(qApp);
    const int before = program->childCount();
    context.popup({});
    ASSERT_EQ(program->childCount(), before + 1);
    EXPECT_EQ(program->child(before)->object(), &context);
    EXPECT_EQ(program->indexOfChild(program->child(before)), before);
    context.close();
}

TEST_F(FrameTest, TheYearsOpenedLastStandInTheFileMenu) {
    const QStringList names{u"a.mdb"_s, u"b & c.mdb"_s};
    for (const QString& name : names)
        createYear(oneWeekAnswers(), path(name), seams);
    const std::unique_ptr<MainWindow> frame = fullFrame(false);
    for (const QString& name : names) {
        session.CloseAllDatabases();
        ASSERT_EQ(session.OpenDatabaseFile(path(name), {}), OpenDone);
    }
    NoteRecentYear(settings, path(u"gone.mdb"_s));
    auto& menu = control<QMenu>(*frame, u"mnuFile"_s);
    const auto listed = [&menu] {
        emit menu.aboutToShow();
        QList<QAction*> years;
        for (QAction* item : menu.actions()) {
            if (item->text().startsWith(u'&') && item->text().at(1).isDigit())
                years += item;
        }
        return years;
    };
    ASSERT_EQ(listed().size(), 2);
    EXPECT_EQ(listed()[0]->text(), u"&1 "_s + ShortenPath(path(names[1])).replace(u"&"_s, u"&&"_s));
    listed()[1]->trigger();
    EXPECT_EQ(session.CurrentDB.Name(), path(names[0]));
    for (const int number : {1, 2, 3, 4, 5, 6})
        NoteRecentYear(settings, writeFile(path(QString::number(number)), ""));
    EXPECT_EQ(RecentYears(settings),
              (QStringList{path(u"6"_s), path(u"5"_s), path(u"4"_s), path(u"3"_s), path(u"2"_s)}));
}

TEST_F(FrameTest, AMaximisedWindowKeepsItsCaptionAndTheMenuBarWhole) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->open(ToolWindow::Timetable);
    form(*frame, u"TTfrm"_s).showMaximized();
    QCoreApplication::processEvents();
    EXPECT_GT(control<PlainWindow>(*frame, u"TTfrm"_s).y(), 0);
    EXPECT_TRUE(control<ContextHelp>(*frame, u"ButtonEx1"_s).isVisible());
    EXPECT_TRUE(control<QMenuBar>(*frame, u"menuBar"_s).isVisible());
}

TEST_F(FrameTest, HelpIsWantedForTheControlBelowThePointerOrWithTheFocus) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    frame->resize(700, 500); // all of it on the screen
    frame->activateWindow();
    frame->open(ToolWindow::Timetable);
    auto& field = control<QLineEdit>(*frame, u"TTfrm_field"_s);
    auto& button = control<ContextHelp>(*frame, u"ButtonEx1"_s);
    QList<QWidget*> wanted;
    QObject::connect(frame.get(), &MainWindow::helpWanted, frame.get(),
                     [&wanted](QWidget* control) { wanted += control; });
    const auto asked = [&wanted] { return std::exchange(wanted, {}); };
    const auto letGoOver = [&button](QWidget& control) {
        QTest::mouseRelease(&button, Qt::LeftButton, {},
                            button.mapFromGlobal(control.mapToGlobal(control.rect().center())));
    };

    QTest::mousePress(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isSearching());
    ASSERT_TRUE(QApplication::overrideCursor());
    letGoOver(field);
    EXPECT_EQ(asked(), QList<QWidget*>{&field});
    EXPECT_FALSE(QApplication::overrideCursor());

    QTest::mouseClick(&button,
                      Qt::LeftButton); // let go where it was pressed: the next click counts
    EXPECT_TRUE(button.isSearching());
    QTest::mouseClick(&field, Qt::LeftButton);
    EXPECT_EQ(asked(), QList<QWidget*>{&field});

    field.setFocus();
    press(*frame, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_TRUE(button.isSearching());
    press(*frame, Qt::Key_Escape);
    EXPECT_FALSE(button.isSearching());
    EXPECT_TRUE(asked().isEmpty());
    press(*frame, Qt::Key_F1);
    EXPECT_EQ(asked(), QList<QWidget*>{&field});
}

TEST_F(FrameTest, TheBackgroundIsShadedAsTheSettingsSay) {
    const std::unique_ptr<MainWindow> frame = fullFrame(true);
    auto& client = control<QMdiArea>(*frame, u"MDIClient"_s);
    const auto colourAt = [&client](int x, int y) {
        const QImage image = client.viewport()->grab().toImage();
        const double ratio = image.devicePixelRatio();
        return image.pixelColor(qRound(ratio * (x < 0 ? client.viewport()->width() - 1 : x)),
                                qRound(ratio * (y < 0 ? client.viewport()->height() - 1 : y)));
    };
    settings.set(setting::FadeStartColor, 0x0000FF);
    settings.set(setting::FadeEndColor, 0xFF0000);
    const struct {
        FadeDirection style;
        bool right; ///< whether the far end of a side has the colour of the end
        bool below;
    } styles[] = {{FadeDirection::Diagonal, false, false},
                  {FadeDirection::Horizontal, true, false},
                  {FadeDirection::Vertical, false, true}};
    const auto isNear = [](const QColor& a, const QColor& b) {
        return std::abs(a.red() - b.red()) + std::abs(a.blue() - b.blue()) < 16;
    };
    for (const auto& [style, right, below] : styles) {
        SCOPED_TRACE(static_cast<int>(style));
        settings.set(setting::FadeStyle, style);
        EXPECT_TRUE(isNear(colourAt(0, 0), Qt::red));
        EXPECT_TRUE(isNear(colourAt(-1, -1), Qt::blue));
        EXPECT_EQ(isNear(colourAt(-1, 0), Qt::blue), right);
        EXPECT_EQ(isNear(colourAt(0, -1), Qt::blue), below);
    }
    frame->resize(600, 500);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isNear(colourAt(0, -1), Qt::blue));
    session.GradientsEnabled = false;
    frame->ShadeMDI();
    EXPECT_TRUE(isNear(colourAt(0, 0), Qt::blue));
}
