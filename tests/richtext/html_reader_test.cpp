#include "richtext/html_reader.h"

#include "richtext/pictures.h"
#include "richtext/plain_text.h"

#include <gtest/gtest.h>

#include <QBuffer>

using namespace richtext;
using namespace Qt::StringLiterals;

namespace {

const HtmlGround sheet{.family = u"Verdana"_s, .points = 11, .paper = Qt::white, .picture = {}};

QByteArray pngOf(const QSize& size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    image.save(&buffer, "png");
    return buffer.data();
}

} // namespace

TEST(HtmlReader, TakesTheTextOfAPage) {
    const struct {
        QString html;
        QString plain;
    } cases[] = {
        {u"<p>one</p><p>two<br>three</p>"_s, u"one\ntwo\nthree"_s},
        {u"x<table><tr><th>a<th>b</tr><tr><td><p>c</p><p>d</p><td><ul><li>e</ul></table>y"_s,
         u"x\na\tb\nc d\te\ny"_s},
        {u"<table><tr><td colspan=2>a<td>b</tr><tr><td>c<td>d<td>e</table>"_s,
         u"a\t\tb\nc\td\te"_s},
        {u"<table><tr><td>a<td><table><tr><td>b<td>c</tr><tr><td>d</table></table>"_s,
         u"a\tb\tc d\t"_s},
        {u"see <a href='https://orva.test/x'>this</a>, <a href='#top'>top</a>"_s,
         u"see this (https://orva.test/x), top"_s},
        {u"<a href='https://orva.test/'>orva.test</a> <a href='mailto:a@b.c'>mail</a>"_s,
         u"orva.test mail (a@b.c)"_s},
        {u"<ol start=\"5\" style='color:red'><li>a<li>b</ol><ol><li>c</ol>"_s, u"5. a\n6. b\nc"_s},
        {u"<ol type=a start=3><li>a</ol>"_s, u"c. a"_s},
        {u"<img src='http://orva.test/p.png' alt='a map'><img src='file:///etc/passwd'>"_s,
         u"a map"_s},
        {u"a<img src='data:image/png;base64,%1'>"_s.arg(
             QString::fromLatin1(pngOf({4, 2}).toBase64())),
         u"a\ufffc"_s},
    };
    for (const auto& [html, plain] : cases)
        EXPECT_EQ(plainText(rtfOfHtml(html, sheet)).toStdString(), plain.toStdString())
            << html.toStdString();
}

TEST(HtmlReader, TakesTheLookOfAPage) {
    const struct {
        QString html;
        QString found;
    } cases[] = {
        {u"a"_s, u"\\f0\\fs22 a"_s},
        {u"a"_s, u"\\fnil Verdana;"_s},
        {u"<span style='font-family:sans-serif'>a</span>"_s, u"\\f0\\fnil Verdana;"_s},
        {u"<span style='font-family:system-ui,Arial'>a</span>"_s, u"\\f0\\fnil Arial;"_s},
        {u"<span style='font-size:24px'>a</span>"_s, u"\\fs36 a"_s},
        {u"<span style='font-size:9pt'>a</span>"_s, u"\\fs18 a"_s},
        {u"<h1>a</h1>"_s, u"\\fs44"_s},
        {u"<h2 style='font-size:20px'>a</h2>"_s, u"\\fs30"_s},
        {u"<body style='background:#222;color:#fff'>a</body>"_s, u"\\colortbl ;}"_s},
        {u"<b style='color:#fffffe;background:#fff'>a</b>"_s, u"\\colortbl ;}"_s},
        {u"<b style='color:#fff;background-color:#000080'>a</b>"_s, u"\\cf1\\b\\highlight2 a"_s},
        {u"<a href='https://orva.test/'>a</a>"_s, u"\\colortbl ;}"_s},
    };
    for (const auto& [html, found] : cases) {
        const QString rtf = rtfOfHtml(html, sheet);
        EXPECT_TRUE(rtf.contains(found)) << html.toStdString() << "\n" << rtf.toStdString();
    }
}

TEST(HtmlReader, APageThatIsOnePictureTakesTheOneThatIsKnown) {
    HtmlGround ground = sheet;
    ground.picture = QImage::fromData(pngOf({30, 20}));
    const QString image = u"<img src='https://orva.test/x.png'>"_s;
    const QString rtf = rtfOfHtml(image, ground);
    EXPECT_EQ(pictureOf(rtf).size(), QSize(30, 20));
    EXPECT_EQ(pictureSize(rtf), QSizeF(30, 20));
    EXPECT_TRUE(pictureOf(rtfOfHtml(u"text"_s + image, ground)).isNull());
}
