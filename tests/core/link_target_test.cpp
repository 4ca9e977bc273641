#include "core/link_target.h"

#include "core/core_settings.h"
#include "core/file_state.h"
#include "core/settings.h"
#include "core/shell_services.h"
#include "support/engine_files.h"
#include "support/recording_seams.h"

namespace {

class LinkTargetTest : public testing::Test {
protected:
    QString write(const QString& name) { return writeFile(m_folder.filePath(name), "content"); }

    void open(const QString& path) {
        OpenFileLink(path, m_settings, m_seams.shell, m_seams.prompts);
    }

    QTemporaryDir m_folder;
    Settings m_settings{m_folder.filePath(u"settings.ini"_s)};
    TestSeams m_seams;
};

} // namespace

TEST_F(LinkTargetTest, ThePathIsCheckedBeforeTheName) {
    const QString file = write(u"map.png"_s);
    const struct {
        QString name;
        QString path;
        LinkFault fault;
    } cases[] = {
        {u"Map"_s, u""_s, LinkFault::Path},
        {u""_s, u"/no/such/file"_s, LinkFault::Path},
        {u"Map"_s, u"http://"_s, LinkFault::Path},
        {u"Map"_s, u"http://bad host/"_s, LinkFault::Path},
        {u"Map"_s, u"www.example.org"_s, LinkFault::Path},
        {u" "_s, file, LinkFault::Name},
        {u"Map"_s, file, LinkFault::None},
        {u"Map"_s, u"http://example.org/a?b=c"_s, LinkFault::None},
        {u"Map"_s, u"https://example.org"_s, LinkFault::None},
    };
    for (const auto& [name, path, fault] : cases)
        EXPECT_EQ(linkFault(name, path), fault) << path.toStdString();
}

TEST_F(LinkTargetTest, EachKindOfLinkGoesItsWay) {
    const QString file = write(u"map.png"_s);
    const QString board = write(u"Board.GWB"_s);
    open(u"http://example.org"_s);
    open(file);
    open(board);
    m_seams.prompts.expect(PromptKind::Plain, u"File doesn't exist"_s, AnswerOk);
    open(u"/no/such/file"_s);

    ASSERT_EQ(m_settings.set(setting::GwbViewer, u"no-such-viewer"_s), SettingFound);
    m_seams.prompts.expect(PromptKind::Plain, u"ShellExecute Error"_s, AnswerOk);
    open(board);
    EXPECT_EQ(m_seams.prompts.last().text,
              u"There is no application associated with the given file name extension."_s);
    m_settings.set(setting::GwbViewer, u"sh"_s);
    open(board);

    QStringList opened;
    for (const RecordingShell::Run& run : m_seams.shell.runs)
        opened += run.file;
    EXPECT_EQ(opened, (QStringList{u"http://example.org"_s, file, board, u"sh"_s}));
}

TEST_F(LinkTargetTest, WhatWouldStartAProgramIsNamedFirst) {
    const auto named = [&](const QString& name, const QByteArray& content, bool executable) {
        const QString file = writeFile(m_folder.filePath(name), content);
        if (executable)
            QFile::setPermissions(file, QFile::permissions(file) | QFile::ExeOwner);
        return file;
    };
    const QString link = m_folder.filePath(u"worksheet.odt"_s);
    QFile::link(named(u"game.desktop"_s, "[Desktop Entry]", false), link);
    const QString programs[] = {
        named(u"game"_s,
              "\x7f"
              "ELF",
              true),
        named(u"worksheet.txt"_s, "#!/bin/sh\n", false),
        named(u"Sheet.DESKTOP"_s, "[Desktop Entry]", false),
        named(u"plan.gwb"_s, "x", true),
        link,
    };
    for (const QString& program : programs) {
        m_seams.prompts.expect(PromptKind::Message, u"Start a program"_s, AnswerNo);
        open(program);
        EXPECT_TRUE(m_seams.prompts.last().text.contains(program));
        EXPECT_TRUE(m_seams.prompts.last().flags & SecondButtonDefault);
        EXPECT_TRUE(m_seams.shell.runs.isEmpty());
        m_seams.prompts.expect(PromptKind::Message, u"Start a program"_s, AnswerYes);
        open(program);
        EXPECT_EQ(m_seams.shell.runs.takeLast().file, program);
    }
    open(m_folder.path());
    EXPECT_EQ(m_seams.shell.runs.size(), 1) << "a folder is no program";
}

TEST_F(LinkTargetTest, AFileIsLockedWhileAnybodyHasIt) {
    const QString path = write(u"plan.doc"_s);
    EXPECT_FALSE(FileExists({}));
    EXPECT_TRUE(FileExists(path));
    EXPECT_EQ(FileSizeText(path), u"7"_s);
    EXPECT_FALSE(FileLocked(path));
    EXPECT_FALSE(FileLocked(m_folder.filePath(u"gone"_s)));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(FileLocked(path));
}
