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

void PupilSheet::select(int row) {
    m_records.SetBookmark(m_places[row]);
}

void PupilSheet::update(int row, const QList<CellChange>& changes) {
    select(row);
    m_records.Edit();
    try {
        for (const CellChange& change : changes)
            m_records.SetCollect(change.column, change.value);
        m_records.Update();
    } catch (const dao::EngineError&) {
        m_records.CancelUpdate();
        throw;
    }
}

void PupilSheet::keep(int row, const CellChange& change) {
    m_values[static_cast<size_t>(row) * m_columns.size() + change.column] = change.value;
}

void PupilSheet::write(int row, const QList<CellChange>& changes) {
    update(row, changes);
    // As the field holds it, which may be another type's form of the value.
    for (const CellChange& change : changes)
        keep(row, {change.column, m_records.Collect(change.column)});
}

void PupilSheet::fill(const QList<int>& rows, int column, const dao::Value& value) {
    dao::Transaction transaction(m_database);
    for (const int row : rows)
        update(row, {{column, value}});
    transaction.commit();
    for (const int row : rows)
        keep(row, {column, value});
    if (rowCount() > 0)
        m_records.MoveFirst();
}

void PupilSheet::Close() {
    m_records.Close();
}
