#pragma once

#include "seating/desk_container.h"

#include <QObject>
#include <QUndoStack>

#include <functional>

/// The plan that is shown, as long as it is not saved. Every change can be undone and done again,
/// until the plan is saved or another one is shown.
class PlanEditor : public QObject, public DeskContainer {
    Q_OBJECT

public:
    PlanEditor();

    /// Shows a plan as it is in the file.
    void show(const Desks& desks);
    const Desks& desks() const override { return m_desks; }

    void setPlace(qint64 desk, const QRect& place) override;
    void setCaption(qint64 desk, const QString& caption) override;
    /// Changes places, sizes and captions at once; `what` says how: "shuffle".
    void change(const QString& what, const std::function<void(Desks&)>& work);
    /// Takes away desks that are gone from the file, which is no change to be saved.
    void remove(const QList<qint64>& gone);

    bool isChanged() const { return !m_history.isClean(); }
    /// It is in the file as it is now.
    void setSaved() { m_history.clear(); }
    QUndoStack& history() { return m_history; }

signals:
    /// The desks are other ones, or stand elsewhere.
    void desksChanged();

private:
    class Change;
    void put(const Desks& desks);

    Desks m_desks;
    QUndoStack m_history;
};
