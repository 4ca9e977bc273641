#pragma once

#include "store/engine/structure.h"

#include <QPlainTextEdit>

/// The box in which a grade is typed, in its cell. It takes no more characters than the field.
/// Return makes a new line in a memo; in a text, where Return leads to the next pupil, Shift+Return
/// does.
class GradeEditor : public QPlainTextEdit {
    Q_OBJECT

public:
    /// `size`: characters that a Text holds; says nothing of other types.
    GradeEditor(dao::DataType type, int size, QWidget* parent);

    /// Whether a key leads out of the cell: Tab, Return where it is no new line, Up from the first
    /// line and Down from the last.
    bool leadsOut(const QKeyEvent& key) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool isNewLine(const QKeyEvent& key) const;
    void cutToSize();

    dao::DataType m_type;
    int m_size;
    int m_endOfAdded = 0; ///< where the text that came last ends
};
