#include "classes/class_views.h"

#include "classes/pupil_sheet.h"
#include "core/prompts.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString condition(const PupilName& name) {
    const QString surname = u"Surname = "_s + dao::writeText(name.surname);
    const QString firstname = u"Firstname = "_s + dao::writeText(name.firstname);
    // A name that is not known may be Null in the file, which equals no text.
    return surname + u" AND "_s +
           (name.firstname.isEmpty() ? u"(Firstname Is Null OR %1)"_s.arg(firstname) : firstname);
}

QString clauseOf(const QList<PupilName>& pupils) {
    QStringList conditions;
    for (const PupilName& pupil : pupils)
        conditions += condition(pupil);
    return conditions.isEmpty() ? QString() : u" WHERE "_s + conditions.join(u" OR "_s);
}

QString joinedSource(const QString& classCode, const QString& ownTable, const QString& clause) {
    return u"SELECT %1.Surname,%1.Firstname,%1.Tutor,%2.* FROM %1 INNER JOIN %2 ON %1.ID = %2.ID"_s
               .arg(dao::writeName(classTable(classCode)), dao::writeName(ownTable)) +
           clause + u" order by Surname;"_s;
}

} // namespace

PupilName pupilName(const PupilSheet& sheet, int row) {
    return {sheet.text(row, PupilSheet::SurnameColumn),
            sheet.text(row, PupilSheet::FirstnameColumn)};
}

void PupilSelection::setMultiSelect(bool on) {
    m_multiSelect = on;
    if (!on)
        m_pupils.clear();
}

void PupilSelection::click(const PupilSheet& names, int row) {
    if (!m_multiSelect)
        m_pupils.clear();
    else if (!m_pupils.removeOne(pupilName(names, row)))
        m_pupils += pupilName(names, row);
}

void PupilSelection::bookmarkAll(const PupilSheet& names) {
    m_pupils.clear();
    for (int row = 0; row < names.rowCount(); ++row)
        m_pupils += pupilName(names, row);
}

bool PupilSelection::isSelected(const PupilSheet& names, int row) const {
    return m_pupils.contains(pupilName(names, row));
}

QString PupilSelection::clauseForView(const PupilSheet& names, bool queryActive) {
    if (!m_multiSelect) {
        m_filtered = false;
        m_shown.clear();
        return {};
    }
    if (queryActive)
        bookmarkAll(names);
    if (queryActive || !m_filtered || m_shown.isEmpty())
        m_shown = m_pupils;
    m_filtered = true;
    return clauseOf(m_shown);
}

void PupilSelection::rename(const PupilName& from, const PupilName& to) {
    std::replace(m_pupils.begin(), m_pupils.end(), from, to);
    std::replace(m_shown.begin(), m_shown.end(), from, to);
}

QString pupilsSource(const QString& classCode, const QString& clause) {
    return u"SELECT Surname,Firstname,Tutor,ID FROM %1"_s.arg(
               dao::writeName(classTable(classCode))) +
           clause + u" order by Surname;"_s;
}

QString registerSource(const QString& classCode, const QString& clause) {
    return joinedSource(classCode, registerTable(classCode), clause);
}

QString gradesSource(const QString& classCode, const QString& clause) {
    return joinedSource(classCode, marksTable(classCode), clause);
}

std::optional<PupilSheet> openRegister(const dao::Database& database, const QString& classCode,
                                       const QString& clause, Prompts& prompts) {
    if (!database.TableDefs().Contains(registerTable(classCode))) {
        prompts.PlainBox(u"Sorry but no teaching periods were selected\n"
                         "for this Class and as such there is no register to display."_s,
                         OkButton | InformationIcon, u"No Register available"_s);
        return std::nullopt;
    }
    return PupilSheet(database, registerSource(classCode, clause));
}

int rowOfPupil(const PupilSheet& sheet, std::optional<qint64> pupil) {
    return pupil ? std::max(0, sheet.rowOf(*pupil)) : 0;
}
