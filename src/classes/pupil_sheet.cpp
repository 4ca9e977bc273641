#include "classes/pupil_sheet.h"

#include "store/engine/error.h"
#include "store/engine/names.h"

PupilSheet::PupilSheet(const dao::Database& database, const QString& source)
    : m_database(database), m_source(source), m_records(database.OpenRecordset(source)) {
    for (int column = 0; column < m_records.FieldCount(); ++column)
        m_columns += m_records.Fields(column).SourceField();
    readRecords();
}

void PupilSheet::readRecords() {
    m_values.reserve(static_cast<size_t>(m_records.RecordCount()) * m_columns.size());
    for (; !m_records.EOF_(); m_records.MoveNext()) {
        m_places += m_records.Bookmark();
        for (int column = 0; column < columnCount(); ++column)
            m_values.push_back(m_records.Collect(column));
    }
    if (rowCount() > 0)
        m_records.MoveFirst();
}

int PupilSheet::columnOf(QStringView field) const {
    for (int column = 0; column < columnCount(); ++column) {
        if (dao::sameName(m_columns[column], field))
            return column;
    }
    return -1;
}

QList<qint64> PupilSheet::pupils() const {
    QList<qint64> all;
    for (int row = 0; row < rowCount(); ++row)
        all += pupil(row);
    return all;
}

int PupilSheet::rowOf(qint64 sought) const {
    for (int row = 0; row < rowCount(); ++row) {
        if (pupil(row) == sought)
            return row;
    }
    return -1;
}

void PupilSheet::select(int row) {
    m_records.SetBookmark(m_places[row]);
}

/// Answers the change as the fields hold it, which may be another type's form of the values.
RowChange PupilSheet::update(const RowChange& change) {
    select(change.row);
    m_records.Edit();
    try {
        for (const CellChange& cell : change.cells)
            m_records.SetCollect(cell.column, cell.value);
        m_records.Update();
    } catch (const dao::EngineError&) {
        m_records.CancelUpdate();
        throw;
    }
    RowChange held{change.row, {}};
    for (const CellChange& cell : change.cells)
        held.cells.append({cell.column, m_records.Collect(cell.column)});
    return held;
}

void PupilSheet::keep(const RowChange& change) {
    for (const CellChange& cell : change.cells)
        m_values[static_cast<size_t>(change.row) * m_columns.size() + cell.column] = cell.value;
}

void PupilSheet::write(int row, const QList<CellChange>& changes) {
    keep(update({row, changes}));
}

void PupilSheet::write(const QList<RowChange>& changes) {
    dao::Transaction transaction(m_database);
    QList<RowChange> held;
    for (const RowChange& change : changes)
        held += update(change);
    transaction.commit();
    for (const RowChange& change : std::as_const(held))
        keep(change);
    if (rowCount() > 0)
        m_records.MoveFirst();
}

void PupilSheet::Close() {
    m_records.Close();
}
