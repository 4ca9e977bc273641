#pragma once

#include <QString>

class QTextDocument;

namespace test {

/// All that a document holds and the program knows of, in words: two documents are the same where
/// these are. A line a paragraph and a run of characters.
QString describe(const QTextDocument& document);

/// Fills a document with paragraphs, lists, objects and characters of every kind that is written
/// and read, the same ones for the same seed.
void generate(QTextDocument& document, quint32 seed);

/// The text as a document's body in the program's dialect: font f0 is Arial, f1 Courier;
/// colour 1 yellow, 2 green, 3 red.
QString inDialect(const QString& body);

} // namespace test
