#include "core/window_placement.h"

#include "core/settings.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class FakeWindow : public PlacedWindow {
public:
    QString name = u"TTfrm"_s;
    int state = WindowNormal;
    Placement place{.Top = 150, .Left = 300, .Width = 6000, .Height = 4500};
    int moves = 0;
    bool locked = false;
    bool movedUnlocked = false;

    QString windowName() const override { return name; }
    int windowState() const override { return state; }
    void setWindowState(int newState) override { state = newState; }
    Placement placement() const override { return place; }
    void setPlacement(const Placement& placement) override {
        place = placement;
        ++moves;
        movedUnlocked = movedUnlocked || !locked;
    }
    QSize screenSize() const override { return {1000, 800}; }
    void lockMainWindow(bool lock) override { locked = lock; }
};

class WindowPlacementTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    Settings m_settings{m_folder.filePath(u"settings.ini"_s)};
    QString m_key = setting::keyOf(u"Timetable");
};

} // namespace

TEST_F(WindowPlacementTest, ANormalWindowComesBackToItsPlace) {
    FakeWindow window;
    window.place = {.Top = -15, .Left = 0, .Width = 6000, .Height = 45000};
    SaveWindowPlacement(m_settings, window, u"Timetable");
    FakeWindow next;
    RestoreWindowPlacement(m_settings, next, u"Timetable");
    EXPECT_EQ(next.place, window.place);
    EXPECT_EQ(next.state, WindowNormal);
}

TEST_F(WindowPlacementTest, OtherStatesKeepTheLastNormalPlace) {
    for (const int state : {WindowMinimised, WindowMaximised}) {
        FakeWindow window;
        SaveWindowPlacement(m_settings, window, u"Timetable");
        window.state = state;
        window.place = {};
        SaveWindowPlacement(m_settings, window, u"Timetable");
        EXPECT_EQ(m_settings.get(Setting<qint32>{m_key, u"Width"}), 6000);

        FakeWindow next;
        RestoreWindowPlacement(m_settings, next, u"Timetable");
        EXPECT_EQ(next.state, state);
        EXPECT_EQ(next.moves, 0);
    }
}

TEST_F(WindowPlacementTest, AMaximisedWindowThatWasNeverNormalLeavesItsStateAlone) {
    FakeWindow window;
    window.state = WindowMaximised;
    SaveWindowPlacement(m_settings, window, u"Timetable");
    QList<SettingEntry> entries;
    m_settings.EnumRegistryValues(m_key, entries);
    EXPECT_EQ(entries.size(), 1);
}

TEST_F(WindowPlacementTest, AWindowWithoutHistoryTakesItsDefaultPlace) {
    FakeWindow window;
    RestoreWindowPlacement(m_settings, window, u"Timetable");
    EXPECT_EQ(window.place, (Placement{.Top = 0, .Left = 0, .Width = 6000, .Height = 4500}));

    FakeWindow centred;
    centred.name = u"CPlanFrm"_s;
    RestoreWindowPlacement(m_settings, centred, u"SeatingPlan");
    EXPECT_EQ(centred.place, (Placement{.Top = 3750, .Left = 4500, .Width = 6000, .Height = 4500}));
}

TEST_F(WindowPlacementTest, AStateThatDoesNotExistChangesNothing) {
    m_settings.set(Setting<qint32>{m_key, u"WindowState"}, 3);
    FakeWindow window;
    RestoreWindowPlacement(m_settings, window, u"Timetable");
    EXPECT_EQ(window.state, WindowNormal);
    EXPECT_EQ(window.moves, 0);
}

TEST_F(WindowPlacementTest, AChildMovesOnlyWithAllFourValues) {
    FakeWindow window;
    window.place = {.Top = 30, .Left = 45, .Width = 3000, .Height = 1500};
    SaveWindowPlacement(m_settings, window, u"Planning");
    FakeWindow child;
    RestoreChildPlacement(m_settings, child, u"Planning");
    EXPECT_EQ(child.place, window.place);
    EXPECT_EQ(child.moves, 1);
    EXPECT_FALSE(child.movedUnlocked);
    EXPECT_FALSE(child.locked);

    FakeWindow maximised;
    maximised.state = WindowMaximised;
    RestoreChildPlacement(m_settings, maximised, u"Planning");
    EXPECT_EQ(maximised.moves, 0);

    for (QStringView missing : {u"Top", u"Left", u"Width"}) {
        SaveWindowPlacement(m_settings, window, u"Planning");
        m_settings.DeleteRegistryValue(setting::keyOf(u"Planning"), missing);
        FakeWindow stays;
        RestoreChildPlacement(m_settings, stays, u"Planning");
        EXPECT_EQ(stays.moves, 0);
        EXPECT_FALSE(stays.locked);
    }
}
