#pragma once

#include "core/engine_failure.h"
#include "store/engine/database.h"

#include <QList>
#include <QString>

#include <optional>
class PupilSheet;

/// The views of the class window share one set of records; here is which they are, and which pupils
/// are among them.

/// The views as showView numbers them.
enum ClassView { RegisterView = 1, GradesView = 2, PupilInformationView = 3, PupilNotesView = 4 };

/// A pupil as those picked are known: two of the same full name are not told apart.
struct PupilName {
    QString surname;
    QString firstname; ///< may be empty: none is known

    bool operator==(const PupilName&) const = default;
};
PupilName pupilName(const PupilSheet& sheet, int row);

/// The pupils picked by "Toggle Multiselect", and whether the views show them alone.
class PupilSelection {
public:
    bool isMultiSelect() const { return m_multiSelect; }
    /// Off, nobody is selected any more.
    void setMultiSelect(bool on);

    /// A click on a row of the name list: with multi-select on it adds the row's pupil, or removes
    /// him when he is there; with it off nobody is selected afterwards.
    void click(const PupilSheet& names, int row);
    /// Selects every pupil of the list, in its order.
    void bookmarkAll(const PupilSheet& names);
    const QList<PupilName>& pupils() const { return m_pupils; } ///< in the order of selection
    bool isSelected(const PupilSheet& names, int row) const;

    /// Whether the views show the selected pupils alone.
    bool isFiltered() const { return m_filtered; }
    /// The filter goes on, or is made anew; the active view then shows again.
    void toggleMultiselect() { m_filtered = !m_filtered; }

    /// A pupil has another name now: he stays picked and shown.
    void rename(const PupilName& from, const PupilName& to);

    /// The condition of a view that is about to show, " WHERE ..." or nothing for all pupils. With
    /// multi-select on the filter names the pupils selected, and from then on stays as it is; with
    /// a query active it names all pupils in `names`. While nobody is selected there is no filter.
    /// With multi-select off the filter goes.
    QString clauseForView(const PupilSheet& names, bool queryActive);

private:
    bool m_multiSelect = false;
    bool m_filtered = false;
    QList<PupilName> m_pupils;
    QList<PupilName> m_shown; ///< by the filter
};

/// The records of the first page, the information on a pupil and his notes: the names, the tutor
/// and the `ID` of each pupil, by surname. What else these views show of a pupil they read by his
/// `ID`.
QString pupilsSource(const QString& classCode, const QString& clause);
/// The records of the register or the grades: the names and the tutor of each pupil, then all
/// fields of the class's own table; by surname. `clause` as PupilSelection answers it.
QString registerSource(const QString& classCode, const QString& clause);
QString gradesSource(const QString& classCode, const QString& clause);

/// Opens the register of a class. None for a class without one, which is told. Raises what the
/// engine raises.
std::optional<PupilSheet> openRegister(const dao::Database& database, const QString& classCode,
                                       const QString& clause, Prompts& prompts);

/// The row of a pupil, by `ID`; the first where he is not there.
int rowOfPupil(const PupilSheet& sheet, std::optional<qint64> pupil);

/// The box for a failure while the class window loads.
inline constexpr FailureBox LoadingFailure{u"Error Loading Register",
                                           u"Error %1\nError number = %2", OkButton | WarningIcon};
