#pragma once

#include "core/two_level_model.h"
#include "incidents/incident_rows.h"

#include <utility>

/// The pupils with reports, and below each the dates of the reports.
class IncidentTreeModel : public TwoLevelModel {
    Q_OBJECT

public:
    /// `dateFormat`: the person's short one, as QLocale writes formats.
    explicit IncidentTreeModel(QString dateFormat, QObject* parent = nullptr)
        : TwoLevelModel(parent), m_dateFormat(std::move(dateFormat)) {}

    void setIncidents(const QList<PupilIncidents>& incidents);
    bool isEmpty() const { return m_pupils.isEmpty(); }
    /// The pupil at a place of the tree, or whose report is there; null for no place.
    const IncidentPupil* pupil(const QModelIndex& index) const;
    /// The report at a place; null for a pupil.
    const IncidentReport* report(const QModelIndex& index) const;
    QModelIndex indexOfPupil(qint64 id) const; ///< an invalid one where it is not there
    QModelIndex indexOfReport(qint64 id) const;

    QVariant data(const QModelIndex& index, int role) const override;

protected:
    int groupCount() const override { return static_cast<int>(m_pupils.size()); }
    int memberCount(int group) const override;

private:
    QString m_dateFormat;
    QList<PupilIncidents> m_pupils;
};
