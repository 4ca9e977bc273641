#include "store/row_binding.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

void RowBinding::bind(const QString& field, BoundBox& box, const QString& limitName) {
    m_bounds += Bound{field, &box, limitName, -1};
}

void RowBinding::setData(const dao::Recordset& data) {
    m_data = data;
    m_row.clear();
    m_columns.clear();
    for (int column = 0; m_data.isOpen() && column < m_data.FieldCount(); ++column)
        m_columns += m_data.Fields(column).Name();
    for (Bound& bound : m_bounds)
        bound.column = columnOf(bound.field);
}

int RowBinding::columnOf(QStringView field) const {
    const auto found =
        std::find_if(m_columns.begin(), m_columns.end(),
                     [field](const QString& column) { return dao::sameName(column, field); });
    return found == m_columns.end() ? -1 : static_cast<int>(found - m_columns.begin());
}

dao::Value RowBinding::value(QStringView field) const {
    return m_row.value(columnOf(field));
}

bool RowBinding::hasRow() const {
    return m_data.isOpen() && m_data.AbsolutePosition() >= 0;
}

void RowBinding::keepRow() {
    m_row.clear();
    for (int column = 0; column < m_data.FieldCount(); ++column)
        m_row += m_data.Collect(column);
}

void RowBinding::load() {
    if (hasRow())
        keepRow();
    else
        m_row.clear();
    for (const Bound& bound : m_bounds)
        bound.box->show(m_row.value(bound.column).toText());
}

void RowBinding::refresh() {
    if (!hasRow())
        return;
    const QList<dao::Value> before = m_row;
    m_data.SetBookmark(m_data.Bookmark()); // reads the row anew
    keepRow();
    for (const Bound& bound : m_bounds) {
        const dao::Value now = m_row.value(bound.column);
        if (!bound.box->dataChanged() && now != before.value(bound.column))
            bound.box->show(now.toText());
    }
}

bool RowBinding::flush() {
    return write(Way::Staying);
}

bool RowBinding::leave() {
    m_failureTold = false;
    return write(Way::Leaving);
}

bool RowBinding::write(Way way) {
    if (!hasRow())
        return true;
    try {
        const QList<const Bound*> changed = writableBoxes(way);
        if (!changed.isEmpty())
            writeRow(changed);
    } catch (const dao::EngineError& error) {
        if (m_data.EditMode() != dao::EditMode::None)
            m_data.CancelUpdate();
        tellOnce(error);
        return false;
    }
    m_failureTold = false;
    return true;
}

/// Noted before it is shown: while a box stands on the screen another write may be due.
void RowBinding::tellOnce(const dao::EngineError& error) {
    if (std::exchange(m_failureTold, true))
        return;
    tellFailure(m_prompts, {u"Validate Data Error", u"validate data error : %2  %1"}, error);
}

QList<const RowBinding::Bound*> RowBinding::writableBoxes(Way way) const {
    QList<const Bound*> writable;
    for (const Bound& bound : m_bounds) {
        if (!bound.box->dataChanged())
            continue;
        if (m_row.value(bound.column).isNull() && bound.box->text().isEmpty()) {
            bound.box->setDataChanged(false); // typed and taken away again
            continue;
        }
        if (bound.limitName.isEmpty() || bound.box->text().size() <= LargestBoundText) {
            writable += &bound;
        } else if (way == Way::Leaving) {
            bound.box->setDataChanged(false);
            m_prompts.msg_Box(
                u"The data entered for %1 currently exceeds the database field limit.\n"
                "This data will not be saved in order to avoid currupting the database!"_s.arg(
                    bound.limitName),
                OkButton | WarningIcon, u"Too much data"_s);
        }
    }
    return writable;
}

void RowBinding::writeRow(const QList<const Bound*>& changed) {
    try {
        m_data.Edit();
        for (const Bound* bound : changed)
            m_data.SetCollect(bound->column, bound->box->text());
        m_data.Update();
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::RecordDeleted)
            throw;
        putRowBack(changed);
    }
    m_data.SetBookmark(m_data.Bookmark());
    keepRow();
    for (const Bound* bound : changed)
        bound->box->setDataChanged(false);
}

/// The row as it was read last, with what was changed since. Its number comes back with it, so that
/// its place in the recordset is good again.
void RowBinding::putRowBack(const QList<const Bound*>& changed) {
    dao::Recordset again = m_data.OpenRecordset();
    again.AddNew();
    for (int column = 0; column < m_row.size(); ++column) {
        if (!m_row.at(column).isNull())
            again.SetCollect(column, m_row.at(column));
    }
    for (const Bound* bound : changed)
        again.SetCollect(bound->column, bound->box->text());
    again.Update();
    again.Close();
}
