#pragma once

#include "store/row_binding.h"

#include <QColor>
#include <QComboBox>

/// The box for the class of a period: a code to type, or to choose from the teacher's classes. The
/// mouse wheel goes past it, so that scrolling over the sheet changes nothing.
class ClassBox : public QComboBox, public BoundBox {
    Q_OBJECT

public:
    ClassBox(int period, const QStringList& codes, QWidget* parent = nullptr);

    /// The codes to choose from; the text stays.
    void setCodes(const QStringList& codes);

    void show(const QString& text) override;
    QString text() const override { return currentText(); }
    bool dataChanged() const override { return m_isChanged; }
    void setDataChanged(bool changed) override { m_isChanged = changed; }

    void setPaper(const QColor& colour);

signals:
    /// The person has changed the code.
    void edited();
    /// The box has the focus now.
    void entered();

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    void makeEditable();

    bool m_isChanged = false;
};
