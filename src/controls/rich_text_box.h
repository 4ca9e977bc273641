#pragma once

#include "controls/selection_format.h"
#include "core/font_record.h"

#include <QTextEdit>

#include <functional>
#include <optional>

class ObjectView;
class QLabel;
class SpellingMarks;

namespace richtext {
struct HtmlGround;
}

/// The box of every window in which formatted text is written: holds one document, the rich text of
/// a memo field. What it shows is what it will give back: text and pictures pasted from other
/// programs come in as what the document can hold. Spelling mistakes are underlined where a
/// dictionary is installed.
///
/// Commands (toolbar, menus, objects) come from the FormatTools of its window. Tab leaves the box;
/// Ctrl and Tab types a tabulator.
class RichTextBox : public QTextEdit {
    Q_OBJECT

public:
    /// `name` says in words what the text is: "Lesson, period 3".
    explicit RichTextBox(const QString& name, QWidget* parent = nullptr,
                         const QColor& paper = Qt::white);
    ~RichTextBox() override;

    /// The complete document.
    QString rtf() const;
    /// Shows a document, or none for an empty text. The box counts as unchanged afterwards, and
    /// there is nothing to undo.
    void setRtf(const QString& rtf);

    /// Whether the document differs from what was set or last marked as kept: the field has to be
    /// written.
    bool dataChanged() const;
    void setDataChanged(bool changed);

    /// The characters of the document; an object counts as one. Positions and lengths count these.
    QString plainText() const;
    int selectionStart() const;
    int selectionLength() const;
    /// Both are cut at the end of the text.
    void select(int start, int length);
    QString selectedText() const;
    /// Puts plain text in place of the selection and the caret behind it.
    void setSelectedText(const QString& text);
    /// The selection as a document of its own.
    QString selectedRtf() const;
    /// Puts a document's content in place of the selection and the caret behind it.
    void setSelectedRtf(const QString& rtf);

    /// The look of the selection or, with none, of what is typed next.
    SelectionFormat selectionFormat() const;
    void setFontName(const QString& name);
    void setFontSize(double points);
    void setBold(bool on);
    void setItalic(bool on);
    void setUnderline(bool on);
    void setColour(const QColor& colour); ///< an invalid one is automatic
    void setCharOffset(CharOffset offset);
    void setBullet(bool on);
    /// Name, size, bold, italic, underline and colour at once; black is automatic.
    void setSelectionFont(const FontRecord& font);

    /// Gives a box without text and objects the font for new text. That is nothing to be kept:
    /// the box stays unchanged. Answers whether the box was empty.
    bool applyDefaultFont(const FontRecord& font);

    /// The background; the text's automatic colour is what reads on it. White at first.
    void setPaper(const QColor& colour);
    QColor paper() const;

    /// The most characters that the document can be written back with, 0 for any number. Typing is
    /// not held back; pictures and objects that would be too much are not pasted.
    void setLimit(qsizetype characters) { m_limit = characters; }
    qsizetype limit() const { return m_limit; }
    /// By how many characters the document would be over its limit after a change at the selection;
    /// 0 where it would not.
    qsizetype excessAfter(const std::function<void(QTextCursor&)>& change) const;
    /// The same with a rich text in place of the selection.
    qsizetype excessWith(const QString& rtf) const;
    /// Says something at the foot of the box, and to screen readers, until an empty text.
    void setNotice(const QString& text);

    SpellingMarks& spelling() { return *m_spelling; }

signals:
    /// The document has changed, by the person or a command; not by setRtf.
    void edited();
    /// The box has the focus now.
    void entered();
    /// The person wants to see what the selected object holds.
    void objectActivated();
    /// A rich text with pictures or objects was to be pasted, and is too much for the box.
    void tooMuchPasted(const QString& rtf);
    /// The person wants the menu of the box, at a place of the screen.
    void menuWanted(const QPoint& place);

protected:
    void focusInEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    void change(const std::function<void(QTextCharFormat&)>& change);
    bool selectObjectAt(const QPoint& place);
    void makeNotice();
    void placeNotice();
    richtext::HtmlGround ground() const;

    ObjectView* m_objects;
    SpellingMarks* m_spelling;
    QLabel* m_notice = nullptr; ///< made when there is something to say
    qsizetype m_limit = 0;
    std::optional<FontRecord> m_defaultFont; ///< of the window's new text
    bool m_isLoading = false;
    bool m_isMovedWithin = false; ///< what is dropped comes from this box
};
