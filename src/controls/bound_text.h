#pragma once

#include "store/row_binding.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextDocument>

/// Plain boxes as the binding of a row sees them.

class BoundLine : public BoundBox {
public:
    explicit BoundLine(QLineEdit& box) : m_box(box) {}

    void show(const QString& text) override { m_box.setText(text); }
    QString text() const override { return m_box.text(); }
    bool dataChanged() const override { return m_box.isModified(); }
    void setDataChanged(bool changed) override { m_box.setModified(changed); }

private:
    QLineEdit& m_box;
};

class BoundPlainText : public BoundBox {
public:
    explicit BoundPlainText(QPlainTextEdit& box) : m_box(box) {}

    void show(const QString& text) override {
        m_box.setPlainText(text);
        setDataChanged(false);
    }
    QString text() const override { return m_box.toPlainText(); }
    bool dataChanged() const override { return m_box.document()->isModified(); }
    void setDataChanged(bool changed) override { m_box.document()->setModified(changed); }

private:
    QPlainTextEdit& m_box;
};
