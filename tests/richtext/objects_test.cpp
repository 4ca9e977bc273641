#include "richtext/objects.h"

#include "richtext/documents.h"
#include "richtext/pictures.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"
#include "support/engine_files.h"
#include "support/engine_places.h"

#include <QBuffer>
#include <QTextCursor>
#include <QTextDocument>

using namespace richtext;

namespace {

/// The picture's bytes as the group of a rich text.
QString pictGroup(const QString& words, const QByteArray& bytes) {
    return u"{\\pict"_s + words + u"\\picwgoal300\\pichgoal150\r\n"_s +
           QString::fromLatin1(bytes.toHex()) + u"}"_s;
}

QByteArray encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

} // namespace

TEST(Objects, APackageComesBackWithItsFile) {
    const QTemporaryDir folder;
    const struct {
        QString name;
        QByteArray content;
    } cases[] = {
        {u"seating {2}.txt"_s, "for Ann"},
        {u"\u00dcbung \u4f60\u597d.bin"_s, QByteArray("\0\xFF}{\\", 5)},
        {u"empty.dat"_s, ""},
        {u"large.dat"_s, QByteArray(100000, '\x7D')},
    };
    for (const auto& [name, content] : cases) {
        const EmbeddedObject object = packageOf(writeFile(folder.filePath(name), content));
        EXPECT_FALSE(object.source.contains(QString::fromLatin1(folder.path().toLatin1().toHex())))
            << "the folder is nobody's business";

        QTextDocument document;
        QTextCursor cursor(&document);
        cursor.insertText(u"ab"_s);
        cursor.setPosition(1);
        insertObject(cursor, object);
        const QString rtf = writeDocument(document);
        EXPECT_TRUE(holdsObject(rtf));
        EXPECT_EQ(plainText(rtf), u"a\ufffcb"_s);
        QTextDocument again;
        readDocument(rtf, again);
        QTextCursor at(&again);
        for (const int position : {1, 2}) {
            at.setPosition(position);
            const std::optional<EmbeddedObject> found = objectAt(at);
            ASSERT_TRUE(found.has_value()) << position;
            EXPECT_EQ(found->className, u"Package"_s);
            EXPECT_EQ(found->name.toStdString(), name.toStdString());
            EXPECT_EQ(found->content, content);
            EXPECT_EQ(found->source, object.source);
        }
        for (const int position : {0, 3}) {
            at.setPosition(position);
            EXPECT_FALSE(objectAt(at).has_value()) << position;
        }
    }
}

TEST(Objects, AFileThatCannotBeReadMakesNoObject) {
    const QTemporaryDir folder;
    EXPECT_TRUE(packageOf(folder.filePath(u"none"_s)).source.isEmpty());
    QFile file(folder.filePath(u"large"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(largestPackage + 1));
    EXPECT_TRUE(packageOf(file.fileName()).source.isEmpty());
}

TEST(Objects, AnotherProgramsPackageIsRead) {
    QTextDocument document;
    readDocument(QString::fromLatin1(bytesOf(test::testData(u"rtf/old_edit_box.rtf"_s))), document);
    QTextCursor at = document.find(u"\ufffc"_s);
    const std::optional<EmbeddedObject> object = objectAt(at);
    ASSERT_TRUE(object.has_value());
    EXPECT_EQ(object->name, u"a.txt"_s);
    EXPECT_EQ(object->content, QByteArray("for Ann"));
    EXPECT_TRUE(writeDocument(document).contains(object->source));
}

TEST(Objects, DamagedDataGiveWhatCanBeMadeOut) {
    const struct {
        QString source;
        QString name;
        QByteArray content;
    } cases[] = {
        {u"{\\object\\objemb{\\*\\objclass Package}{\\*\\objdata 0105000002}}"_s, u"Package"_s, ""},
        {u"{\\object\\objemb{\\*\\objclass Package}{\\*\\objdata 0105000002000000ffffffff00}}"_s,
         u"Package"_s, ""},
        {u"{\\object\\objemb{\\*\\objclass Sheet.8}{\\*\\objdata "
         "010500000200000002000000610000000000000000000200000041420000}}"_s,
         u"Sheet.8"_s, "AB"},
        {u"{\\object\\objemb{\\*\\objdata 01050000020000000200000061000000000000000000020000004142}}"_s,
         u"a"_s, "AB"},
        {u"{\\object\\objlink}"_s, u""_s, ""},
        {u""_s, u""_s, ""},
    };
    for (const auto& [source, name, content] : cases) {
        const EmbeddedObject object = objectOf(source);
        EXPECT_EQ(object.name, name) << source.toStdString();
        EXPECT_EQ(object.content, content) << source.toStdString();
    }
}

TEST(Pictures, AreShownWhereTheyCanBe) {
    QImage image(4, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QByteArray bitmap = encoded(image, "bmp");
    constexpr qsizetype fileHeader = 14;
    const QString png = pictGroup(u"\\pngblip"_s, encoded(image, "png"));
    const struct {
        QString source;
        QSize size;
    } cases[] = {
        {png, QSize(4, 2)},
        {pictGroup(u"\\jpegblip"_s, encoded(image, "jpeg")), QSize(4, 2)},
        {pictGroup(u"\\dibitmap0"_s, bitmap.sliced(fileHeader)), QSize(4, 2)},
        {u"{\\object\\objemb{\\*\\objdata 00}{\\result{"_s + png + u"}}}"_s, QSize(4, 2)},
        {u"{\\pict{\\*\\picprop{\\sp{\\sn a}{\\sv 1}}}\\pngblip\\bin"_s +
             QString::number(encoded(image, "png").size()) + u' ' +
             QString::fromLatin1(encoded(image, "png")) + u'}',
         QSize(4, 2)},
        {pictGroup(u"\\wmetafile8"_s, "\1\0"), QSize()},
        {pictGroup(u"\\pngblip"_s, "no picture"), QSize()},
        {u"{\\pict"_s, QSize()},
    };
    for (const auto& [source, size] : cases)
        EXPECT_EQ(pictureOf(source).size(), size.isEmpty() ? QSize(0, 0) : size)
            << source.left(40).toStdString();
    EXPECT_EQ(pictureSize(png), QSizeF(20, 10));
}
