#pragma once

#include "classes/class_list.h"
#include "classes/class_views.h"
#include "classes/pupil_sheet_model.h"

#include <optional>

class Session;

/// What the class window works on: the classes of the year, the one that is selected, and the
/// records of its pupils that the list of names and the view's grid share.
///
/// Two states. The first page: no view, all pupils of the class. A view: the records of that view,
/// of the pupils picked; what is done to them can be undone as long as the view stays. Operations
/// raise what the engine raises; after a failure to show a view the records of before still stand.
class ClassDesk {
public:
    explicit ClassDesk(Session& session);

    /// Brings the classes' tables up to date: on loading, and for a class that was just made. Shows
    /// nobody until refreshClasses.
    void updateTables();
    /// Lists the classes anew after one has come or gone, and selects that code, else the first.
    void refreshClasses(const QString& select);
    const QList<ClassColour>& classes() const { return m_classes; }

    /// Selects a class: its first page, nobody picked, no query. An empty code selects none.
    void selectClass(const QString& classCode);
    const QString& classCode() const { return m_classCode; } ///< empty while none is selected
    /// Goes from a view back to the first page, with all pupils.
    void showFirstPage();

    /// The view that shows; none on the first page.
    std::optional<ClassView> view() const { return m_view; }
    /// Opens the records of a view. The current pupil stays current where he is among them. Answers
    /// false, having said why, where there is nothing to show.
    bool showView(ClassView view);
    /// Closes the records, so that the structure of the class's tables can change: the views show
    /// nobody until showView, or showFirstPage, which takes up the current pupil again.
    void release();

    PupilSheetModel& records() { return m_records; }
    const PupilSheet& sheet() const { return m_records.sheet(); }
    PupilSelection& selection() { return m_selection; }

    /// The row of the current pupil; -1 while there is nobody.
    int currentRow() const { return m_currentRow; }
    void setCurrentRow(int row);
    /// The current pupil has another name now; the records show it when they are opened next.
    /// REQUIRES: a current pupil.
    void renameCurrent(const PupilName& name);
    /// The current pupil is gone; the first of those left is the next one.
    void forgetCurrent() { m_currentPupil.reset(); }
    /// The `ID` of the current pupil.
    std::optional<qint64> currentPupil() const;

    /// The text of the current query: what the records were opened with.
    const QString& query() const { return sheet().source(); }
    /// Whether a query of the teacher's picks the pupils that show.
    bool isQueryActive() const { return m_queryActive; }
    /// Makes a text the current query of the view: a query of the teacher's (`picks`), or the same
    /// pupils in another order.
    void showQuery(const QString& query, bool picks);

private:
    std::optional<PupilSheet> open(ClassView view, const QString& clause) const;
    void show(PupilSheet sheet);

    Session& m_session;
    QList<ClassColour> m_classes;
    QString m_classCode;
    std::optional<ClassView> m_view;
    PupilSheetModel m_records;
    PupilSelection m_selection;
    /// An `ID`, since two pupils may have one name; lasts while the records are opened anew.
    std::optional<qint64> m_currentPupil;
    int m_currentRow = -1;
    bool m_queryActive = false;
};
