#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include <optional>

class QTextCursor;

namespace richtext {

/// The colours of a rich text's colour table in its order, so that an index is the number behind
/// "\cf" and "\highlight". An automatic one (always index 0 in the program's own dialect) is an
/// invalid QColor. Empty where there is no table.
QList<QColor> ParseColourTable(const QString& rtf);

/// Marks the selection with a background colour, or with none where the colour is invalid
/// (automatic). Marks inside the selection are replaced. Behind it the highlight in force at the
/// selection's start goes on: text there that had the last selected character's highlight takes
/// that one, up to the next change of highlight or the end of the paragraph.
/// Answers whether there was anything to do: without a selection there is not.
bool ApplyHighlight(QTextCursor selection, const QColor& colour);

/// The colour of a fragment's first highlight; nothing where it has none, or its number is not in
/// the colour table.
std::optional<QColor> GetHighlightColour(const QString& fragment);

} // namespace richtext
