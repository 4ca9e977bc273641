#include "core/settings.h"

#include "core/core_settings.h"
#include "core/program_settings.h"
#include "core/setting_notices.h"
#include "support/engine_files.h"

#include <csignal>

namespace {

class SettingsTest : public testing::Test {
protected:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(u"settings.ini"_s);
    QString m_key = setting::keyOf(u"Register");

    QByteArray content() { return bytesOf(m_file); }
};

QStringList namesOf(const QList<SettingEntry>& entries) {
    QStringList names;
    for (const SettingEntry& entry : entries)
        names.append(entry.name);
    return names;
}

QString textAt(const Settings& settings, QStringView key, QStringView name) {
    return settings.get(Setting<QString>{key, name});
}

qint32 numberAt(const Settings& settings, QStringView key, QStringView name) {
    return settings.get(Setting<qint32>{key, name});
}

} // namespace

TEST_F(SettingsTest, EachTypeHasItsStoredForm) {
    using namespace setting;
    const Setting<bool> flag{u"Types", u"flag", true};
    const Setting<bool, TruthTextForm> truth{u"Types", u"truth", true};
    const Setting<bool, ExistenceForm> existence{u"Types", u"existence"};
    const Setting<qint32> number{u"Types", u"number", 7};
    const Setting<qint32, NumberTextForm> width{u"Types", u"width", 225};
    const Setting<QString> text{u"Types", u"text", u"usual"};
    Settings settings(m_file);
    EXPECT_TRUE(settings.get(flag));
    EXPECT_TRUE(settings.get(truth));
    EXPECT_FALSE(settings.get(existence));
    EXPECT_EQ(settings.get(number), 7);
    EXPECT_EQ(settings.get(width), 225);
    EXPECT_EQ(settings.get(text), u"usual"_s);
    EXPECT_EQ(settings.find(text), std::nullopt);

    EXPECT_EQ(settings.set(flag, false), SettingFound) << "its key is made";
    settings.set(truth, false);
    settings.set(existence, true);
    settings.set(number, -1);
    settings.set(width, 600);
    settings.set(text, {});
    EXPECT_TRUE(content().contains("existence=dword:00000001\nflag=dword:00000000\n"
                                   "number=dword:ffffffff\ntext=\ntruth=False\nwidth=600\n"))
        << content().constData();
    EXPECT_FALSE(settings.get(flag));
    EXPECT_FALSE(settings.get(truth));
    EXPECT_TRUE(settings.get(existence));
    EXPECT_EQ(settings.get(number), -1);
    EXPECT_EQ(settings.get(width), 600);
    EXPECT_EQ(settings.find(text), QString());

    settings.set(existence, false);
    EXPECT_EQ(settings.remove(text), SettingFound);
    EXPECT_EQ(settings.remove(text), SettingFound) << "absent as it was to be";
    EXPECT_FALSE(settings.get(existence));
    EXPECT_EQ(settings.get(text), u"usual"_s);
}

TEST_F(SettingsTest, ANumberThatIsNoChoiceReadsAsTheDefault) {
    Settings settings(m_file);
    const Setting<qint32> stored{setting::Root, setting::ToolbarAlignment.name};
    for (const qint32 number : {-1, 0, 5}) {
        settings.set(stored, number);
        EXPECT_EQ(settings.get(setting::ToolbarAlignment), ToolbarSide::Left) << number;
    }
    settings.set(setting::ToolbarAlignment, ToolbarSide::Bottom);
    EXPECT_EQ(settings.get(stored), 4);
    EXPECT_EQ(settings.get(setting::ToolbarAlignment), ToolbarSide::Bottom);
}

TEST_F(SettingsTest, TypedReadersLeaveRegValueAlone) {
    Settings settings(m_file);
    settings.set(setting::GwbViewer, u"viewer"_s);
    ASSERT_EQ(settings.ReadRegistryValue(setting::Root, setting::GwbViewer.name), SettingFound);
    settings.get(setting::DisableGradients);
    settings.ReadFontRecord(m_key);
    EXPECT_EQ(settings.RegValue(), dao::Value(u"viewer\0"_s));
}

TEST_F(SettingsTest, NoticesComeForRealChangesAndAfterTheDisk) {
    Settings settings(m_file);
    QObject receiver;
    QStringList told;
    settings.notices().onChange(setting::GwbViewer, &receiver, [&] {
        const QString viewer = settings.get(setting::GwbViewer);
        EXPECT_TRUE(content().contains("GwbViewer=" + viewer.toUtf8() + '\n') || viewer.isEmpty());
        told += viewer.isEmpty() ? u"none"_s : viewer;
    });
    settings.set(setting::GwbViewer, u"a"_s);
    settings.set(setting::GwbViewer, u"a"_s);
    settings.set(setting::DefaultOpenFolder, u"b"_s);
    settings.WriteRegistryValue(u"software\\q.r.l.\\orva", u"GWBVIEWER", u"c"_s);
    EXPECT_EQ(told, (QStringList{u"a"_s, u"c"_s}));
    {
        const Settings::Batch together(settings);
        settings.set(setting::GwbViewer, u"d"_s);
        settings.ClearRegistryKey(setting::Root);
        settings.set(setting::GwbViewer, u"e"_s);
        EXPECT_EQ(told.size(), 2);
    }
    {
        const Settings::Batch together(settings);
        settings.DeleteRegistryKey(setting::Root);
        settings.set(setting::GwbViewer, u"e"_s);
    }
    EXPECT_EQ(told.mid(2), QStringList{u"e"_s}) << "once a batch, and not for what is as it was";
    settings.DeleteRegistryKey(setting::Root);
    EXPECT_EQ(told.mid(3), QStringList{u"none"_s});
}

TEST_F(SettingsTest, AChangeThatIsNotWrittenYetIsToldWhenItIs) {
    ASSERT_TRUE(QDir().mkdir(m_file));
    Settings settings(m_file);
    QObject receiver;
    int told = 0;
    settings.notices().onChange(setting::DisableGradients, &receiver, [&told] { ++told; });
    EXPECT_EQ(settings.set(setting::DisableGradients, true), SettingNotWritten);
    EXPECT_EQ(told, 0);
    ASSERT_TRUE(QDir().rmdir(m_file));
    settings.FlushRegistryKey(setting::Root);
    EXPECT_EQ(told, 1);
}

TEST_F(SettingsTest, TextsComeBackFromDiskAsTheyWent) {
    const QStringList texts{u""_s,
                            u" blanks "_s,
                            u"007"_s,
                            u"dword:0000002a"_s,
                            u"DWORD:zz"_s,
                            u"text:dword:1"_s,
                            u"a, b; c = \"d\""_s,
                            u"@Variant(x)"_s,
                            u"C:\\new\\table"_s,
                            u"/home/é/Überblick/Ωmega"_s,
                            u"100% %2F"_s,
                            u"two\nlines\ttab"_s,
                            u"\U0001F600"_s};
    Settings writer(m_file);
    ASSERT_EQ(writer.CreateRegistryKey(m_key), 0);
    for (int i = 0; i < texts.size(); ++i)
        ASSERT_EQ(writer.WriteRegistryValue(m_key, QString::number(i), texts.at(i)), 0);

    // Another file name, so that nothing comes from a cache of the first object.
    const QString copy = m_folder.filePath(u"copy.ini"_s);
    ASSERT_TRUE(QFile::copy(m_file, copy));
    Settings reader(copy);
    for (int i = 0; i < texts.size(); ++i) {
        ASSERT_EQ(reader.ReadRegistryValue(m_key, QString::number(i)), 0) << i;
        EXPECT_EQ(reader.RegValue(), dao::Value(texts.at(i) + QChar(QChar::Null))) << i;
        EXPECT_EQ(textAt(reader, m_key, QString::number(i)), texts.at(i));
    }
}

TEST_F(SettingsTest, NamesMayHoldAnyCharacter) {
    const QStringList names{u""_s,    u"."_s,     u"%"_s,       u"%2E"_s,       u"%key"_s,
                            u"a/b"_s, u"a\\b"_s,  u"a"_s,       u"="_s,         u"[x]"_s,
                            u"é ü"_s, u"%2F"_s,   u"/"_s,       u"General"_s,   u"11/09/24 1"_s,
                            u"'"_s,   u"\"q\""_s, u"a;b#c,d"_s, u"\U0001F600"_s};
    for (const QString& keyName : {u"Plain"_s, u"A/B"_s, u"100%"_s, u"Ä [=]"_s, u"General"_s}) {
        const QString key = setting::keyOf(keyName);
        Settings writer(m_file);
        ASSERT_EQ(writer.CreateRegistryKey(key), 0);
        for (const QString& name : names)
            ASSERT_EQ(writer.WriteRegistryValue(key, name, name + u"!"_s), 0);

        const QString copy = m_folder.filePath(u"copy.ini"_s);
        QFile::remove(copy);
        ASSERT_TRUE(QFile::copy(m_file, copy));
        Settings reader(copy);
        for (const QString& name : names)
            EXPECT_EQ(textAt(reader, key, name), name + u"!"_s) << keyName.toStdString();
        QList<SettingEntry> entries;
        ASSERT_EQ(reader.EnumRegistryValues(key, entries), SettingFound);
        QStringList found = namesOf(entries);
        QStringList all = names;
        found.sort();
        all.sort();
        EXPECT_EQ(found, all);
    }
}

TEST_F(SettingsTest, NamesMatchWithoutRegardToCase) {
    Settings settings(m_file);
    settings.CreateRegistryKey(setting::keyOf(u"Über\\Été"));
    ASSERT_EQ(settings.WriteRegistryValue(setting::keyOf(u"ÜBER\\ÉTÉ"), u"Ωmega", 1), 0);
    ASSERT_EQ(settings.WriteRegistryValue(setting::keyOf(u"über\\été"), u"ωMEGA", 2), 0);
    EXPECT_EQ(numberAt(settings, u"SOFTWARE\\q.r.l.\\orva\\üBER\\éTÉ\\", u"ΩMEGA"), 2);

    QList<SettingEntry> entries;
    ASSERT_EQ(settings.EnumRegistryValues(setting::keyOf(u"ÜBER\\été"), entries), SettingFound);
    EXPECT_EQ(namesOf(entries), QStringList{u"Ωmega"_s}) << "the first spelling stays";
    settings.CreateRegistryKey(setting::keyOf(u"ÜBER\\Next"));
    EXPECT_EQ(settings.EnumRegistrySubkeys(setting::keyOf(u"über")), QString());
    EXPECT_EQ(settings.RegistrySubkeys(), (QStringList{u"Next"_s, u"Été"_s}));
    EXPECT_EQ(settings.DeleteRegistryValue(setting::keyOf(u"ÜBER\\ÉTÉ"), u"ωmega"), 0);
    EXPECT_EQ(settings.DeleteRegistryKey(setting::keyOf(u"ÜBER")), 0);
    EXPECT_EQ(settings.EnumRegistrySubkeys(setting::Root), u"Badkey"_s);
}

TEST_F(SettingsTest, ANumberIsWhatATextBeginsWith) {
    struct Case {
        QString text;
        qint32 number;
    };
    Settings settings(m_file);
    settings.CreateRegistryKey(m_key);
    for (const Case& c : {Case{u"12 pt"_s, 12},
                          {u"1"_s, 1},
                          {u"x1"_s, 0},
                          {u""_s, 0},
                          {u"-3"_s, -3},
                          {u"99999999999"_s, 2147483647}}) {
        settings.WriteRegistryValue(m_key, u"n", c.text);
        EXPECT_EQ(numberAt(settings, m_key, u"n"), c.number) << c.text.toStdString();
        EXPECT_EQ(settings.get(Setting<bool>{m_key, u"n"}), c.number == 1);
    }
}

TEST_F(SettingsTest, AWriteNeverMakesItsKey) {
    Settings settings(m_file);
    EXPECT_NE(settings.WriteRegistryValue(m_key, u"n", 1), 0);
    EXPECT_NE(settings.ReadRegistryValue(m_key, u"n"), 0);
    EXPECT_NE(settings.DeleteRegistryValue(m_key, u"n"), 0);
    EXPECT_NE(settings.DeleteRegistryKey(m_key), 0);
    settings.CreateRegistryKey(m_key);
    settings.WriteRegistryValue(m_key, u"n", 5);
    settings.ReadRegistryValue(m_key, u"n");
    EXPECT_EQ(settings.RegValue(), dao::Value(5));
    EXPECT_NE(settings.ReadRegistryValue(m_key, u"other"), 0);
    EXPECT_TRUE(settings.RegValue().isNull());
    EXPECT_EQ(settings.WriteRegistryValue(setting::Root, u"n", 1), 0) << "keys above exist too";
}

TEST_F(SettingsTest, EmptyKeysLast) {
    Settings(m_file).CreateRegistryKey(setting::keyOf(u"Startup"));
    Settings settings(m_file);
    QList<SettingEntry> entries;
    EXPECT_EQ(settings.EnumRegistryValues(setting::keyOf(u"Startup"), entries), SettingFound);
    EXPECT_TRUE(entries.isEmpty());
    EXPECT_EQ(settings.EnumRegistryValues(setting::keyOf(u"Register"), entries), SettingMissing);
    EXPECT_EQ(settings.EnumRegistrySubkeys(setting::keyOf(u"Startup")), u"Badkey"_s);
}

TEST_F(SettingsTest, AValueAndAKeyMayShareTheirName) {
    Settings settings(m_file);
    const QString below = setting::keyOf(u"Register\\Key");
    settings.CreateRegistryKey(below);
    settings.WriteRegistryValue(m_key, u"Key", 1);
    settings.WriteRegistryValue(below, u"L", u"Late"_s);
    settings.DeleteRegistryValue(m_key, u"Key");
    EXPECT_EQ(textAt(settings, below, u"L"), u"Late"_s);
    settings.WriteRegistryValue(m_key, u"Key", 1);
    settings.DeleteRegistryKey(below);
    EXPECT_EQ(numberAt(settings, m_key, u"Key"), 1);
}

TEST_F(SettingsTest, SubkeysComeDepthFirstAndGoWithTheirKey) {
    const QString menu = setting::keyOf(u"UserApps\\Root Menu");
    Settings settings(m_file);
    for (const QString& path : {u"\\B"_s, u"\\a\\deep\\er"_s, u"\\a b"_s, u"\\C"_s})
        settings.CreateRegistryKey(menu + path);
    settings.CreateRegistryKey(menu + u"s beside"_s);
    EXPECT_EQ(settings.CollectRegistrySubkeys(menu),
              (QStringList{menu + u"\\a"_s, menu + u"\\a\\deep"_s, menu + u"\\a\\deep\\er"_s,
                           menu + u"\\a b"_s, menu + u"\\B"_s, menu + u"\\C"_s}));

    settings.WriteRegistryValue(menu, u"v", 1);
    settings.ClearRegistryKey(menu);
    EXPECT_TRUE(settings.CollectRegistrySubkeys(menu).isEmpty());
    EXPECT_NE(settings.ReadRegistryValue(menu, u"v"), 0);
    EXPECT_EQ(settings.WriteRegistryValue(menu, u"v", 1), 0);
    settings.EnumRegistrySubkeys(setting::keyOf(u"UserApps"));
    EXPECT_EQ(settings.RegistrySubkeys(), (QStringList{u"Root Menu"_s, u"Root Menus beside"_s}));
}

TEST_F(SettingsTest, DamagedFilesReadAsFarAsTheyCan) {
    const QByteArray head = "[Software\\Q.R.L.\\ORVA]\n.=\ngood=dword:00000007\n";
    struct Case {
        const char* what;
        QByteArray content;
        qint32 good;
    };
    for (const Case& c : {Case{"empty", "", 0},
                          {"noise", QByteArray(5000, '\xfe'), 0},
                          {"nulls", QByteArray(5000, '\0') + '\n' + head, 7},
                          {"cut", head + "DefaultOpenF", 7},
                          {"no number", head + "n=dword:zz\n", 7},
                          {"no key", head + "=x\n", 7},
                          {"open section", head + "[x\nn", 7},
                          {"no section", "n=x\n" + head, 7}}) {
        SCOPED_TRACE(c.what);
        writeFile(m_file, c.content);
        Settings settings(m_file);
        EXPECT_EQ(numberAt(settings, setting::Root, u"good"), c.good);
        EXPECT_EQ(settings.find(setting::DefaultOpenFolder), std::nullopt);
        EXPECT_NE(settings.ReadRegistryValue(setting::Root, u"n"), 0);
        EXPECT_EQ(settings.CreateRegistryKey(setting::Root), 0);
        EXPECT_EQ(settings.WriteRegistryValue(setting::Root, u"new", 3), 0);
        EXPECT_EQ(numberAt(Settings(m_file), setting::Root, u"new"), 3);
        QFile::remove(m_file);
    }
}

TEST_F(SettingsTest, AFullDiskLeavesTheOldFile) {
    Settings settings(m_file);
    settings.CreateRegistryKey(m_key);
    const QByteArray before = content();
    {
        const FileSizeLimit fullDisk(4096);
        std::signal(SIGXFSZ, SIG_IGN);
        EXPECT_NE(settings.WriteRegistryValue(m_key, u"n", QString(9000, u'x')), 0);
    }
    EXPECT_EQ(content(), before);
    EXPECT_EQ(settings.WriteRegistryValue(m_key, u"m", 1), 0) << "there is room again";
}

TEST_F(SettingsTest, ABatchReachesTheDiskWhole) {
    Settings settings(m_file);
    settings.CreateRegistryKey(m_key);
    const QByteArray before = content();
    {
        const Settings::Batch together(settings);
        settings.ClearRegistryKey(m_key);
        settings.WriteRegistryValue(m_key, u"L", u"Late"_s);
        EXPECT_EQ(textAt(settings, m_key, u"L"), u"Late"_s);
        EXPECT_EQ(content(), before);
    }
    EXPECT_TRUE(content().contains("L=Late\n"));
}

TEST_F(SettingsTest, FontsComeBackAndHaveDefaults) {
    Settings settings(m_file);
    EXPECT_EQ(settings.ReadFontRecord(m_key), FontRecord());
    const FontRecord font{.name = u"DejaVu Sans"_s,
                          .bold = true,
                          .italic = false,
                          .underline = true,
                          .size = 12,
                          .colour = 0xFF8000};
    settings.WriteFontRecord(m_key, font);
    EXPECT_EQ(Settings(m_file).ReadFontRecord(m_key), font);
    EXPECT_EQ(textAt(settings, m_key, u"FontBold"), u"True"_s);
    // One window spells the name so.
    settings.WriteRegistryValue(m_key, u"Fontname", u"Serif"_s);
    settings.DeleteRegistryValue(m_key, u"FontSize");
    EXPECT_EQ(settings.ReadFontRecord(m_key).name, u"Serif"_s);
    EXPECT_EQ(settings.ReadFontRecord(m_key).size, 8);
}
