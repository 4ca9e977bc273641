#include "richtext/highlight.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <vector>

namespace richtext {

namespace {

/// The number behind a word, up to what is no digit; -1 where there is none.
int numberBehind(QStringView text, QStringView word) {
    const qsizetype found = text.indexOf(word);
    if (found < 0)
        return -1;
    const QStringView rest = text.sliced(found + word.size());
    const auto* const end =
        std::find_if_not(rest.begin(), rest.end(), [](QChar c) { return c.isDigit(); });
    bool isNumber = false;
    const int number = QStringView(rest.begin(), end).toInt(&isNumber);
    return isNumber ? number : -1;
}

QColor readColour(QStringView entry) {
    const auto part = [&](QStringView word) {
        return std::clamp(numberBehind(entry, word), 0, 255);
    };
    return entry.contains(u"\\red") ? QColor(part(u"\\red"), part(u"\\green"), part(u"\\blue"))
                                    : QColor();
}

/// Characters of one format.
struct Piece {
    int begin;
    int end;
    QTextCharFormat format;
};

/// The pieces of a range, cut at its ends.
std::vector<Piece> piecesOf(const QTextDocument& document, int from, int to) {
    std::vector<Piece> pieces;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const int begin = std::max(from, fragment.position());
            const int end = std::min(to, fragment.position() + fragment.length());
            if (begin < end)
                pieces.push_back({begin, end, fragment.charFormat()});
        }
    }
    return pieces;
}

QColor highlightOf(const Piece& piece) {
    const QBrush brush = piece.format.background();
    return brush.style() == Qt::NoBrush ? QColor() : brush.color();
}

void setHighlight(QTextCursor& cursor, const Piece& piece, const QColor& colour) {
    QTextCharFormat format = piece.format;
    if (colour.isValid())
        format.setBackground(colour);
    else
        format.clearBackground();
    cursor.setPosition(piece.begin);
    cursor.setPosition(piece.end, QTextCursor::KeepAnchor);
    cursor.setCharFormat(format);
}

} // namespace

QList<QColor> ParseColourTable(const QString& rtf) {
    static constexpr QStringView begin = u"{\\colortbl";
    const qsizetype found = rtf.indexOf(begin);
    const qsizetype end = found < 0 ? -1 : rtf.indexOf(u'}', found);
    if (end < 0)
        return {};
    const qsizetype from = found + begin.size();
    QStringView table = QStringView(rtf).sliced(from, end - from).trimmed();
    if (table.endsWith(u';'))
        table.chop(1);
    QList<QColor> colours;
    for (const QStringView entry : table.split(u';'))
        colours += readColour(entry);
    return colours;
}

bool ApplyHighlight(QTextCursor selection, const QColor& colour) {
    if (!selection.hasSelection())
        return false;
    const QTextDocument& document = *selection.document();
    const int end = selection.selectionEnd();
    const std::vector<Piece> selected = piecesOf(document, selection.selectionStart(), end);
    if (selected.empty())
        return false;
    const QColor outer = highlightOf(selected.front());
    const QColor last = highlightOf(selected.back());

    selection.beginEditBlock();
    for (const Piece& piece : selected)
        setHighlight(selection, piece, colour);
    // In the text of the document the mark behind the selection names the highlight in force at its
    // start, and holds up to the next mark, whatever the text there had.
    const QTextBlock block = document.findBlock(end);
    if (block.position() < end) {
        for (const Piece& piece : piecesOf(document, end, block.position() + block.length())) {
            if (highlightOf(piece) != last)
                break;
            setHighlight(selection, piece, outer);
        }
    }
    selection.endEditBlock();
    return true;
}

std::optional<QColor> GetHighlightColour(const QString& fragment) {
    const int place = numberBehind(fragment, u"\\highlight");
    const QList<QColor> colours = ParseColourTable(fragment);
    if (place < 0 || place >= colours.size())
        return std::nullopt;
    return colours.at(place);
}

} // namespace richtext
