#include "classes/class_desk.h"

#include "calendar/class_colours.h"
#include "core/session.h"

ClassDesk::ClassDesk(Session& session) : m_session(session) {}

void ClassDesk::updateTables() {
    release();
    UpdateClassTables(m_session.CurrentDB);
}

void ClassDesk::refreshClasses(const QString& select) {
    LoadClassColours(m_session);
    m_classes = m_session.ClassColours;
    const int index = qMax(0, classIndex(m_classes, select));
    selectClass(m_classes.isEmpty() ? QString() : m_classes[index].code);
}

void ClassDesk::selectClass(const QString& classCode) {
    m_classCode = classCode;
    m_currentPupil.reset();
    showFirstPage();
}

void ClassDesk::showFirstPage() {
    m_selection = PupilSelection();
    m_queryActive = false;
    m_view.reset();
    m_records.history().clear();
    show(m_classCode.isEmpty() ? PupilSheet()
                               : PupilSheet(m_session.CurrentDB, pupilsSource(m_classCode, {})));
}

bool ClassDesk::showView(ClassView view) {
    const QString clause = m_selection.clauseForView(sheet(), m_queryActive);
    std::optional<PupilSheet> sheet = open(view, clause);
    if (!sheet)
        return false;
    m_queryActive = m_queryActive && m_selection.isMultiSelect();
    if (m_view != view)
        m_records.history().clear();
    m_view = view;
    show(*std::move(sheet));
    return true;
}

std::optional<PupilSheet> ClassDesk::open(ClassView view, const QString& clause) const {
    const dao::Database& database = m_session.CurrentDB;
    switch (view) {
    case RegisterView:
        return openRegister(database, m_classCode, clause, m_session.GetSeams().prompts);
    case GradesView:
        return PupilSheet(database, gradesSource(m_classCode, clause));
    case PupilInformationView:
    case PupilNotesView:
        break;
    }
    return PupilSheet(database, pupilsSource(m_classCode, clause));
}

void ClassDesk::show(PupilSheet sheet) {
    const int row = sheet.rowCount() > 0 ? rowOfPupil(sheet, m_currentPupil) : -1;
    m_records.setSheet(std::move(sheet));
    setCurrentRow(row);
}

void ClassDesk::release() {
    // Who fits a query is read from the records while they are there.
    if (m_queryActive && m_selection.isMultiSelect())
        m_selection.clauseForView(sheet(), true);
    m_queryActive = false;
    const std::optional<qint64> pupil = m_currentPupil;
    m_records.setSheet({});
    m_currentRow = -1;
    m_currentPupil = pupil;
}

void ClassDesk::setCurrentRow(int row) {
    m_currentRow = row;
    if (row >= 0)
        m_currentPupil = sheet().pupil(row);
}

void ClassDesk::renameCurrent(const PupilName& name) {
    m_selection.rename(pupilName(sheet(), m_currentRow), name);
}

std::optional<qint64> ClassDesk::currentPupil() const {
    return m_currentRow < 0 ? std::nullopt : m_currentPupil;
}

void ClassDesk::showQuery(const QString& query, bool picks) {
    PupilSheet sheet(m_session.CurrentDB, query);
    m_queryActive = m_queryActive || picks;
    show(std::move(sheet));
}
