// A window's picture as a file: its name, its format, what stands in its way.

#include "core/saved_picture.h"
#include "support/recording_seams.h"

#include <QFile>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class SavedPictureTest : public testing::Test {
protected:
    SavedPictureTest() { picture.fill(Qt::red); }
    QString save(const QString& chosen, SavedFormats formats = SavedFormats::Bitmap) {
        seams.prompts.expect(PromptKind::File, u" Save file as :"_s, chosen);
        return savePicture(seams.prompts, folder.path(), picture, {u"BMP file"_s, u"*.bmp"_s},
                           formats);
    }

    QTemporaryDir folder;
    TestSeams seams;
    QImage picture{3, 2, QImage::Format_RGB32};
    const QString plain = folder.filePath(u"week"_s);
};

} // namespace

TEST_F(SavedPictureTest, TheNameDecidesTheFormat) {
    const struct {
        QString chosen;
        SavedFormats formats;
        QString path;
        QByteArray format;
    } cases[] = {
        {plain, SavedFormats::Bitmap, plain + u".bmp"_s, "bmp"},
        {plain + u".PNG"_s, SavedFormats::Bitmap, plain + u".PNG.bmp"_s, "bmp"},
        {plain + u".PNG"_s, SavedFormats::BitmapOrPng, plain + u".PNG"_s, "png"},
        {plain + u".x"_s, SavedFormats::BitmapOrPng, plain + u".x.bmp"_s, "bmp"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(save(each.chosen, each.formats), each.path);
        EXPECT_EQ(QImageReader::imageFormat(each.path), each.format) << qPrintable(each.path);
    }
}

TEST_F(SavedPictureTest, AFileIsReplacedOnlyWithConsent) {
    save(plain + u".BMP"_s);
    picture = picture.scaled(6, 4);
    for (const int answer : {AnswerNo, AnswerYes}) {
        seams.prompts.expect(PromptKind::File, u" Save file as :"_s, plain + u".BMP"_s);
        seams.prompts.expect(PromptKind::Message, u"File already exists"_s, answer);
        savePicture(seams.prompts, folder.path(), picture, {u"BMP file"_s, u"*.bmp"_s},
                    SavedFormats::Bitmap);
        EXPECT_EQ(QImage(plain + u".BMP"_s).width(), answer == AnswerYes ? 6 : 3);
    }
}

TEST_F(SavedPictureTest, AFailureIsTold) {
    EXPECT_EQ(save({}), QString());
    seams.prompts.expect(PromptKind::File, u" Save file as :"_s,
                         folder.filePath(u"missing/week.bmp"_s));
    seams.prompts.expect(PromptKind::Plain, u"Save Picture Error"_s, AnswerOk);
    EXPECT_EQ(savePicture(seams.prompts, folder.path(), picture, {u"BMP file"_s, u"*.bmp"_s},
                          SavedFormats::Bitmap),
              QString());
}
