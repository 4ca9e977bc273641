#pragma once

#include "store/engine/recordset.h"

#include <QList>
#include <QStringList>

#include <utility>

/// The current row of a recordset as it was read or written last, every column of it. A row that
/// was deleted elsewhere while somebody worked on it is put back whole when it is written.
class KeptRow {
public:
    /// What a column is to hold.
    struct Change {
        int column;
        dao::Value content;
    };

    KeptRow() = default;
    /// The recordset whose current row is meant. Nothing is read yet.
    explicit KeptRow(dao::Recordset data);

    /// Whether the recordset is open and stands on a row.
    bool exists() const;
    /// The column of a field, from 0; -1 where there is none.
    int columnOf(QStringView field) const;
    /// As it was read or written last; Null without a row.
    dao::Value value(int column) const { return m_values.value(column); }

    /// Reads the current row, which may have become another one. Raises what the engine raises, as
    /// all that follows.
    void read();
    /// Reads what others have made of the row.
    void readAnew();
    /// Writes the changes, whole or not at all, and reads the row anew. After a failure the row is
    /// no longer being edited.
    void write(const QList<Change>& changes);

private:
    void edit(const QList<Change>& changes);
    void putBack(const QList<Change>& changes);

    dao::Recordset m_data;
    QStringList m_columns;
    QList<dao::Value> m_values;
};

/// How it went to leave what is shown.
enum class Leaving {
    Done,   ///< everything is written, or given up by the person
    Failed, ///< something could not be written, which has been told
    Stayed, ///< the person was asked and chose to stay
};

/// A failure that comes again and again is told once, until something succeeds.
class ToldOnce {
public:
    /// Whether to tell it now. Ask before it is shown: while a box stands on the screen the next
    /// failure may be due.
    bool first() { return !std::exchange(m_isTold, true); }
    void reset() { m_isTold = false; }

private:
    bool m_isTold = false;
};
