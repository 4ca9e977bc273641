#pragma once

#include "store/engine/database.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

/// One field of a pupil's row, and what it is to hold.
struct CellChange {
    int column;
    dao::Value value;
};
/// Fields of one pupil.
struct RowChange {
    int row;
    QList<CellChange> cells;
};

/// The records behind the class window's list of names and its grid, which a view can read as fast
/// as it paints: a row a pupil, the columns in the order of the source's fields. What is read is
/// kept; what is written is on the disk when the call returns.
///
/// The recordset stays open, so the engine refuses to change the structure of its tables (3211)
/// until Close; operations that close recordsets by their name, such as Delete_Class, leave the
/// sheet without one: it still shows what it read, and a change raises 3420.
class PupilSheet {
public:
    /// The columns of the register and the grades; from FirstOwnColumn on stand the class's own.
    enum Column { SurnameColumn, FirstnameColumn, TutorColumn, IdColumn, FirstOwnColumn };

    PupilSheet() = default; ///< no rows, no columns
    /// Opens the records of a SELECT. Raises what the engine raises, as all below.
    PupilSheet(const dao::Database& database, const QString& source);

    const QString& source() const { return m_source; }
    const dao::Recordset& records() const { return m_records; }

    int rowCount() const { return static_cast<int>(m_places.size()); }
    int columnCount() const { return static_cast<int>(m_columns.size()); }
    const QStringList& columns() const { return m_columns; } ///< the names of the fields
    int columnOf(QStringView field) const;                   ///< -1 where there is none; case-blind
    /// REQUIRES: a row and a column that the sheet has, here and below.
    const dao::Value& value(int row, int column) const {
        return m_values[static_cast<size_t>(row) * m_columns.size() + column];
    }
    QString text(int row, int column) const { return value(row, column).toText(); }
    /// The `ID` of a row's pupil. REQUIRES: a source with an `ID`.
    qint64 pupil(int row) const { return value(row, columnOf(u"ID")).toInteger(); }
    QList<qint64> pupils() const; ///< of all rows

    int rowOf(qint64 pupil) const; ///< of the `ID`; -1 where he is not among them

    /// Changes fields of one pupil, all in one update. A failure leaves them as they were, here and
    /// in the file.
    void write(int row, const QList<CellChange>& changes);
    /// Changes fields of several pupils, all or none. The recordset goes back to its first row.
    void write(const QList<RowChange>& changes);
    /// Makes the pupil of a row the recordset's current one.
    void select(int row);

    void Close();

private:
    dao::Database m_database;
    QString m_source;
    dao::Recordset m_records;
    QStringList m_columns;
    QList<dao::Bookmark> m_places; ///< of the rows
    std::vector<dao::Value> m_values;

    void readRecords();
    RowChange update(const RowChange& change);
    void keep(const RowChange& change);
};
