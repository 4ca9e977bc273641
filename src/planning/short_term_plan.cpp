#include "planning/short_term_plan.h"

#include "core/engine_failure.h"
#include "core/session.h"
#include "core/settings.h"
#include "planning/plan_choices.h"
#include "planning/planning_settings.h"
#include "richtext/plain_text.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int LastPeriod = 9;
constexpr QStringView FailureTitle = u"Short Term Plan Error";

const QString dateField = u"PlanDate"_s;
const QString periodField = u"Period"_s;
const QString subjectField = u"Subject"_s;

/// The box of a text field as the row's binding sees it: with no text it has nothing to write.
class FilledBox : public BoundBox {
public:
    explicit FilledBox(BoundBox& box) : m_box(box) {}

    void show(const QString& text) override { m_box.show(text); }
    QString text() const override { return m_box.text(); }
    bool dataChanged() const override { return m_box.dataChanged() && !text().isEmpty(); }
    void setDataChanged(bool changed) override { m_box.setDataChanged(changed); }

private:
    BoundBox& m_box;
};

dao::Recordset plansOf(const dao::Database& database, const QString& planDate, int period) {
    return database.OpenRecordset(
        u"SELECT * FROM STPdata WHERE Plandate = %1 AND Period = %2;"_s.arg(
            dao::writeText(planDate), dao::writeText(QString::number(period))));
}

bool hasContent(const dao::Recordset& plan) {
    for (int column = 0; column < plan.FieldCount(); ++column) {
        const dao::RecordsetField field = plan.Fields(column);
        if (dao::sameName(field.Name(), dateField) || dao::sameName(field.Name(), periodField))
            continue;
        const bool isMemo = field.Type() == dao::DataType::Memo;
        const QString text = isMemo ? richtext::plainText(field.text()) : field.text();
        if (!text.isEmpty())
            return true;
    }
    return false;
}

} // namespace

void Check_STPdata(const dao::Database& database) {
    if (!TableExists(database, STPdataTable))
        database.TableDefs().Append(schemaTableDef(Table::STPdata));
}

void Clean_STP(const dao::Database& database, const QString& planDate, int period) {
    for (dao::Recordset plans = plansOf(database, planDate, period); !plans.EOF_();
         plans.MoveNext()) {
        if (!hasContent(plans))
            plans.Delete();
    }
}

ShortTermPlan::ShortTermPlan(Session& session)
    : m_session(session), m_binding(session.GetSeams().prompts) {}

ShortTermPlan::~ShortTermPlan() = default;

bool ShortTermPlan::takes(int period) {
    return period >= 1 && period <= LastPeriod;
}

int ShortTermPlan::longestText(QStringView field) {
    return schemaField(Table::STPdata, field).Size;
}

void ShortTermPlan::bind(const QString& field, BoundBox& box) {
    Bound bound{field, &box, nullptr};
    if (schemaField(Table::STPdata, field).Type == dao::DataType::Text)
        bound.filled = std::make_unique<FilledBox>(box);
    m_binding.bind(field, bound.seen());
    m_bounds.push_back(std::move(bound));
}

dao::Recordset ShortTermPlan::plans() const {
    return plansOf(m_session.CurrentDB, m_planDate, m_period);
}

bool ShortTermPlan::open(const QString& planDate, int period) {
    close();
    return tryTelling(m_session.GetSeams().prompts, {FailureTitle}, [&] {
        Check_STPdata(m_session.CurrentDB);
        m_data = plansOf(m_session.CurrentDB, planDate, period);
        m_binding.setData(m_data);
        m_binding.load();
        m_planDate = planDate;
        m_period = period;
        if (m_data.RecordCount() == 0)
            showDefaults();
    });
}

/// The defaults that the person has set are what the plan holds. The subject that was used last is
/// only proposed, so that a plan that was looked at does not stay for it alone.
void ShortTermPlan::showDefaults() {
    const Settings& settings = m_session.GetSettings();
    const std::optional<QString> subject = settings.find(setting::STP_Subject);
    begin(subjectField, subject.value_or(settings.get(setting::LastUsedSubject)),
          subject.has_value());
    const qint32 term = settings.find(setting::STP_Term).value_or(-1);
    begin(u"Term", termChoices(m_session.TermCount).value(term));
    begin(u"Ability", settings.get(setting::STP_Ability));
    begin(u"POS", settings.get(setting::STP_Unit));
    std::optional<QString> starter = settings.find(setting::STP_Time1);
    const std::optional<QString> main = settings.find(setting::STP_Time2);
    const std::optional<QString> plenary = settings.find(setting::STP_Time3);
    if (!starter && !main && !plenary)
        starter = settings.find(setting::STP_Time);
    begin(u"StartTime", starter.value_or(QString()));
    begin(u"MainTime", main.value_or(QString()));
    begin(u"PlenaryTime", plenary.value_or(QString()));
}

void ShortTermPlan::begin(QStringView field, const QString& text, bool isContent) {
    for (const Bound& bound : m_bounds) {
        if (bound.field != field)
            continue;
        bound.box->show(text);
        bound.box->setDataChanged(isContent && !text.isEmpty());
    }
}

bool ShortTermPlan::flush() {
    if (!isOpen())
        return true;
    if (!prepare() || !m_binding.flush())
        return false;
    rememberSubject();
    return true;
}

Leaving ShortTermPlan::leave() {
    m_failure.reset();
    if (!isOpen())
        return Leaving::Done;
    if (!prepare())
        return Leaving::Failed;
    const Leaving row = m_binding.leave();
    if (row == Leaving::Done)
        rememberSubject();
    return row;
}

/// Answers whether there is a row to write to, where one is needed; a failure is told once.
bool ShortTermPlan::prepare() {
    try {
        prepareRow();
    } catch (const dao::EngineError& error) {
        if (m_failure.first())
            tellFailure(m_session.GetSeams().prompts, {FailureTitle}, error);
        return false;
    }
    m_failure.reset();
    return true;
}

void ShortTermPlan::prepareRow() {
    if (!m_data.isOpen())
        use(plans()); // closed under this plan, as deleting a class does by a recordset's name
    const bool isChanged = std::any_of(m_bounds.begin(), m_bounds.end(), [](const Bound& bound) {
        return bound.seen().dataChanged();
    });
    if (isChanged && m_data.RecordCount() == 0)
        addRow();
}

void ShortTermPlan::addRow() {
    dao::Recordset added = plans();
    added.AddNew();
    added.SetCollect(dateField, m_planDate);
    added.SetCollect(periodField, QString::number(m_period));
    added.Update();
    use(plans());
    for (const Bound& bound : m_bounds) {
        if (bound.filled)
            bound.box->setDataChanged(true); // what was only proposed is the plan's from now on
    }
}

/// Goes on with a recordset opened anew; what was changed stays in its box.
void ShortTermPlan::use(const dao::Recordset& plans) {
    m_data = plans;
    m_binding.setData(m_data);
    m_binding.refresh();
}

void ShortTermPlan::rememberSubject() {
    const auto subject = std::find_if(m_bounds.begin(), m_bounds.end(), [](const Bound& bound) {
        return bound.field == subjectField;
    });
    if (subject == m_bounds.end() || m_data.RecordCount() == 0)
        return;
    const QString text = subject->box->text();
    Settings& settings = m_session.GetSettings();
    if (!text.isEmpty() && text != settings.get(setting::LastUsedSubject))
        settings.set(setting::LastUsedSubject, text);
}

void ShortTermPlan::close() {
    if (!isOpen())
        return;
    tryTelling(m_session.GetSeams().prompts, {FailureTitle},
               [this] { Clean_STP(m_session.CurrentDB, m_planDate, m_period); });
    m_period = 0;
    m_data = {};
    m_binding.setData(m_data);
}
