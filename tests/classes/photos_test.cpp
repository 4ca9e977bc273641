// Photos: from files of every kind and origin, for one pupil and for a class, and how they are
// kept.

#include "classes/class_photos.h"
#include "classes/picture_file.h"
#include "classes/pupil_photo.h"
#include "support/class_file.h"

#include <QBuffer>
#include <QtEndian>

#include <sys/stat.h>

namespace {

QImage coloured(const QColor& colour, const QSize& size = {10, 10}) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

QByteArray bytesOf(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// A picture red above and blue below, as a camera stores it that was held on its side.
QByteArray pictureOnItsSide() {
    QImage image = coloured(Qt::red, {160, 80}); // its left half is the top
    for (int y = 0; y < 80; ++y) {
        for (int x = 80; x < 160; ++x)
            image.setPixelColor(x, y, Qt::blue);
    }
    const QByteArray turnRight("Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0"
                               "\0\0\0\0",
                               32);
    QByteArray segment("\xff\xe1\0\0", 4);
    qToBigEndian(quint16(turnRight.size() + 2), segment.data() + 2);
    return bytesOf(image, "JPEG").insert(2, segment + turnRight);
}

/// A bitmap's head alone, which promises as many pixels.
QByteArray headOfBitmap(qint32 width, qint32 height) {
    QByteArray bytes = bytesOf(coloured(Qt::red), "BMP").left(54);
    qToLittleEndian(width, bytes.data() + 18);
    qToLittleEndian(height, bytes.data() + 22);
    return bytes + QByteArray(100, 'x');
}

class PhotosTest : public testing::Test {
protected:
    PhotosTest() : file(twoWeekAnswers()), database(file.open()) {
        addPupils(database, code, {u"Ames,Ann"_s, u"Brown,Bea"_s, u"Cole,Ed"_s, u"O'Dea,Zoë"_s});
    }

    QString put(const QString& name, const QByteArray& bytes) {
        return writeFile(folder.filePath(name), bytes);
    }
    bool load(qint64 pupil, const QString& path, const QString& failure = {}) {
        seams.prompts.expect(PromptKind::File, u" Load Picture:"_s, path);
        if (!failure.isEmpty())
            seams.prompts.expect(PromptKind::Plain, u" Load Picture:"_s, AnswerOk);
        const bool isLoaded = loadPhotoFromFile(database, code, pupil, {}, seams.prompts);
        if (!failure.isEmpty())
            EXPECT_TRUE(seams.prompts.last().text.contains(failure)) << qPrintable(path);
        return isLoaded;
    }
    /// Gives the class's photos from the folder, by a column with these grades.
    void loadByGrades(const QStringList& grades, const QString& place) {
        database.TableDefs()[u"Marks_7A"].Fields().Append(
            dao::TableDef::CreateField(u"File [a]"_s, dao::DataType::Text, 50));
        dao::Recordset marks = database.OpenRecordset(u"Marks_7A"_s);
        for (const QString& grade : grades) {
            marks.Edit();
            if (!grade.isEmpty())
                marks.SetCollect(u"File [a]", grade);
            marks.Update();
            marks.MoveNext();
        }
        marks.Close();
        seams.prompts.expect(PromptKind::Selector, u"Grade column titles for 7A"_s, u"File [a]"_s);
        seams.prompts.expect(PromptKind::Folder,
                             u"Select the folder where the picture files are located:"_s, place);
        seams.prompts.expect(PromptKind::Plain, u"Picture Import Complete"_s, AnswerOk);
        EXPECT_TRUE(loadPhotosFromFolder(database, code, seams.prompts));
    }
    QImage photo(qint64 pupil) { return pupilPhoto(database, code, pupil); }
    QColor colour(qint64 pupil, int x = 3, int y = 3) { return photo(pupil).pixelColor(x, y); }

    const QString code = u"7A"_s;
    TestSeams seams;
    YearFile file;
    dao::Database database;
    QTemporaryDir folder;
};

} // namespace

TEST_F(PhotosTest, APhotoIsAnOrdinaryBitmap) {
    EXPECT_EQ(toPhoto(coloured(Qt::red, {133, 2000})).size(), StandardPhoto); // nothing to gain
    EXPECT_EQ(toPhoto(coloured(Qt::red, {1200, 1600})).size(), StandardPhoto * 2);
    ValidatePicture(database, code, 1, coloured(Qt::transparent));
    EXPECT_TRUE(
        database.OpenRecordset(classTable(code)).Collect(u"Photo").toBinary().startsWith("BM"));
    EXPECT_EQ(colour(1), QColor(Qt::white));
    // As older programs left one, which only keep the picture's own bytes.
    QImage old = coloured(Qt::blue, StandardPhoto).convertToFormat(QImage::Format_Indexed8);
    for (const QByteArray& bytes : {bytesOf(old, "BMP"), bytesOf(old, "PNG")}) {
        changeRecord(database, classTable(code), u"Photo"_s, bytes);
        EXPECT_EQ(photo(1).size(), StandardPhoto);
        EXPECT_EQ(colour(1), QColor(Qt::blue));
    }
    changeRecord(database, classTable(code), u"Photo"_s, QByteArray("no picture"));
    EXPECT_TRUE(photo(1).isNull() && photo(99).isNull());
}

TEST_F(PhotosTest, PicturesAreReadWhateverTheirFileSays) {
    const QByteArray red = bytesOf(coloured(Qt::red), "PNG");
    EXPECT_TRUE(load(1, put(u"is a png.bmp"_s, red)));
    EXPECT_EQ(colour(1), QColor(Qt::red));
    EXPECT_TRUE(load(1, put(u"no ending"_s, bytesOf(coloured(Qt::blue), "BMP"))));
    EXPECT_EQ(colour(1), QColor(Qt::blue));
    EXPECT_TRUE(load(1, put(u"fine@2x.png"_s, bytesOf(coloured(Qt::red, {400, 400}), "PNG"))));
    EXPECT_EQ(photo(1).size(), StandardPhoto * 2);
    EXPECT_EQ(colour(1, 130, 170), QColor(Qt::red));
    EXPECT_TRUE(load(1, put(u"turned.jpg"_s, pictureOnItsSide())));
    EXPECT_GT(colour(1, 60, 10).red(), 200);
    EXPECT_GT(colour(1, 5, 80).blue(), 200);
    EXPECT_EQ(seams.prompts.seen().first().text, seams.prompts.last().text);
}

TEST_F(PhotosTest, WhatCannotBeReadIsToldAndThePhotoStays) {
    const QString pipe = folder.filePath(u"pipe.bmp"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe), 0600), 0);
    const QByteArray png = bytesOf(coloured(Qt::blue, {300, 300}), "PNG");
    QImage pattern = coloured(Qt::red, {300, 300});
    for (int i = 0; i < 90'000; ++i)
        pattern.setPixel(i % 300, i / 300, qRgb(i % 251, i % 253, i % 255));
    const QByteArray jpeg = bytesOf(pattern, "JPEG");
    const QByteArray bmp = bytesOf(pattern, "BMP");
    const QByteArray gif =
        QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAAAAACwAAAAAAQABAAACAkQBADs=");
    EXPECT_TRUE(load(1, put(u"whole.jpg"_s, jpeg + "more")));
    EXPECT_TRUE(load(1, put(u"whole.bmp"_s, bmp)));
    EXPECT_TRUE(load(1, put(u"whole.gif"_s, gif)));
    const QByteArray xbm = bytesOf(pattern, "XBM");
    EXPECT_TRUE(load(1, put(u"whole.xbm"_s, xbm)));
    ValidatePicture(database, code, 1, coloured(Qt::red));
    const QString isDamaged = u"damaged"_s;
    const QString unreadable = u"can't be read"_s;
    const QString tooLarge = u"too large"_s;
    struct Case {
        QString path;
        QString failure;
    };
    for (const Case& each : {
             Case{put(u"empty.bmp"_s, {}), unreadable},
             Case{put(u"text.bmp"_s, "Dear Sir"), unreadable},
             Case{put(u"cut.png"_s, png.left(40)), unreadable},
             Case{put(u"cut.jpg"_s, jpeg.left(jpeg.size() / 2)), isDamaged},
             Case{put(u"broken.jpg"_s, QByteArray(jpeg).remove(jpeg.size() / 2, 600)), isDamaged},
             Case{put(u"cut.bmp"_s, bmp.chopped(2000)), isDamaged},
             Case{put(u"cut.gif"_s, gif.chopped(1)), isDamaged},
             Case{put(u"cut.xbm"_s, xbm.chopped(xbm.size() / 2)), isDamaged},
             Case{folder.path(), unreadable},
             Case{pipe, unreadable},
             Case{folder.filePath(u"none.bmp"_s), unreadable},
             Case{put(u"endless.ppm"_s, "P6\n30000 30000\n255\nxxxxxxxxx"), tooLarge},
             Case{put(u"head.bmp"_s, headOfBitmap(8000, 7900)), tooLarge},
         })
        EXPECT_FALSE(load(1, each.path, each.failure));
    EXPECT_EQ(colour(1), QColor(Qt::red));
}

TEST_F(PhotosTest, PhotosComeFromTheFilesThatAColumnNames) {
    const QString place = folder.filePath(u"photos"_s);
    QDir().mkpath(place);
    put(u"secret.bmp"_s, bytesOf(coloured(Qt::black), "BMP"));
    put(u"photos/ANN.BMP"_s, bytesOf(coloured(Qt::blue), "BMP"));
    put(u"photos/ann.bmp"_s, bytesOf(coloured(Qt::red), "BMP"));
    put(u"photos/ann.png"_s, bytesOf(coloured(Qt::green), "PNG"));
    put(u"photos/ed.png"_s, bytesOf(coloured(Qt::green), "PNG"));
    put(u"photos/Ed.Bmp"_s, bytesOf(coloured(Qt::blue), "BMP"));
    put(u"photos/zoe\u0308.gif.png"_s, bytesOf(coloured(Qt::cyan), "PNG")); // the accent by itself
    loadByGrades({u"ann"_s, u"../secret"_s, u"ED"_s, u"Zoë.gif"_s}, place);
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"1 files could not be found, "_s));
    EXPECT_EQ(seams.prompts.seen().at(0).items, (QStringList{u"ID"_s, u"File [a]"_s}));
    EXPECT_EQ(colour(1), QColor(Qt::red)); // the very name comes first
    EXPECT_TRUE(photo(2).isNull());
    EXPECT_EQ(colour(3), QColor(Qt::blue)); // a bitmap comes before other formats
    EXPECT_EQ(colour(4), QColor(Qt::cyan));
}

TEST_F(PhotosTest, MissingFilesAreCountedAndOthersKeepTheirPhoto) {
    ValidatePicture(database, code, 1, coloured(Qt::red));
    put(u"broken.bmp"_s, "BM");
    put(u"4.bmp"_s, bytesOf(coloured(Qt::blue), "BMP"));
    loadByGrades({{}, u"broken"_s, u"nobody"_s, u"4"_s}, folder.path());
    EXPECT_TRUE(seams.prompts.last().text.startsWith(u"2 files"_s));
    EXPECT_EQ(colour(1), QColor(Qt::red)); // no grade, no file to miss
    EXPECT_EQ(colour(4), QColor(Qt::blue));
}

TEST_F(PhotosTest, AStripIsCutInTheOrderOfThePupils) {
    struct Case {
        QSize strip;
        QSize part; ///< of the strip that is the second pupil's
        QSize photo;
    };
    for (const Case& each : {Case{{100, 87}, {67, 87}, StandardPhoto},
                             Case{{100, 200}, {67, 87}, StandardPhoto}, // no multiple: as it is
                             Case{{200, 174}, {134, 174}, StandardPhoto * 2},
                             Case{{400, 348}, {268, 348}, StandardPhoto * 2}}) {
        QImage strip = coloured(Qt::red, each.strip);
        for (int y = 0; y < strip.height(); ++y) {
            for (int x = each.part.width(); x < strip.width(); ++x)
                strip.setPixelColor(x, y, y < each.part.height() ? Qt::blue : Qt::black);
        }
        seams.prompts.expect(PromptKind::File, u" Load Class Pictures From:"_s,
                             put(u"strip.bmp"_s, bytesOf(strip, "BMP")));
        EXPECT_TRUE(loadClassPictures(database, code, {4, 2, 1}, {}, seams.prompts));
        EXPECT_EQ(photo(4).size(), each.photo);
        EXPECT_EQ(colour(4, each.photo.width() - 3), QColor(Qt::red));
        EXPECT_EQ(colour(2, 3, each.photo.height() - 3), QColor(Qt::blue));
        EXPECT_EQ(colour(2, each.photo.width() - 3), QColor(Qt::white)); // past the strip's end
        EXPECT_EQ(colour(1), QColor(Qt::white));
        EXPECT_TRUE(photo(3).isNull());
    }
}

TEST_F(PhotosTest, AFullDiskLeavesAllPhotosAsTheyWere) {
    ValidatePicture(database, code, 1, coloured(Qt::red));
    const QString strip = put(u"strip.bmp"_s, bytesOf(coloured(Qt::blue, {400, 87}), "BMP"));
    seams.prompts.expect(PromptKind::File, u" Load Class Pictures From:"_s, strip);
    seams.prompts.expect(PromptKind::Plain, u" Load Class Pictures From:"_s, AnswerOk);
    {
        const FileSizeLimit fullDisk(QFileInfo(file.path()).size() + 20'000); // room for one
        EXPECT_FALSE(loadClassPictures(database, code, {1, 2, 3, 4}, {}, seams.prompts));
    }
    EXPECT_FALSE(seams.prompts.last().text.contains(u"strip"_s));
    EXPECT_EQ(colour(1), QColor(Qt::red));
    EXPECT_TRUE(photo(2).isNull());
    EXPECT_TRUE(storePhoto(database, code, 2, coloured(Qt::blue), seams.prompts));
}
