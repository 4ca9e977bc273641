#include "store/row_binding.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/error.h"

using namespace Qt::StringLiterals;

void RowBinding::bind(const QString& field, BoundBox& box, const QString& limitName) {
    m_bounds += Bound{field, &box, limitName, -1};
}

void RowBinding::setData(const dao::Recordset& data) {
    m_row = KeptRow(data);
    for (Bound& bound : m_bounds)
        bound.column = m_row.columnOf(bound.field);
}

dao::Value RowBinding::value(QStringView field) const {
    return m_row.value(m_row.columnOf(field));
}

void RowBinding::load() {
    m_row.read();
    for (const Bound& bound : m_bounds)
        bound.box->show(m_row.value(bound.column).toText());
}

void RowBinding::refresh() {
    if (!m_row.exists())
        return;
    const KeptRow before = m_row;
    m_row.readAnew();
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
    m_failure.reset();
    return write(Way::Leaving);
}

bool RowBinding::write(Way way) {
    if (!m_row.exists())
        return true;
    try {
        const QList<const Bound*> changed = writableBoxes(way);
        if (!changed.isEmpty())
            writeRow(changed);
    } catch (const dao::EngineError& error) {
        tellOnce(error);
        return false;
    }
    m_failure.reset();
    return true;
}

void RowBinding::tellOnce(const dao::EngineError& error) {
    if (m_failure.first())
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
        if (way == Way::Staying && bound.box->text().isEmpty() && m_required.contains(bound.field))
            continue;
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
    QList<KeptRow::Change> changes;
    for (const Bound* bound : changed)
        changes += {bound->column, bound->box->text()};
    m_row.write(changes);
    for (const Bound* bound : changed)
        bound->box->setDataChanged(false);
}
