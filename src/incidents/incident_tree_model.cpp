#include "incidents/incident_tree_model.h"

using namespace Qt::StringLiterals;

void IncidentTreeModel::setIncidents(const QList<PupilIncidents>& incidents) {
    beginResetModel();
    m_pupils = incidents;
    endResetModel();
}

const IncidentPupil* IncidentTreeModel::pupil(const QModelIndex& index) const {
    return index.isValid() ? &m_pupils.at(groupOf(index)).pupil : nullptr;
}

const IncidentReport* IncidentTreeModel::report(const QModelIndex& index) const {
    return isMember(index) ? &m_pupils.at(groupOf(index)).reports.at(index.row()) : nullptr;
}

QModelIndex IncidentTreeModel::indexOfPupil(qint64 id) const {
    for (int group = 0; group < groupCount(); ++group) {
        if (m_pupils.at(group).pupil.id == id)
            return groupIndex(group);
    }
    return {};
}

QModelIndex IncidentTreeModel::indexOfReport(qint64 id) const {
    for (int group = 0; group < groupCount(); ++group) {
        for (int row = 0; row < memberCount(group); ++row) {
            if (m_pupils.at(group).reports.at(row).id == id)
                return memberIndex(group, row);
        }
    }
    return {};
}

int IncidentTreeModel::memberCount(int group) const {
    return static_cast<int>(m_pupils.at(group).reports.size());
}

QVariant IncidentTreeModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    const IncidentReport* incident = report(index);
    return incident ? incidentDateText(incident->date, m_dateFormat) : pupil(index)->name();
}
