#include "classes/cell_history.h"

void CellHistory::add(const Step& step) {
    m_steps.resize(m_done);
    m_steps += step;
    ++m_done;
}

void CellHistory::renameField(const QString& from, const QString& to) {
    for (Step& step : m_steps) {
        for (PupilEdit& edit : step) {
            if (edit.field == from)
                edit.field = to;
        }
    }
}

void CellHistory::forgetFields(const QStringList& fields) {
    for (qsizetype i = m_steps.size() - 1; i >= 0; --i) {
        m_steps[i].removeIf([&](const PupilEdit& edit) { return fields.contains(edit.field); });
        if (!m_steps[i].isEmpty())
            continue;
        m_steps.removeAt(i);
        if (i < m_done)
            --m_done;
    }
}

void CellHistory::clear() {
    m_steps.clear();
    m_done = 0;
}
