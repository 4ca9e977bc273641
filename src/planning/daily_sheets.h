#pragma once

#include "planning/sheet_events.h"
#include "planning/short_term_plan.h"
#include "store/row_binding.h"

#include <QDate>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

class Session;

namespace dao {
class EngineError;
}

/// A date as the heading of a sheet gives it: "Monday  -  Sep 09 2024", in the person's language,
/// the month in three letters.
QString sheetHeading(QDate date);
/// The last 11 characters of that, the date without its weekday.
QString shortHeading(QDate date);

/// Which move from the current sheet.
enum class SheetMove { First, Previous, Next, Last };

/// How a class box looks.
struct ClassCoding {
    std::optional<qint32> colour; ///< red in the low byte; none: as a box without coding
    bool hasShortTermPlan = false;
};
inline const QString ShortTermPlanTip = QStringLiteral("Short Term Plan data available.");

/// A period of a sheet that can be planned, as the list of the short term plan names it.
struct PlannablePeriod {
    int period;
    QString caption; ///< "Period 3   Class: 7A"
};

/// The daily planning sheets of the open year, browsed in the order of their dates: the recordset
/// "SELECT * FROM Planning ORDER BY PlanDate" with the boxes that are bound to its current row.
///
/// Every operation that leaves the row writes it first, and does nothing more where that fails.
/// Operations speak to the person through the prompts; a failure of the engine is told in a box and
/// leaves the sheet that was shown. Without any sheet the state is "empty", which is no failure.
class DailySheets {
public:
    explicit DailySheets(Session& session);

    RowBinding& binding() { return m_binding; }
    /// The short term plan that lies over the sheet. Whatever leaves the row writes it too.
    ShortTermPlan& plan() { return m_plan; }
    /// Writes the row and the plan without leaving them. Answers whether nothing failed.
    bool save();
    /// The same before the row or its boxes go. Answers whether they may.
    Leaving leave();
    /// Is called whenever another row is shown or the set of rows has changed.
    void onChange(std::function<void()> changed) { m_changed = std::move(changed); }

    /// The first positioning: today's sheet. Where there is none the person is asked whether to
    /// make it; declined, it is the next sheet after today or the last one.
    void showFirst();
    /// Opens the sheets anew and goes to "First", "Last" or the sheet of a "yy-mm-dd" date, failing
    /// that to the next one after it, else to the last.
    void reopenOn(const QString& target);
    /// Goes to the sheet of a date; says so where there is none. Nothing with less than two sheets.
    /// Answers whether the sheet is shown.
    bool ShowPlan(QDate date);

    void move(SheetMove move);
    bool canMove(SheetMove move) const;
    /// Goes to the sheet of today or of the day after, which is made without asking.
    void showToday();
    void showTomorrow();
    /// A date was picked in the calendar: goes to its sheet, or asks whether to make it. Answers
    /// false where the calendar has to be set back to the sheet's date.
    bool pickDate(QDate date);

    bool isEmpty() const { return m_count == 0; }
    int count() const { return m_count; }
    QString positionText() const; ///< "12/190"; empty without a sheet
    QString planDate() const;     ///< "yy-mm-dd", the sheet's `LbDate`; empty without a sheet
    QDate date() const;           ///< of that; invalid without a sheet
    QString heading() const;      ///< empty without a sheet
    int week() const;             ///< the teaching week of the sheet
    QString classOf(int period) const;
    /// The periods that have a class.
    QList<PlannablePeriod> plannablePeriods() const;
    /// A period has been selected (0: none): its class is the session's current one.
    void selectPeriod(int period);

    /// The colour of a class; none for a code that is no class's.
    std::optional<qint32> classColour(const QString& code) const;
    /// How the class box of each period looks, from period 1 on. `isOn`: with class colours.
    QList<ClassCoding> classCoding(bool isOn) const;
    /// The plain text that the calendar of events has for the sheet's date. Empty without one; a
    /// failure is told.
    QString eventText() const;
    /// The codes of the teacher's classes, for the list of a class box.
    QStringList classCodes() const;

    /// Does with a selection what confirmEvent has asked about; what was typed is written before.
    void carryOut(SheetEvent event, const SheetSelection& selection);
    /// Deletes the sheet after asking, and shows the one behind it, else the last.
    void deleteSheet();
    /// Shows what else has changed the rows, after a bulk edit or work in another window. What
    /// stands unwritten in a box stays.
    void refresh();

private:
    void open();
    void show();
    void close();
    void tell(const QString& title, const dao::EngineError& error) const;
    void moving(const std::function<void()>& work);
    bool find(const QString& planDate);
    void walkFrom(QDate date);
    void rebind(const QString& target);
    void makeAndShow(QDate date);
    void showDay(QDate date);
    void markShortTermPlans(QList<ClassCoding>& coding) const;

    Session& m_session;
    RowBinding m_binding;
    ShortTermPlan m_plan;
    dao::Recordset m_data;
    int m_count = 0;
    QString m_shown; ///< the date of the sheet that is shown, as planDate()
    std::function<void()> m_changed;
};
