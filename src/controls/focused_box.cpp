#include "controls/focused_box.h"

#include "controls/rich_text_box.h"

void FocusedBox::add(RichTextBox& box) {
    connect(&box, &RichTextBox::entered, this, [this, &box] { enter(box); });
    const auto tell = [this, &box] {
        if (m_box == &box)
            emit changed();
    };
    connect(&box, &RichTextBox::currentCharFormatChanged, this, tell);
    connect(&box, &RichTextBox::cursorPositionChanged, this, tell);
    connect(&box, &RichTextBox::selectionChanged, this, tell);
    connect(&box, &QObject::destroyed, this, [this, &box] {
        if (m_box != &box)
            return;
        m_box = nullptr;
        emit changed();
    });
    if (box.hasFocus())
        enter(box);
}

RichTextBox* FocusedBox::writableBox() const {
    return m_box && m_box->isEnabled() && !m_box->isReadOnly() ? m_box : nullptr;
}

void FocusedBox::enter(RichTextBox& box) {
    const bool isAnother = m_box != &box;
    m_box = &box;
    emit changed();
    if (isAnother)
        emit entered(&box);
}
