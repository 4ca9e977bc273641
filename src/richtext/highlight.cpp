#include "richtext/highlight.h"

#include <QTextCursor>

namespace richtext {

QList<QColor> ParseColourTable(const QString&) {
    return {};
}

bool ApplyHighlight(QTextCursor selection, const QColor& colour) {
    if (!selection.hasSelection())
        return false;
    QTextCharFormat format;
    format.setBackground(colour);
    selection.mergeCharFormat(format);
    return true;
}

std::optional<QColor> GetHighlightColour(const QString&) {
    return std::nullopt;
}

} // namespace richtext
