#include "controls/rich_text_box.h"

#include "controls/colours.h"
#include "controls/object_view.h"
#include "controls/spelling_marks.h"
#include "richtext/objects.h"
#include "richtext/plain_text.h"
#include "richtext/rtf_reader.h"
#include "richtext/rtf_writer.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocumentFragment>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Under these names programs hand on rich text.
const QString rtfTypes[] = {u"text/rtf"_s, u"application/rtf"_s, u"text/richtext"_s};

/// RTF is bytes, each of which is one character of the text that the rules work on.
QByteArray rtfIn(const QMimeData& source) {
    for (const QString& type : rtfTypes) {
        if (source.hasFormat(type))
            return source.data(type);
    }
    return {};
}

/// HTML by way of the program's own dialect, so that nothing comes in that could not be kept.
QString rtfOfHtml(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    return richtext::writeDocument(document);
}

bool isTabulatorKey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Tab && event.modifiers() == Qt::ControlModifier;
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

RichTextBox::RichTextBox(const QString& name, QWidget* parent)
    : QTextEdit(parent), m_objects(new ObjectView(*this)), m_spelling(new SpellingMarks(*this)) {
    setAccessibleName(name);
    setTabChangesFocus(true);
    setPaper(Qt::white);
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
    richtext::readDocument(rtf, *document());
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
    insertPlainText(text);
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
    setBackground(this, colour);
}

void RichTextBox::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    emit entered();
}

bool RichTextBox::event(QEvent* event) {
    // Before a window takes the key for going from one of its parts to the next.
    if (event->type() == QEvent::ShortcutOverride &&
        isTabulatorKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTextEdit::event(event);
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    if (isTabulatorKey(*event) && !isReadOnly())
        insertPlainText(u"\t"_s);
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
    data->setData(rtfTypes[0], selectedRtf().toLatin1());
    return data;
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
    return !rtfIn(*source).isEmpty() || source->hasHtml() || source->hasText();
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly())
        return;
    const QByteArray rtf = rtfIn(*source);
    if (rtf.startsWith("{\\rtf"))
        setSelectedRtf(QString::fromLatin1(rtf));
    else if (source->hasHtml())
        setSelectedRtf(rtfOfHtml(source->html()));
    else if (source->hasText())
        setSelectedText(source->text());
}
