// Documents on their way to the word processor, and their templates.

#include "office/word_document.h"

#include "office/document_templates.h"
#include "support/recording_seams.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString CancelTitle = u"Document creation cancelled"_s;

class WordDocumentTest : public testing::Test {
protected:
    QString path(const QString& name) const { return folder.filePath(name); }
    bool finish(WordDocument& word) {
        word.Word_AddTitle(u"Title"_s, 12, true, false);
        return word.Word_Finish(u"Plan"_s);
    }
    void makeTemplate(const QString& name, const QByteArray& bytes) {
        QFile file(path(u"Templates/"_s + name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QTemporaryDir folder;
    TestSeams tests;
    Seams seams = tests.seams();
    DocumentPlace place{.appPath = folder.path() + u'/', .webAddress = {}};
    const DocumentTemplate report{u"IR1.dot"_s, u"Make it now?"_s};
};

} // namespace

TEST_F(WordDocumentTest, IsHandedOverPrivatelyAndGoesAtTheNextStart) {
    WordDocument word(seams, place);
    ASSERT_TRUE(word.Word_Start());
    ASSERT_TRUE(finish(word));
    ASSERT_EQ(tests.shell.runs.size(), 1);
    const QFileInfo file(tests.shell.runs.first().file);
    EXPECT_EQ(file.fileName(), u"Plan.rtf"_s);
    constexpr auto others = QFile::ReadGroup | QFile::ReadOther | QFile::WriteOwner;
    EXPECT_FALSE(file.permissions() & others) << "read only: who saves it in place would lose it";
    const QFileInfo all(path(u"Documents"_s));
    EXPECT_FALSE(all.permissions() & (QFile::ExeGroup | QFile::ExeOther));
    RemoveHandedDocuments(place.appPath);
    EXPECT_FALSE(QFileInfo::exists(all.filePath()));
}

TEST_F(WordDocumentTest, SaysOnceThatThereIsNoWordProcessor) {
    tests.shell.hasWordProcessor = false;
    WordDocument word(seams, place, CancelTitle + u'.');
    tests.prompts.expect(PromptKind::Message, CancelTitle + u'.', AnswerOk);
    EXPECT_FALSE(word.Word_Start());
    place.target = path(u"own.rtf"_s);
    WordDocument toFile(seams, place);
    EXPECT_TRUE(toFile.Word_Start() && finish(toFile));
    EXPECT_TRUE(tests.shell.runs.isEmpty());
}

TEST_F(WordDocumentTest, ThatCantBeWrittenIsToldAndLeavesNothing) {
    place.target = path(u"no/such.rtf"_s);
    WordDocument toFile(seams, place);
    ASSERT_TRUE(toFile.Word_Start());
    tests.prompts.expect(PromptKind::Plain, CancelTitle, AnswerOk);
    EXPECT_FALSE(finish(toFile));
    QFile(path(u"Documents"_s)).open(QIODevice::WriteOnly); // no folder can be made
    place.target.clear();
    WordDocument word(seams, place);
    ASSERT_TRUE(word.Word_Start());
    tests.prompts.expect(PromptKind::Plain, CancelTitle, AnswerOk);
    EXPECT_FALSE(finish(word));
    EXPECT_TRUE(tests.shell.runs.isEmpty());
}

TEST_F(WordDocumentTest, GoesOnWithoutAPictureThatIsMissing) {
    WordDocument word(seams, place);
    ASSERT_TRUE(word.Word_Start());
    tests.prompts.expect(PromptKind::Message, u"Exporting to Word:"_s, AnswerOk);
    word.Word_AddPicture(path(u"none.bmp"_s), 0);
    EXPECT_TRUE(finish(word));
}

TEST_F(WordDocumentTest, TemplatesAreCopiedOnceAndAMissingOneIsAskedAbout) {
    const std::optional<QByteArray> own = ReadTemplate(seams, place, report);
    ASSERT_TRUE(own && own->contains("PupilName"));
    makeTemplate(u"IR1.dot"_s, "{\\rtf1 mine}");
    EXPECT_EQ(ReadTemplate(seams, place, report), QByteArray("{\\rtf1 mine}"));
    QFile::remove(path(u"Templates/IR1.dot"_s));
    makeTemplate(u"ir1.RTF"_s, "{\\rtf1 other}");
    EXPECT_EQ(ReadTemplate(seams, place, report), QByteArray("{\\rtf1 other}"));
    QFile::remove(path(u"Templates/ir1.RTF"_s));

    place.webAddress = u"https://example.org"_s;
    tests.prompts.expect(PromptKind::Message, u"Template doesn't exist"_s, AnswerNo);
    EXPECT_FALSE(ReadTemplate(seams, place, report));
    EXPECT_TRUE(tests.prompts.last().text.contains(
        u"URL\n\nhttps://example.org/ORVA/Templates/IR1.dot\n\nDo you wish"_s));
    tests.prompts.expect(PromptKind::Message, u"Template doesn't exist"_s, AnswerYes);
    tests.prompts.expect(PromptKind::Message, u"Download Complete"_s, AnswerYes);
    EXPECT_EQ(ReadTemplate(seams, place, report), own);
}
