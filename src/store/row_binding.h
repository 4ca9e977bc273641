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

    /// The most characters that can be written back, for a box that can refuse what would be too
    /// much.
    virtual void setLimit(qsizetype /*characters*/) {}
    /// Says beside the box that what it shows is not saved, until the text is empty.
    virtual void setNotice(const QString& /*text*/) {}
};

/// The most characters that a limited box can write back: the whole text with its formatting.
inline constexpr qsizetype LargestBoundText = 65535;
/// What stands beside a box whose text of so many characters is too long to be written.
QString tooLongNotice(qsizetype characters);

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
    /// limit ("Period 3") can write at most LargestBoundText characters.
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
    /// unwritten, and its box says so until it fits; an empty one that is required stays too, and
    /// nothing is said yet. A failure is told once, until a write succeeds. Answers whether nothing
    /// failed.
    bool flush();
    /// The same before the row is left or its boxes go. For each text beyond the limit the person
    /// is asked; only where none is to be kept are they given up: their boxes count as unchanged,
    /// the fields keep what they had.
    Leaving leave();

private:
    enum class Way { Staying, Leaving };
    struct Bound {
        QString field;
        BoundBox* box;
        QString limitName;
        int column = -1;
        bool isTooLong = false; ///< as was seen last
    };
    /// A box with the text that its field is to hold.
    struct Typed {
        BoundBox* box;
        KeptRow::Change change;
    };

    void show(Bound& bound);
    void tellOnce(const dao::EngineError& error);
    bool write(Way way);
    QList<Typed> writableTexts(Way way);
    void writeRow(const QList<Typed>& typed);
    bool mayGiveUp(const Bound& bound) const;

    Prompts& m_prompts;
    KeptRow m_row;
    QList<Bound> m_bounds;
    QStringList m_required; ///< fields that are never empty
    ToldOnce m_failure;
};
