#include "core/paths.h"

#include "core/core_settings.h"
#include "core/settings.h"

#include <gtest/gtest.h>

#include <QFileInfo>
#include <QStandardPaths>
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

TEST(FolderDefaults, LieAmongTheDocumentsUntilSetAndAreMadeOnlyThen) {
    const QTemporaryDir folder;
    Settings settings(folder.filePath(u"settings.ini"_s));
    const QString years =
        QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + u"/ORVA/"_s;
    const FolderDefaults unset = ReadFolderDefaults(settings);
    EXPECT_EQ(unset.at(OpenFolder).folder, years);
    EXPECT_EQ(unset.at(SaveFolder).folder, years);
    EXPECT_EQ(unset.at(BackupFolder).folder, years + u"Backups/"_s);
    MakeProposedFolder(unset.at(BackupFolder));
    EXPECT_TRUE(QFileInfo(years + u"Backups"_s).isDir());

    const QString backups = u"/Media/A very long name/of folders/below/each other/Backups/"_s;
    settings.set(setting::DefaultBackupFolder, backups);
    const FolderDefaults set = ReadFolderDefaults(settings);
    EXPECT_EQ(set.at(OpenFolder).folder, years);
    MakeProposedFolder(set.at(BackupFolder)); // on a drive that is not in
    EXPECT_FALSE(QFileInfo::exists(backups));
    EXPECT_EQ(set.at(BackupFolder).folder, backups);
    EXPECT_EQ(set.at(BackupFolder).shortFolder, u"/me.../of folders/below/each other/backups/"_s);
}
