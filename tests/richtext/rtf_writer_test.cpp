#include "richtext/rtf_writer.h"

#include "richtext/documents.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"

#include <gtest/gtest.h>

#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;
using namespace richtext;

namespace {

QString rewritten(const QString& rtf) {
    QTextDocument document;
    readDocument(rtf, document);
    return writeDocument(document);
}

} // namespace

// Others find their way in the text by these forms, to the letter.
TEST(RtfWriter, WritesTheDialect) {
    QTextDocument document;
    document.setDefaultFont(QFont(u"Arial"_s, 10));
    QTextCursor cursor(&document);
    EXPECT_EQ(
        writeDocument(document).toStdString(),
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}}\r\n{\\colortbl ;}\r\n"
        "\\pard\\plain\\f0\\fs20\r\n\\par }");

    QTextCharFormat format;
    cursor.insertText(u"Read "_s);
    format.setBackground(QColor(255, 255, 0));
    format.setFontWeight(QFont::Bold);
    cursor.insertText(u"{page}"_s, format);
    QTextBlockFormat centred;
    centred.setAlignment(Qt::AlignHCenter);
    cursor.insertBlock(centred, {});
    format = {};
    format.setForeground(QColor(1, 2, 3));
    format.setFontFamilies({u"Courier"_s});
    cursor.insertText(u"caf\u00e9 \u2192"_s, format);
    EXPECT_EQ(
        writeDocument(document).toStdString(),
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil Courier;}}\r\n"
        "{\\colortbl ;\\red255\\green255\\blue0;\\red1\\green2\\blue3;}\r\n"
        "\\pard\\plain\\f0\\fs20 Read \\b\\highlight1 \\{page\\}\\highlight0 \r\n"
        "\\par \\pard\\plain\\f1\\fs20\\qc\\cf2 caf\\'e9 \\u8594?\r\n"
        "\\par }");
}

TEST(RtfWriter, WhatWasWrittenIsTheSameDocumentAgain) {
    for (quint32 seed = 1; seed <= 300; ++seed) {
        QTextDocument document;
        test::generate(document, seed);
        const QString written = writeDocument(document);
        QTextDocument again;
        readDocument(written, again);
        ASSERT_EQ(test::describe(again).toStdString(), test::describe(document).toStdString())
            << "seed " << seed << "\n"
            << written.toStdString();
        ASSERT_EQ(writeDocument(again), written) << "seed " << seed;
        ASSERT_EQ(plainText(written), document.toPlainText()) << "seed " << seed;
    }
}

TEST(RtfWriter, ASelectionIsADocumentOfItsOwn) {
    for (quint32 seed = 1; seed <= 60; ++seed) {
        QTextDocument document;
        test::generate(document, seed);
        QTextCursor selection(&document);
        selection.setPosition(document.characterCount() / 4);
        selection.setPosition(document.characterCount() * 3 / 4, QTextCursor::KeepAnchor);
        const QString fragment = writeFragment(selection);
        EXPECT_EQ(plainText(fragment),
                  document.toPlainText().mid(selection.selectionStart(),
                                             selection.selectionEnd() - selection.selectionStart()))
            << "seed " << seed;
        EXPECT_EQ(rewritten(fragment), fragment) << "seed " << seed;
    }
}

TEST(RtfWriter, NothingGrowsByBeingReadAndWritten) {
    const QString bodies[] = {u""_s,           u"x"_s,
                              u"\\par"_s,      u"x\\par\\par"_s,
                              u"\\b\\cf3"_s,   u"{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt}\\li720"_s,
                              u"{\\pict 00}"_s};
    for (const QString& body : bodies) {
        const QString once = rewritten(test::inDialect(body));
        QString often = once;
        for (int i = 0; i < 5; ++i)
            often = rewritten(often);
        EXPECT_EQ(often, once) << body.toStdString();
        EXPECT_EQ(plainText(once), plainText(test::inDialect(body))) << body.toStdString();
    }
}
