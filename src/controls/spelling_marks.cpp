#include "controls/spelling_marks.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBlockUserData>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <chrono>

using richtext::TextRange;

namespace {

constexpr std::chrono::milliseconds typingPause{400};

/// What is known of a paragraph. Goes with it.
struct Checked : public QTextBlockUserData {
    int revision = -1; ///< of the paragraph when it was checked
    QList<TextRange> mistakes;
};

Checked* checkedOf(const QTextBlock& block) {
    return static_cast<Checked*>(block.userData());
}

bool isStale(const QTextBlock& block) {
    const Checked* checked = checkedOf(block);
    return !checked || checked->revision != block.revision();
}

/// The marks move with the text behind a change; those that it touches go.
void shift(QList<TextRange>& mistakes, qsizetype at, qsizetype removed, qsizetype added) {
    QList<TextRange> kept;
    for (TextRange mistake : std::as_const(mistakes)) {
        if (mistake.start > at + removed)
            mistake.start += added - removed;
        else if (mistake.start + mistake.length >= at)
            continue;
        kept.append(mistake);
    }
    mistakes = kept;
}

void drawWave(QPainter& painter, qreal left, qreal right, qreal y) {
    constexpr qreal step = 2;
    QPainterPath wave(QPointF(left, y));
    bool up = true;
    for (qreal x = left + step; x < right + step; x += step, up = !up)
        wave.lineTo(std::min(x, right), up ? y + step / 2 + 0.5 : y);
    painter.drawPath(wave);
}

/// The marks of one line of a paragraph; a word that is broken at its end is marked up to there.
void drawMarks(QPainter& painter, const QTextLine& line, const QPointF& origin,
               const QList<TextRange>& mistakes) {
    const int lineEnd = line.textStart() + line.textLength();
    auto mistake =
        std::lower_bound(mistakes.begin(), mistakes.end(), line.textStart(),
                         [](const TextRange& range, int start) { return range.start < start; });
    for (; mistake != mistakes.end() && mistake->start < lineEnd; ++mistake) {
        const auto end = std::min<int>(static_cast<int>(mistake->start + mistake->length), lineEnd);
        const qreal from = line.cursorToX(static_cast<int>(mistake->start));
        const qreal to = line.cursorToX(end);
        drawWave(painter, origin.x() + std::min(from, to), origin.x() + std::max(from, to),
                 origin.y() + line.y() + line.ascent() + 1.5);
    }
}

/// The marks of a paragraph between two heights of the document: a long one has more lines than
/// can be seen.
void drawMarks(QPainter& painter, const QTextLayout& layout, qreal top, qreal bottom,
               const QList<TextRange>& mistakes) {
    const QPointF origin = layout.position();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine line = layout.lineAt(i);
        if (origin.y() + line.y() > bottom)
            return;
        if (origin.y() + line.y() + line.height() >= top)
            drawMarks(painter, line, origin, mistakes);
    }
}

} // namespace

SpellingMarks::SpellingMarks(QTextEdit& box)
    : QObject(&box), m_box(box), m_speller(&richtext::Speller::shared()) {
    m_pause.setSingleShot(true);
    m_pause.setInterval(typingPause);
    connect(&m_pause, &QTimer::timeout, this, &SpellingMarks::check);
    connect(box.document(), &QTextDocument::contentsChange, this, &SpellingMarks::contentsChange);
}

void SpellingMarks::setSpeller(richtext::Speller& speller) {
    m_speller = &speller;
}

template<typename Visit>
void SpellingMarks::eachVisibleBlock(const QRect& rect, Visit visit) const {
    const QPoint scrolled(m_box.horizontalScrollBar()->value(), m_box.verticalScrollBar()->value());
    const QRectF inDocument = rect.translated(scrolled);
    // Walked from the start: what asks for the text at a point lays out a line anew.
    for (QTextBlock block = m_box.document()->begin(); block.isValid(); block = block.next()) {
        const QRectF place = m_box.document()->documentLayout()->blockBoundingRect(block);
        if (place.top() > inDocument.bottom())
            return;
        if (place.bottom() >= inDocument.top())
            visit(block);
    }
}

void SpellingMarks::contentsChange(int position, int removed, int added) {
    const QTextBlock block = m_box.document()->findBlock(position);
    Checked* checked = checkedOf(block);
    if (checked)
        shift(checked->mistakes, position - block.position(), removed, added);
    m_pause.start();
}

void SpellingMarks::paint(const QRect& rect) {
    QPainter painter(m_box.viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(220, 40, 40), 1.2));
    const QPoint scrolled(m_box.horizontalScrollBar()->value(), m_box.verticalScrollBar()->value());
    const QRect inDocument = rect.translated(scrolled);
    painter.translate(-scrolled);
    bool stale = false;
    eachVisibleBlock(rect, [&](const QTextBlock& block) {
        stale = stale || isStale(block);
        const Checked* checked = checkedOf(block);
        if (!checked)
            return;
        drawMarks(painter, *block.layout(), inDocument.top(), inDocument.bottom(),
                  checked->mistakes);
    });
    if (stale && !m_pause.isActive())
        m_pause.start();
}

bool SpellingMarks::checkBlock(QTextBlock block) {
    if (!isStale(block))
        return false;
    if (!checkedOf(block))
        block.setUserData(new Checked);
    Checked& checked = *checkedOf(block);
    checked.revision = block.revision();
    checked.mistakes = m_speller->mistakes(block.text());
    return true;
}

void SpellingMarks::check() {
    bool changed = false;
    eachVisibleBlock(m_box.viewport()->rect(),
                     [&](const QTextBlock& block) { changed = checkBlock(block) || changed; });
    if (changed)
        m_box.viewport()->update();
}

QTextCursor SpellingMarks::mistakeAt(const QTextCursor& cursor) const {
    QTextCursor word(cursor);
    word.clearSelection();
    const QTextBlock block = cursor.block();
    const Checked* checked = checkedOf(block);
    if (!checked)
        return word;
    for (const TextRange& mistake : checked->mistakes) {
        const int start = block.position() + static_cast<int>(mistake.start);
        const int end = start + static_cast<int>(mistake.length);
        if (cursor.position() < start || cursor.position() > end)
            continue;
        word.setPosition(start);
        word.setPosition(end, QTextCursor::KeepAnchor);
    }
    return word;
}

QStringList SpellingMarks::suggestions(const QString& word) const {
    return m_speller->suggestions(word);
}

void SpellingMarks::accept(const QString& word) {
    m_speller->accept(word);
    for (QTextBlock block = m_box.document()->begin(); block.isValid(); block = block.next()) {
        if (Checked* checked = checkedOf(block))
            checked->revision = -1;
    }
    check();
}
