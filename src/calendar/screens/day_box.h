#pragma once

#include "controls/rich_text_box.h"
#include "store/row_binding.h"

/// `T1`: the box of a day in the calendar of events. In the list it has the height of one line and
/// the arrow keys lead to its neighbours; a key in a text of more lines, and Enter, let it grow,
/// and in a grown box Escape leads back. Whoever shows it moves and sizes it.
class DayBox : public RichTextBox, public BoundBox {
    Q_OBJECT

public:
    DayBox(int day, QWidget* parent);

    /// The font for new text, from the next document on.
    void setNewTextFont(const FontRecord& font);

    void show(const QString& text) override;
    QString text() const override { return rtf(); }
    bool dataChanged() const override { return RichTextBox::dataChanged(); }
    void setDataChanged(bool changed) override { RichTextBox::setDataChanged(changed); }

    bool isGrown() const { return m_isGrown; }
    void setGrown(bool grown);

signals:
    /// The box above (-1) or below (1) is wanted.
    void stepWanted(int step);
    void growthWanted();
    void restoreWanted();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    bool hasMoreLines() const;

    FontRecord m_newTextFont;
    bool m_isBlank = false; ///< shows no text, in the font for a new one
    bool m_isGrown = false;
};
