#pragma once

#include "store/engine/value.h"

#include <QList>
#include <QString>
#include <QStringList>

/// One field of a pupil's record, and what a change made of it.
struct PupilEdit {
    qint64 pupil; ///< `ID`
    QString field;
    dao::Value before;
    dao::Value after;
};

/// What has been done to the records of a view, step by step, so that it can be undone and done
/// again. It says what is to be written and writes nothing: who has written a step moves on by
/// `undone` and `redone`.
class CellHistory {
public:
    using Step = QList<PupilEdit>; ///< done at once: a double lesson, a filled column

    /// A step has been done: what was undone before can't be redone any more.
    void add(const Step& step);
    /// The step to take back next, and the one to do again next; empty where there is none.
    Step toUndo() const { return m_done > 0 ? m_steps[m_done - 1] : Step(); }
    Step toRedo() const { return m_done < m_steps.size() ? m_steps[m_done] : Step(); }
    void undone() { --m_done; } ///< REQUIRES: there was one to undo
    void redone() { ++m_done; } ///< REQUIRES: there was one to redo

    /// A field has another name, or some are gone with what was in them.
    void renameField(const QString& from, const QString& to);
    void forgetFields(const QStringList& fields);
    void clear();

private:
    QList<Step> m_steps;
    qsizetype m_done = 0; ///< so many of them stand in the file, the others are undone
};
