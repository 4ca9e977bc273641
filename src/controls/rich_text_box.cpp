#include "controls/rich_text_box.h"

#include "controls/colours.h"
#include "controls/object_view.h"
#include "controls/pasted_rtf.h"
#include "controls/spelling_marks.h"
#include "richtext/objects.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_text.h"
#include "richtext/rtf_writer.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextLayout>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

bool isTabulatorKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab && event.modifiers() == Qt::ControlModifier;
}

/// Known on many desktops; the toolkit takes only the other one, Ctrl+Shift+Z.
bool isRedoKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
}

bool holdsPictureOrObject(const QString& rtf) {
    return richtext::plainText(rtf).contains(QChar::ObjectReplacementCharacter);
}

void setTextColour(QTextCharFormat& format, const QColor& colour) {
    if (colour.isValid())
        format.setForeground(colour);
    else
        format.clearForeground();
}

void setTextFont(QTextCharFormat& format, const FontRecord& font) {
    format.setFontFamilies({font.name});
    format.setFontPointSize(font.size);
    format.setFontWeight(font.bold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(font.italic);
    format.setFontUnderline(font.underline);
    setTextColour(format, font.colour == 0 ? QColor() : toColour(font.colour));
}

} // namespace

RichTextBox::RichTextBox(const QString& name, QWidget* parent, const QColor& paper)
    : QTextEdit(parent), m_objects(new ObjectView(*this)), m_spelling(new SpellingMarks(*this)) {
    setAccessibleName(name);
    setTabChangesFocus(true);
    setPaper(paper);
    m_objects->registerWith(*document()->documentLayout());
    connect(document(), &QTextDocument::contentsChanged, this, [this] {
        if (!m_isLoading)
            emit edited();
    });
}

RichTextBox::~RichTextBox() = default;

QString RichTextBox::rtf() const {
    return richtext::writeDocument(*document());
}

void RichTextBox::setRtf(const QString& rtf) {
    const QScopedValueRollback loading(m_isLoading, true);
    QTextCursor start(document());
    start.beginEditBlock();
    richtext::readDocument(rtf, *document());
    // The caret that goes there asks for the first paragraph's glyphs once more, and once again.
    document()->begin().layout()->setCacheEnabled(true);
    start.endEditBlock();
    setTextCursor(QTextCursor(document()));
    setDataChanged(false);
}

bool RichTextBox::dataChanged() const {
    return document()->isModified();
}

void RichTextBox::setDataChanged(bool changed) {
    document()->setModified(changed);
}

QString RichTextBox::plainText() const {
    return toPlainText();
}

int RichTextBox::selectionStart() const {
    return textCursor().selectionStart();
}

int RichTextBox::selectionLength() const {
    return textCursor().selectionEnd() - textCursor().selectionStart();
}

void RichTextBox::select(int start, int length) {
    const int last = document()->characterCount() - 1;
    const int from = std::clamp(start, 0, last);
    QTextCursor cursor = textCursor();
    cursor.setPosition(from);
    cursor.setPosition(from + std::clamp(length, 0, last - from), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

QString RichTextBox::selectedText() const {
    return textCursor().selection().toPlainText();
}

void RichTextBox::setSelectedText(const QString& text) {
    insertPlainText(richtext::cleanedLines(text));
}

QString RichTextBox::selectedRtf() const {
    return richtext::writeFragment(textCursor());
}

void RichTextBox::setSelectedRtf(const QString& rtf) {
    QTextCursor cursor = textCursor();
    richtext::insertFragment(cursor, rtf);
    setTextCursor(cursor);
    ensureCursorVisible();
}

SelectionFormat RichTextBox::selectionFormat() const {
    return readFormat(textCursor(), currentCharFormat(), document()->defaultFont());
}

void RichTextBox::change(const std::function<void(QTextCharFormat&)>& change) {
    if (textCursor().hasSelection())
        changeFormat(textCursor(), change);
    QTextCharFormat typing = currentCharFormat();
    change(typing);
    if (!textCursor().hasSelection())
        setCurrentCharFormat(typing);
    emit currentCharFormatChanged(typing);
}

void RichTextBox::setFontName(const QString& name) {
    change([&](QTextCharFormat& format) { format.setFontFamilies({name}); });
}

void RichTextBox::setFontSize(double points) {
    change([&](QTextCharFormat& format) { format.setFontPointSize(points); });
}

void RichTextBox::setBold(bool on) {
    change(
        [&](QTextCharFormat& format) { format.setFontWeight(on ? QFont::Bold : QFont::Normal); });
}

void RichTextBox::setItalic(bool on) {
    change([&](QTextCharFormat& format) { format.setFontItalic(on); });
}

void RichTextBox::setUnderline(bool on) {
    change([&](QTextCharFormat& format) { format.setFontUnderline(on); });
}

void RichTextBox::setColour(const QColor& colour) {
    change([&](QTextCharFormat& format) { setTextColour(format, colour); });
}

void RichTextBox::setCharOffset(CharOffset offset) {
    const QTextCharFormat::VerticalAlignment alignment =
        offset == CharOffset::Superscript ? QTextCharFormat::AlignSuperScript
        : offset == CharOffset::Subscript ? QTextCharFormat::AlignSubScript
                                          : QTextCharFormat::AlignNormal;
    change([&](QTextCharFormat& format) { format.setVerticalAlignment(alignment); });
}

void RichTextBox::setBullet(bool on) {
    changeBullets(textCursor(), on);
    emit currentCharFormatChanged(currentCharFormat());
}

void RichTextBox::setSelectionFont(const FontRecord& font) {
    change([&](QTextCharFormat& format) { setTextFont(format, font); });
}

bool RichTextBox::applyDefaultFont(const FontRecord& font) {
    m_defaultFont = font;
    if (!richtext::isEmptyText(plainText()))
        return false;
    const QScopedValueRollback loading(m_isLoading, true);
    const bool changed = dataChanged();
    QTextCursor all(document());
    all.select(QTextCursor::Document);
    changeFormat(all, [&](QTextCharFormat& format) { setTextFont(format, font); });
    document()->clearUndoRedoStacks();
    setCurrentCharFormat(document()->firstBlock().charFormat());
    setDataChanged(changed);
    return true;
}

void RichTextBox::setPaper(const QColor& colour) {
    // Of the text's area alone: the box would hand it on to all that stands in it.
    setBackground(viewport(), colour);
    const QColor text = textColourOn(colour);
    QPalette colours = palette();
    if (colours.color(QPalette::Text) == text)
        return;
    colours.setColor(QPalette::Text, text);
    setPalette(colours);
}

QColor RichTextBox::paper() const {
    return viewport()->palette().color(QPalette::Base);
}

qsizetype RichTextBox::excessAfter(const std::function<void(QTextCursor&)>& change) const {
    if (m_limit == 0)
        return 0;
    const std::unique_ptr<QTextDocument> copy(document()->clone());
    QTextCursor cursor(copy.get());
    cursor.setPosition(selectionStart());
    cursor.setPosition(selectionStart() + selectionLength(), QTextCursor::KeepAnchor);
    change(cursor);
    return std::max<qsizetype>(0, richtext::writeDocument(*copy).size() - m_limit);
}

qsizetype RichTextBox::excessWith(const QString& rtf) const {
    return excessAfter([&](QTextCursor& cursor) { richtext::insertFragment(cursor, rtf); });
}

void RichTextBox::setNotice(const QString& text) {
    if (text == (m_notice ? m_notice->text() : QString()))
        return;
    if (!m_notice)
        makeNotice();
    m_notice->setText(text);
    m_notice->setVisible(!text.isEmpty());
    setAccessibleDescription(text);
    placeNotice();
    if (text.isEmpty())
        return;
    QAccessibleEvent alert(m_notice, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

/// Under the text, which gives way.
/// When there is something to say: few of the many boxes of a window ever have one.
void RichTextBox::makeNotice() {
    m_notice = new QLabel(this);
    m_notice->setObjectName(u"Notice"_s);
    m_notice->setWordWrap(true);
    m_notice->setMargin(2);
    m_notice->setAutoFillBackground(true);
    m_notice->setBackgroundRole(QPalette::ToolTipBase);
    m_notice->setForegroundRole(QPalette::ToolTipText);
    m_notice->hide();
}

void RichTextBox::placeNotice() {
    if (!m_notice)
        return;
    const int width = viewport()->width();
    const int height = m_notice->text().isEmpty() ? 0 : m_notice->heightForWidth(width);
    if (viewportMargins().bottom() != height)
        setViewportMargins(0, 0, 0, height);
    const QRect text = viewport()->geometry();
    m_notice->setGeometry(text.left(), text.bottom() + 1, width, height);
}

void RichTextBox::resizeEvent(QResizeEvent* event) {
    QTextEdit::resizeEvent(event);
    placeNotice();
}

void RichTextBox::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    emit entered();
}

bool RichTextBox::event(QEvent* event) {
    // Before a window takes the key for something of its own.
    if (event->type() == QEvent::ShortcutOverride &&
        (isTabulatorKey(*static_cast<QKeyEvent*>(event)) ||
         isRedoKey(*static_cast<QKeyEvent*>(event)))) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    if (isTabulatorKey(*event) && !isReadOnly())
        insertPlainText(u"\t"_s);
    else if (isRedoKey(*event) && !isReadOnly())
        redo();
    else
        QTextEdit::keyPressEvent(event);
}

bool RichTextBox::selectObjectAt(const QPoint& place) {
    const QPointF inDocument =
        place + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int position = document()->documentLayout()->hitTest(inDocument, Qt::ExactHit);
    if (position < 0 || document()->characterAt(position) != QChar::ObjectReplacementCharacter)
        return false;
    select(position, 1);
    return true;
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && selectObjectAt(event->position().toPoint()))
        emit objectActivated();
    else
        QTextEdit::mouseDoubleClickEvent(event);
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event) {
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    if (byMouse && !textCursor().hasSelection() && !selectObjectAt(event->pos()))
        setTextCursor(cursorForPosition(event->pos()));
    emit menuWanted(byMouse ? event->globalPos()
                            : viewport()->mapToGlobal(cursorRect().bottomLeft()));
}

void RichTextBox::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    m_spelling->paint(event->rect());
}

QMimeData* RichTextBox::createMimeDataFromSelection() const {
    QMimeData* data = QTextEdit::createMimeDataFromSelection();
    data->setData(RtfType, selectedRtf().toLatin1());
    return data;
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
    return canBePasted(*source);
}

richtext::HtmlGround RichTextBox::ground() const {
    const QFont font = document()->defaultFont();
    return {.family = m_defaultFont ? m_defaultFont->name : font.family(),
            .points = m_defaultFont ? m_defaultFont->size : font.pointSizeF(),
            .paper = paper(),
            .picture = {}};
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly())
        return;
    const QString rtf = pastedRtf(*source, ground());
    if (rtf.isEmpty())
        setSelectedText(source->text());
    else if (!m_isMovedWithin && holdsPictureOrObject(rtf) && excessWith(rtf) > 0)
        emit tooMuchPasted(rtf);
    else
        setSelectedRtf(rtf);
}

/// What is moved inside the box is no more than before, and has left its place already.
void RichTextBox::dropEvent(QDropEvent* event) {
    const QScopedValueRollback moved(m_isMovedWithin,
                                     event->source() == this || event->source() == viewport());
    QTextEdit::dropEvent(event);
}
