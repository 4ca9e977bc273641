// The frame, driven through its own menus: what it shows and allows in each state of the session.

#include "core/core_settings.h"
#include "core/screens/mdiorva.h"
#include "core/session.h"
#include "core/settings.h"
#include "support/year_file.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class FrameTest : public testing::Test {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }

    /// Shows the frame and waits for the end of its start.
    void start(mdiORVA& frame) {
        QSignalSpy started(&frame, &mdiORVA::started);
        frame.show();
        ASSERT_TRUE(!started.isEmpty() || started.wait());
    }
    static QAction* action(mdiORVA& frame, const char* name) {
        return frame.findChild<QAction*>(QString::fromLatin1(name));
    }

    QTemporaryDir folder;
    TestSeams seams;
    dao::DBEngine engine;
    Settings settings{folder.filePath(QStringLiteral("settings.ini"))};
    Session session{engine, settings, seams.seams()};
};

} // namespace

TEST_F(FrameTest, StartsWithoutAYear) {
    mdiORVA frame(session);
    start(frame);
    EXPECT_EQ(frame.windowTitle(), QStringLiteral("Orvane: "));
    EXPECT_FALSE(session.CurrentDB.isOpen());
    for (const QMenu* menu : frame.menuBar()->findChildren<QMenu*>()) {
        for (const QAction* item : menu->actions())
            EXPECT_TRUE(item->isSeparator() || !item->objectName().isEmpty())
                << qPrintable(item->text());
    }
}

TEST_F(FrameTest, OpensTheDefaultYearAtItsFirstActivation) {
    createYear(twoWeekAnswers(), path(QStringLiteral("year.mdb")), seams);
    settings.CreateRegistryKey(setting::Root);
    settings.WriteRegistryValue(setting::Root, setting::DefaultDatabasePath,
                                path(QStringLiteral("year.mdb")));
    settings.WriteRegistryValue(setting::Root, setting::DontShowStartup, 1);
    mdiORVA frame(session);
    EXPECT_FALSE(session.CurrentDB.isOpen());
    start(frame);
    EXPECT_TRUE(session.CurrentDB.isOpen());
    EXPECT_TRUE(frame.windowTitle().endsWith(QStringLiteral("year.mdb")));
    frame.close();
    EXPECT_FALSE(session.CurrentDB.isOpen());
    EXPECT_EQ(settings.ReadRegistryValue(setting::keyOf(setting::Options), u"WindowState"),
              SettingFound);
}

TEST_F(FrameTest, TheMenuOpensAYear) {
    createYear(oneWeekAnswers(), path(QStringLiteral("year.mdb")), seams);
    mdiORVA frame(session);
    start(frame);
    seams.prompts.expect(PromptKind::File, QStringLiteral(" Select the database to open:"),
                         path(QStringLiteral("year.mdb")));
    action(frame, "mnufileItem(0)")->trigger();
    EXPECT_TRUE(session.CurrentDB.isOpen());
    EXPECT_TRUE(frame.windowTitle().endsWith(QStringLiteral("year.mdb")));
    action(frame, "mnufileItem(8)")->trigger();
    EXPECT_FALSE(frame.isVisible());
    EXPECT_FALSE(session.CurrentDB.isOpen());
}

TEST_F(FrameTest, WithoutAnAddressTheUpgradeCommandSaysSo) {
    mdiORVA frame(session);
    start(frame);
    seams.prompts.expect(PromptKind::Plain, QStringLiteral("Internet Upgrade"), AnswerOk);
    action(frame, "mnuHelpUpgrade")->trigger();
}
