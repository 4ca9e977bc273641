#pragma once

#include <QString>

namespace richtext {

/// A rich text with a fragment put at the end of its text, without a paragraph in between. Without
/// a text (Null or empty) the answer is the fragment itself.
QString appendFragment(const QString& rtf, const QString& fragment);

/// A rich text without the `length` characters from `position` of its plain text; a range that
/// reaches over the end is cut there, one that begins outside removes nothing.
QString removeText(const QString& rtf, qsizetype position, qsizetype length);

} // namespace richtext
