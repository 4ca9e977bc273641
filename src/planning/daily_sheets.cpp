#include "planning/daily_sheets.h"
#include "planning/sheet_making.h"

#include "calendar/event_rows.h"
#include "core/clock.h"
#include "core/dates.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "richtext/plain_text.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 GreenPanel = 0x80FF80;

/// Three letters whatever the language.
QString monthShort(QDate date) {
    return MonthName(date.month(), QLocale()).left(3);
}

QString criteriaFor(const QString& planDate) {
    return u"PlanDate = "_s + dao::writeText(planDate);
}

} // namespace

QString shortHeading(QDate date) {
    return monthShort(date) + date.toString(u" dd yyyy"_s);
}

QString sheetHeading(QDate date) {
    return QLocale().dayName(date.dayOfWeek()) + u"  -  "_s + shortHeading(date);
}

DailySheets::DailySheets(Session& session)
    : m_session(session), m_binding(session.GetSeams().prompts), m_plan(session) {}

bool DailySheets::save() {
    const bool isPlanKept = m_plan.flush();
    return m_binding.flush() && isPlanKept;
}

Leaving DailySheets::leave() {
    const Leaving plan = m_plan.leave();
    if (plan == Leaving::Done)
        return m_binding.leave();
    m_binding.flush(); // the sheet stays, but what can be kept of it is
    return plan;
}

void DailySheets::open() {
    m_data = m_session.CurrentDB.OpenRecordset(u"SELECT * FROM Planning ORDER BY PlanDate"_s);
    m_count = m_data.RecordCount();
    m_binding.setData(m_data);
}

void DailySheets::show() {
    m_binding.load();
    m_shown = planDate();
    m_session.CurrentDate = heading();
    if (m_changed)
        m_changed();
}

void DailySheets::close() {
    m_data = {};
    m_count = 0;
    m_binding.setData(m_data);
    show();
}

void DailySheets::tell(const QString& title, const dao::EngineError& error) const {
    tellFailure(m_session.GetSeams().prompts, {title}, error);
}

/// The boxes must never show another row than the one that they would be written to. So where
/// something fails on the way from one to the other, the sheet that was shown is read anew.
void DailySheets::moving(const std::function<void()>& work) {
    if (leave() != Leaving::Done)
        return;
    try {
        work();
        return;
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::RecordDeleted) // by another window: reading anew is the answer
            tell(u"Planning Sheets Error"_s, error);
    }
    try {
        rebind(m_shown);
    } catch (const dao::EngineError& error) {
        tell(u"Planning Sheets Error"_s, error);
        close();
    }
}

bool DailySheets::find(const QString& planDate) {
    return FindInRecordset(m_data, criteriaFor(planDate));
}

/// To the sheet of the date, else to the next one behind it, else to the last.
void DailySheets::walkFrom(QDate date) {
    while (!FindFirstInRecordset(m_data, criteriaFor(sheetDateText(date))) &&
           m_data.Collect(u"PlanDate").toText() > sheetDateText(date))
        date = date.addDays(1);
}

void DailySheets::rebind(const QString& target) {
    open();
    if (!isEmpty()) {
        const QDate date = sheetDate(target);
        if (target == u"Last")
            m_data.MoveLast();
        else if (date.isValid())
            walkFrom(date);
        else
            m_data.MoveFirst();
    }
    show();
}

void DailySheets::reopenOn(const QString& target) {
    moving([&] { rebind(target); });
}

void DailySheets::showFirst() {
    Prompts& prompts = m_session.GetSeams().prompts;
    moving([&] {
        open();
        if (isEmpty()) {
            show();
            prompts.msg_Box(u"There are currently no Planning Sheets to be displayed."_s,
                            OkButton | InformationIcon, u"The planning table is empty!"_s);
            return;
        }
        const QDate today = m_session.GetSeams().clock.today();
        if (!find(sheetDateText(today))) {
            BoxLook look;
            look.colour = GreenPanel;
            look.captions = {u"Yes please"_s, u"No thanks"_s};
            const BoxAnswer answer =
                prompts.msg_Box(u"There does not appear to be a current planning sheet for today!\n"
                                "Would you like to create one now?"_s,
                                YesNoButtons | QuestionIcon, u"Today"_s, look);
            if (answer == AnswerYes)
                return makeAndShow(today);
            walkFrom(today);
        }
        show();
    });
}

void DailySheets::makeAndShow(QDate date) {
    const QString planDate = sheetDateText(date);
    dao::Recordset present = m_session.CurrentDB.OpenRecordset(PlanningTable);
    present.FindFirst(criteriaFor(planDate)); // another window may have made it meanwhile
    if (present.NoMatch())
        AddNewPlan(m_session.CurrentDB, present, planDate);
    rebind(planDate);
}

bool DailySheets::ShowPlan(QDate date) {
    bool isFound = false;
    if (m_count <= 1)
        return false;
    moving([&] {
        isFound = find(sheetDateText(date));
        if (isFound)
            return show();
        m_session.GetSeams().prompts.msg_Box(
            u"Sorry but it appears that a Planning sheet for %1 doesn't exist."_s.arg(
                shortHeading(date)),
            OkButton | InformationIcon, u"Doesn't Exist"_s);
    });
    return isFound;
}

bool DailySheets::canMove(SheetMove move) const {
    const int position = m_data.isOpen() ? m_data.AbsolutePosition() : -1;
    const bool isBack = move == SheetMove::First || move == SheetMove::Previous;
    return isBack ? position > 0 : position >= 0 && position < m_count - 1;
}

void DailySheets::move(SheetMove move) {
    if (isEmpty())
        return;
    moving([&] {
        switch (move) {
        case SheetMove::First:
            m_data.MoveFirst();
            break;
        case SheetMove::Previous:
            DataMovePrevious(m_data);
            break;
        case SheetMove::Next:
            DataMoveNext(m_data);
            break;
        case SheetMove::Last:
            m_data.MoveLast();
            break;
        }
        show();
    });
}

void DailySheets::showDay(QDate date) {
    moving([&] {
        if (find(sheetDateText(date)))
            show();
        else
            makeAndShow(date);
    });
}

void DailySheets::showToday() {
    showDay(m_session.GetSeams().clock.today());
}

void DailySheets::showTomorrow() {
    showDay(m_session.GetSeams().clock.today().addDays(1));
}

bool DailySheets::pickDate(QDate date) {
    if (!date.isValid() || (!isEmpty() && date == this->date()))
        return true;
    if (m_count > 1) {
        dao::Recordset clone = m_data.Clone();
        if (FindInRecordset(clone, criteriaFor(sheetDateText(date))))
            return ShowPlan(date);
        const BoxAnswer answer = m_session.GetSeams().prompts.msg_Box(
            u"A Plan for the date : %1 does not exist!\n\nWould you like to create one?"_s.arg(
                shortHeading(date)),
            YesNoButtons | QuestionIcon, u"Create Plan"_s);
        if (answer != AnswerYes)
            return false;
    }
    moving([&] { makeAndShow(date); });
    return this->date() == date;
}

QString DailySheets::positionText() const {
    return isEmpty() ? QString() : u"%1/%2"_s.arg(m_data.AbsolutePosition() + 1).arg(m_count);
}

QString DailySheets::planDate() const {
    return isEmpty() ? QString() : m_binding.value(u"PlanDate").toText();
}

QDate DailySheets::date() const {
    return sheetDate(planDate());
}

QString DailySheets::heading() const {
    return date().isValid() ? sheetHeading(date()) : QString();
}

int DailySheets::week() const {
    return static_cast<int>(m_binding.value(u"Week").toInteger());
}

QString DailySheets::classOf(int period) const {
    return m_binding.value(classField(period)).toText();
}

QList<PlannablePeriod> DailySheets::plannablePeriods() const {
    QList<PlannablePeriod> periods;
    for (int period = 1; period <= m_session.PeriodsPerDay; ++period) {
        const QString code = classOf(period);
        if (!code.isEmpty() && ShortTermPlan::takes(period))
            periods += {period, u"Period %1   Class: %2"_s.arg(QString::number(period), code)};
    }
    return periods;
}

void DailySheets::selectPeriod(int period) {
    m_session.CurrentClass = period > 0 ? classOf(period) : QString();
    emit m_session.GetNotices().currentClassChanged();
}

std::optional<qint32> DailySheets::classColour(const QString& code) const {
    const auto found =
        std::find_if(m_session.ClassColours.begin(), m_session.ClassColours.end(),
                     [&code](const ClassColour& entry) { return dao::sameName(entry.code, code); });
    return found == m_session.ClassColours.end() ? std::nullopt : std::optional(found->colour);
}

QList<ClassCoding> DailySheets::classCoding(bool isOn) const {
    QList<ClassCoding> coding(m_session.PeriodsPerDay);
    for (int period = 1; isOn && period <= m_session.PeriodsPerDay; ++period)
        coding[period - 1].colour = classColour(classOf(period));
    try {
        markShortTermPlans(coding);
    } catch (const dao::EngineError& error) {
        tell(u"Display Color Codes Error"_s, error);
    }
    return coding;
}

/// The table comes with the first short term plan.
void DailySheets::markShortTermPlans(QList<ClassCoding>& coding) const {
    if (!TableExists(m_session.CurrentDB, STPdataTable))
        return;
    dao::Recordset plans = m_session.CurrentDB.OpenRecordset(
        u"SELECT * FROM STPdata WHERE Plandate = %1;"_s.arg(dao::writeText(planDate())),
        dao::RecordsetType::Snapshot);
    for (; !plans.EOF_(); plans.MoveNext()) {
        const int period = plans[u"Period"].text().toInt();
        if (period >= 1 && period <= coding.size())
            coding[period - 1].hasShortTermPlan = true;
    }
}

QString DailySheets::eventText() const {
    if (planDate().isEmpty())
        return {};
    try {
        const QString key = baseMonthKey(date().month(), QLocale());
        dao::Recordset months =
            m_session.CurrentDB.OpenRecordset(CalendarTable, dao::RecordsetType::Snapshot);
        for (; !months.EOF_(); months.MoveNext()) {
            if (dao::sameName(months[u"Month"].text(), key))
                return richtext::plainText(months[dayField(date().day())].text());
        }
    } catch (const dao::EngineError&) {
        m_session.GetSeams().prompts.PlainBox(u"Error obtaining Calendar of Events information."_s,
                                              OkButton | CriticalIcon, u"GetCOEinfo Error"_s);
    }
    return {};
}

QStringList DailySheets::classCodes() const {
    QStringList codes;
    for (const ClassColour& entry : m_session.ClassColours)
        codes += entry.code;
    return codes;
}

void DailySheets::deleteSheet() {
    if (isEmpty())
        return;
    Prompts& prompts = m_session.GetSeams().prompts;
    const BoxAnswer answer = prompts.msg_Box(
        u"You are about to delete the record for %1\n"
        "You will not be able to recover this record! are you sure you wish to continue?"_s.arg(
            heading()),
        YesNoButtons | WarningIcon | SecondButtonDefault, u"Delete Record"_s);
    if (answer != AnswerYes)
        return;
    moving([&] {
        const QString date = planDate();
        DataDelete(m_data);
        rebind(date);
        if (isEmpty())
            prompts.msg_Box(u"All Planning Sheets have been removed."_s, OkButton | InformationIcon,
                            u"The planning table is now empty!"_s);
    });
}

void DailySheets::carryOut(SheetEvent event, const SheetSelection& selection) {
    if (!m_binding.flush())
        return;
    try {
        if (event == SheetEvent::AddWeekly)
            addToEveryWeek(m_session.CurrentDB, selection);
        else if (event == SheetEvent::AddFortnightly)
            addToEveryOtherWeek(m_session.CurrentDB, selection);
        else
            removeFromEveryWeek(m_session.CurrentDB, selection);
    } catch (const dao::EngineError& error) {
        tell(u"Weekly Event Error"_s, error);
    }
    refresh();
}

void DailySheets::refresh() {
    if (isEmpty())
        return;
    if (!m_data
             .isOpen()) // closed under this window, as deleting a class does by a recordset's name
        return reopenOn(m_shown);
    try {
        m_binding.refresh();
        return;
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::RecordDeleted)
            return tell(u"Planning Sheets Error"_s, error);
    }
    reopenOn(m_shown); // what was typed puts the deleted sheet back first
}
