#pragma once

#include <QString>

namespace richtext {

/// Adds a text to rich text: what has a meaning there is escaped, what code page 1252 lacks is
/// written as \uN. Has to stand behind something that is not a control word, or behind its blank.
void appendText(QString& rtf, QStringView text);

/// Whether appendText begins the text with an escape, so that a control word in front of it needs
/// no blank.
bool beginsWithEscape(QStringView text);

/// Whether a paragraph's text is without characters that a document would take for its own: control
/// characters other than tabs, separators, marks of objects.
bool isClean(QStringView text);

/// The text without such characters; a separator, a vertical tab or a form feed becomes a line's.
QString cleaned(QStringView text);

/// What no rich text is, line by line, likewise; the lines divided by '\n'.
QString cleanedLines(QString text);

} // namespace richtext
