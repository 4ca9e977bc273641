#include "core/paths.h"

#include "core/core_settings.h"
#include "core/settings.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

TEST(ShortenPath, KeepsTheStartAndAsMuchOfTheEndAsFits) {
    struct Case {
        QString path;
        int limit;
        QString shown;
    };
    const QString fifty = u"/home/teacher/documents/school/years/2024/Year.mdb"_s;
    ASSERT_EQ(fifty.size(), 50);
    const Case cases[] = {
        {u""_s, 50, u""_s},
        {u"  /a/b.mdb "_s, 50, u"/a/b.mdb"_s},
        {fifty, 50, fifty},
        {u" "_s + fifty + u" "_s, 50, fifty},
        {u"/x"_s + fifty, 50, u"/x/.../documents/school/years/2024/Year.mdb"_s},
        {u"/home/a/b/c.mdb"_s, 14, u"/ho.../b/c.mdb"_s},
        {u"/home/a/b/c.mdb"_s, 13, u"/ho.../c.mdb"_s},
        {u"/home/a-long-name.mdb"_s, 15, u"/ho...-name.mdb"_s},
        {u"/home/a-long-name/"_s, 15, u"/ho...ong-name/"_s},
        {u"no-separator-at-all"_s, 15, u"no-...or-at-all"_s},
    };
    for (const Case& c : cases) {
        const QString shown = ShortenPath(c.path, c.limit);
        EXPECT_LE(shown.size(), c.limit);
        EXPECT_EQ(shown, c.shown) << c.path.toStdString();
    }
}

TEST(FolderDefaults, AreTheProgramFolderUntilSet) {
    const QTemporaryDir folder;
    Settings settings(folder.filePath(u"settings.ini"_s));
    const QString appPath = u"/home/Teacher/.local/share/orva/"_s;
    const FolderDefaults unset = ReadFolderDefaults(settings, appPath);
    for (const int row : {OpenFolder, SaveFolder, BackupFolder}) {
        EXPECT_EQ(unset.at(row).folder, appPath);
        EXPECT_EQ(unset.at(row).shortFolder, u"/home/teacher/.local/share/orva/"_s);
    }

    const QString backups = u"/Media/A very long name/of folders/below/each other/Backups/"_s;
    settings.set(setting::DefaultBackupFolder, backups);
    const FolderDefaults set = ReadFolderDefaults(settings, appPath);
    EXPECT_EQ(set.at(OpenFolder).folder, appPath);
    EXPECT_EQ(set.at(BackupFolder).folder, backups);
    EXPECT_EQ(set.at(BackupFolder).shortFolder, u"/me.../of folders/below/each other/backups/"_s);
}
