#include "seating/plan_editor.h"

#include <QUndoCommand>

using namespace Qt::StringLiterals;

/// The desks that a change was about, before and after it.
class PlanEditor::Change : public QUndoCommand {
public:
    Change(PlanEditor& editor, const QString& what, Desks before, Desks after)
        : QUndoCommand(what)
        , m_editor(editor)
        , m_before(std::move(before))
        , m_after(std::move(after)) {}
    void undo() override { m_editor.put(m_before); }
    void redo() override { m_editor.put(m_after); }

private:
    PlanEditor& m_editor;
    Desks m_before;
    Desks m_after;
};

PlanEditor::PlanEditor() = default;

void PlanEditor::show(const Desks& desks) {
    m_history.clear();
    m_desks = desks;
    emit desksChanged();
}

void PlanEditor::setPlace(qint64 desk, const QRect& place) {
    change(u"move"_s, [&](Desks& desks) { desks[deskPlace(desks, desk)].place = place; });
}

void PlanEditor::setCaption(qint64 desk, const QString& caption) {
    change(u"rename"_s, [&](Desks& desks) { desks[deskPlace(desks, desk)].caption = caption; });
}

void PlanEditor::change(const QString& what, const std::function<void(Desks&)>& work) {
    Desks changed = m_desks;
    work(changed);
    Desks before;
    Desks after;
    for (qsizetype i = 0; i < changed.size(); ++i) {
        if (changed[i] == m_desks[i])
            continue;
        before += m_desks[i];
        after += changed[i];
    }
    if (!after.isEmpty())
        m_history.push(new Change(*this, what, before, after));
}

void PlanEditor::remove(const QList<qint64>& gone) {
    if (m_desks.removeIf([&](const Desk& desk) { return gone.contains(desk.id); }) > 0)
        emit desksChanged();
}

/// Those that have gone meanwhile stay away.
void PlanEditor::put(const Desks& desks) {
    for (const Desk& desk : desks) {
        const qsizetype place = deskPlace(m_desks, desk.id);
        if (place >= 0)
            m_desks[place] = desk;
    }
    emit desksChanged();
}
