#pragma once

#include <QString>

namespace richtext {

/// The plain text of a rich text, straight from the source: exactly what QTextDocument::toPlainText
/// answers after readDocument, so that positions in it are positions in the document. Paragraphs
/// and lines are divided by '\n', an object or a picture is one character U+FFFC.
QString plainText(const QString& rtf);

/// Whether a plain text counts as empty: "", a blank, a line break.
bool isEmptyText(const QString& plain);

} // namespace richtext
