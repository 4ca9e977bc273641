#pragma once

#include "controls/rich_text_box.h"
#include "store/row_binding.h"

/// A rich text box as the binding of a row sees it.
class BoundRichText : public BoundBox {
public:
    explicit BoundRichText(RichTextBox& box) : m_box(box) {}

    void show(const QString& text) override { m_box.setRtf(text); }
    QString text() const override { return m_box.rtf(); }
    bool dataChanged() const override { return m_box.dataChanged(); }
    void setDataChanged(bool changed) override { m_box.setDataChanged(changed); }
    void setLimit(qsizetype characters) override { m_box.setLimit(characters); }
    void setNotice(const QString& text) override { m_box.setNotice(text); }

private:
    RichTextBox& m_box;
};
