#include "planning/lesson_search.h"

#include "core/session.h"
#include "richtext/plain_text.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The columns of the rows that are read.
enum SheetColumn { SheetDateColumn, SheetIdColumn, FirstBoxColumn };

} // namespace

LessonSearch::LessonSearch(const Session& session, const LessonQuery& query)
    : m_session(session)
    , m_query(query)
    , m_matcher(query.text, query.matchesCase ? Qt::CaseSensitive : Qt::CaseInsensitive) {}

/// Anew for each hunt from one hit to the next, and where the rows were closed under it, as
/// deleting a class does by a recordset's name.
void LessonSearch::open() {
    QStringList columns{u"PlanDate"_s, u"ID"_s};
    for (int period = 1; period <= m_session.PeriodsPerDay; ++period)
        columns += fieldOf({m_query.box, period});
    QString rest;
    if (m_next.sheet > 0)
        rest = u" WHERE PlanDate > %1 OR (PlanDate = %1 AND ID >= %2)"_s.arg(
            dao::writeText(m_next.planDate), QString::number(m_next.sheet));
    m_rows = m_session.CurrentDB.OpenRecordset(
        u"SELECT %1 FROM %2%3 ORDER BY PlanDate"_s.arg(columns.join(u", "_s), PlanningTable, rest));
    m_left = m_rows.RecordCount();
    m_count = std::max(m_count, m_left);
}

LessonSearch::State LessonSearch::lookOn() {
    if (!m_rows.isOpen())
        open();
    if (m_rows.EOF_()) {
        m_rows = {};
        return State::Ended;
    }
    try {
        if (lookThroughSheet())
            return State::Found;
    } catch (const dao::EngineError& error) {
        if (error.number() != dao::RecordDeleted) // meanwhile, by a window
            throw;
    }
    m_rows.MoveNext();
    --m_left;
    return State::Looking;
}

/// Answers whether there is a hit. The rows go with it, so that they hinder nobody until the next
/// hunt.
bool LessonSearch::lookThroughSheet() {
    const qint64 sheet = m_rows.Collect(SheetIdColumn).toInteger();
    if (sheet != m_next.sheet)
        m_next = {m_rows.Collect(SheetDateColumn).toText(), sheet, 1};
    while (m_next.period <= m_session.PeriodsPerDay) {
        const int period = m_next.period++;
        const QString text =
            richtext::plainText(m_rows.Collect(FirstBoxColumn + period - 1).toText());
        const qsizetype position = m_matcher.indexIn(text);
        if (position < 0)
            continue;
        m_hit = {m_next.planDate, period, position};
        m_rows = {};
        return true;
    }
    return false;
}

int LessonSearch::percentDone() const {
    constexpr int whole = 100;
    return m_count > 0 ? whole * (m_count - m_left) / m_count : 0;
}
