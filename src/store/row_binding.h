#pragma once

#include "store/kept_row.h"

#include <QList>

class Prompts;

namespace dao {
class EngineError;
}

/// What a binding needs of a box that shows a field of a row.
class BoundBox {
public:
    virtual ~BoundBox() = default;

    /// Shows what the field holds, Null as an empty text. The box counts as unchanged afterwards.
    virtual void show(const QString& text) = 0;
    /// The whole of what the field is to hold.
    virtual QString text() const = 0;
    /// Whether the person has changed what was shown.
    virtual bool dataChanged() const = 0;
    virtual void setDataChanged(bool changed) = 0;
};

/// The most characters that a limited box can write back: the whole text with its formatting.
inline constexpr qsizetype LargestBoundText = 65535;

/// Ties the boxes of a window to the fields of a recordset's current row: shows the row, and writes
/// the changed boxes back before the row is left. Only what was changed is written, so that what
/// another window does to the other fields of the row stands. A field that holds Null is not given
/// an empty text.
///
/// A row that was deleted elsewhere while somebody wrote in it is put back, with all that it held.
/// A write that fails is told and leaves every box changed, so that it can be tried again.
class RowBinding {
public:
    explicit RowBinding(Prompts& prompts) : m_prompts(prompts) {}

    /// Ties a box to a field; the box has to outlive the binding's use. A box with a name for the
    /// limit ("Period 3") takes at most LargestBoundText characters.
    void bind(const QString& field, BoundBox& box, const QString& limitName = {});
    /// Its box may not stay empty: the field keeps what it had while the row is not left, and
    /// nothing is said.
    void requireText(const QString& field) { m_required += field; }
    /// The recordset whose current row is meant from now on. What was changed has to be written
    /// before.
    void setData(const dao::Recordset& data);

    /// Shows the current row in all boxes; without one they are empty. Raises what reading raises.
    void load();
    /// A field of the row as it was shown or written last; Null without a row.
    dao::Value value(QStringView field) const;
    /// Shows anew what another window has written, in the boxes that were not changed here.
    void refresh();

    /// Writes without leaving the row. A text beyond the limit stays in its box, changed and
    /// unwritten, and so does an empty one that is required; nothing is said about it yet. A
    /// failure is told once, until a write succeeds. Answers whether nothing failed.
    bool flush();
    /// The same before the row is left or its boxes go. A text beyond the limit is given up: its
    /// box counts as unchanged, the field keeps what it had and the person is warned. Answers
    /// whether the row may be left.
    bool leave();

private:
    struct Bound {
        QString field;
        BoundBox* box;
        QString limitName;
        int column;
    };
    enum class Way { Staying, Leaving };

    bool write(Way way);
    void tellOnce(const dao::EngineError& error);
    QList<const Bound*> writableBoxes(Way way) const;
    void writeRow(const QList<const Bound*>& changed);

    Prompts& m_prompts;
    KeptRow m_row;
    QList<Bound> m_bounds;
    QStringList m_required; ///< fields that are never empty
    ToldOnce m_failure;
};
