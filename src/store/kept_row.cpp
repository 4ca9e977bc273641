#include "store/kept_row.h"

#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>

KeptRow::KeptRow(dao::Recordset data) : m_data(std::move(data)) {
    for (int column = 0; m_data.isOpen() && column < m_data.FieldCount(); ++column)
        m_columns += m_data.Fields(column).Name();
}

bool KeptRow::exists() const {
    return m_data.isOpen() && m_data.AbsolutePosition() >= 0;
}

int KeptRow::columnOf(QStringView field) const {
    const auto found =
        std::find_if(m_columns.begin(), m_columns.end(),
                     [field](const QString& column) { return dao::sameName(column, field); });
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

void KeptRow::read() {
    m_values.clear();
    for (int column = 0; exists() && column < m_columns.size(); ++column)
        m_values += m_data.Collect(column);
}

void KeptRow::readAnew() {
    m_data.SetBookmark(m_data.Bookmark());
    read();
}

void KeptRow::write(const QList<Change>& changes) {
    try {
        edit(changes);
    } catch (const dao::EngineError& error) {
        if (m_data.isOpen() && m_data.EditMode() != dao::EditMode::None)
            m_data.CancelUpdate();
        if (error.number() != dao::RecordDeleted)
            throw;
        putBack(changes);
    }
    readAnew();
}

void KeptRow::edit(const QList<Change>& changes) {
    m_data.Edit();
    for (const Change& change : changes)
        m_data.SetCollect(change.column, change.content);
    m_data.Update();
}

/// Its number comes back with it, so that its place in the recordset is good again.
void KeptRow::putBack(const QList<Change>& changes) {
    dao::Recordset again = m_data.OpenRecordset();
    again.AddNew();
    for (int column = 0; column < m_values.size(); ++column) {
        if (!m_values.at(column).isNull())
            again.SetCollect(column, m_values.at(column));
    }
    for (const Change& change : changes)
        again.SetCollect(change.column, change.content);
    again.Update();
    again.Close();
}
