#pragma once

#include <QString>

namespace richtext {

/// Adds a text to rich text: what has a meaning there is escaped, what code page 1252 lacks is
/// written as \uN. Has to stand behind something that is not a control word, or behind its blank.
void appendText(QString& rtf, QStringView text);

/// Whether appendText begins the text with an escape, so that a control word in front of it needs
/// no blank.
bool beginsWithEscape(QStringView text);

} // namespace richtext
