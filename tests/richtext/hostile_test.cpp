// Texts made to make a reader crash, recurse, hang or swell. That these end at all, in the time
// that the whole suite takes, is most of the test; under the sanitizers it is more.

#include "richtext/documents.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace richtext;

namespace {

constexpr qsizetype size = 300000;

/// Both roads have to show the same text, and what was written has to be stable.
void expectSound(const QString& rtf, const char* what) {
    QTextDocument document;
    readDocument(rtf, document);
    EXPECT_EQ(document.toPlainText().toStdString(), plainText(rtf).toStdString()) << what;
    const QString written = writeDocument(document);
    QTextDocument again;
    readDocument(written, again);
    EXPECT_EQ(writeDocument(again).toStdString(), written.toStdString()) << what;
}

} // namespace

TEST(HostileRichText, OneThingOverAndOverAgain) {
    const QList<QByteArray> things =
        QByteArray("{|}|{\\b |\\|\\par|\\b a\\b0 a|\\cell|\\cell a\\row|\\u-10179?|\\uc255\\u1 |"
                   "{\\pict|{\\object{\\*\\objdata |{\\pntext1}a\\par{\\pntext-}a\\par |"
                   "{\\*\\pn\\pnlvlblt}a\\par |{\\fonttbl{\\f1 A;}|{\\colortbl;\\red1;|"
                   "\\ansicpg932\\'83|\\'|{\\upr{\\*\\ud |\\bin1|\\fs99999999999999999999")
            .split('|');
    for (const QByteArray& thing : things) {
        const QString piece = QString::fromLatin1(thing);
        expectSound(u"{\\rtf1"_s + piece.repeated(size / piece.size()), thing.constData());
    }
}

TEST(HostileRichText, EverythingDifferent) {
    QString formats = u"{\\rtf1{\\fonttbl"_s;
    QString colours = u"{\\rtf1{\\colortbl;"_s;
    QString pages = u"{\\rtf1"_s;
    QString pictures = pages;
    QString paragraphs = pages;
    for (int i = 0; i < 12000; ++i) {
        formats += u"{\\f%1\\cpg%1 F%1;}"_s.arg(i);
        colours += u"\\red%1\\green%2;"_s.arg(i % 256).arg(i / 256);
        pages += u"\\ansicpg%1\\'ff"_s.arg(i);
        pictures += u"{\\pict%1}"_s.arg(i);
        paragraphs += u"\\li%1 a\\par"_s.arg(i);
    }
    formats += u'}';
    colours += u'}';
    for (int i = 0; i < 12000; ++i) {
        formats += u"\\f%1\\fs%2 a"_s.arg(i).arg(i % 3000);
        colours += u"\\cf%1\\highlight%2 a"_s.arg(i).arg(i / 2);
    }
    expectSound(formats, "formats");
    expectSound(colours, "colours");
    expectSound(pages, "code pages");
    expectSound(pictures, "pictures");
    expectSound(paragraphs, "paragraphs");
}

TEST(HostileRichText, PiecesInAnyOrder) {
    static const QList<QByteArray> pieces =
        QByteArray(
            "{|}|}|\\par |\\b |\\plain|{\\pict 00}|{\\object\\objemb|{\\*\\x |\\u-20?|"
            "\\u55357?|\\row|\\cell|{\\fonttbl{\\f1 A;}}|{\\colortbl;\\red9;}|\\f1|\\bin3 |"
            "\\'e4|abc |{\\pntext|{\\*\\pn\\pnlvlblt}|\\li720|{\\shp|{\\shptxt|\\ansicpg932 |"
            "\\'83|\\highlight1 |\\v |\\v0 |{\\upr|{\\*\\ud|\\pard|\\~|\\\n|\r\n|\x80|\\qc|"
            "\\deff1|\\uc0 |\\line ")
            .split('|');
    QRandomGenerator random(2026);
    for (int round = 0; round < 2000; ++round) {
        QString rtf = u"{\\rtf1"_s;
        for (int i = random.bounded(60); i >= 0; --i)
            rtf += QString::fromLatin1(pieces[random.bounded(int(pieces.size()))]);
        expectSound(rtf, rtf.toUtf8().constData());
    }
}

TEST(HostileRichText, ADocumentCutAnywhere) {
    QTextDocument document;
    test::generate(document, 77);
    const QString whole = writeDocument(document);
    for (qsizetype end = 0; end < whole.size(); end += 3)
        expectSound(whole.first(end), "cut");
}
