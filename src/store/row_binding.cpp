#include "store/row_binding.h"

#include "core/engine_failure.h"
#include "core/prompts.h"
#include "store/engine/error.h"

#include <QLocale>

using namespace Qt::StringLiterals;

QString tooLongNotice(qsizetype characters) {
    const QLocale locale;
    return u"Not saved: %1 characters with formatting, %2 fit."_s.arg(
        locale.toString(characters), locale.toString(LargestBoundText));
}

void RowBinding::bind(const QString& field, BoundBox& box, const QString& limitName) {
    if (!limitName.isEmpty())
        box.setLimit(LargestBoundText);
    m_bounds += Bound{.field = field, .box = &box, .limitName = limitName};
}

void RowBinding::setData(const dao::Recordset& data) {
    m_row = KeptRow(data);
    for (Bound& bound : m_bounds)
        bound.column = m_row.columnOf(bound.field);
}

dao::Value RowBinding::value(QStringView field) const {
    return m_row.value(m_row.columnOf(field));
}

void RowBinding::load() {
    m_row.read();
    for (Bound& bound : m_bounds)
        show(bound);
}

void RowBinding::show(Bound& bound) {
    bound.isTooLong = false;
    bound.box->setNotice({});
    bound.box->show(m_row.value(bound.column).toText());
}

void RowBinding::refresh() {
    if (!m_row.exists())
        return;
    const KeptRow before = m_row;
    m_row.readAnew();
    for (Bound& bound : m_bounds) {
        if (!bound.box->dataChanged() && m_row.value(bound.column) != before.value(bound.column))
            show(bound);
    }
}

bool RowBinding::flush() {
    return write(Way::Staying);
}

bool RowBinding::write(Way way) {
    if (!m_row.exists())
        return true;
    try {
        const QList<Typed> typed = writableTexts(way);
        if (!typed.isEmpty())
            writeRow(typed);
    } catch (const dao::EngineError& error) {
        tellOnce(error);
        return false;
    }
    m_failure.reset();
    return true;
}

Leaving RowBinding::leave() {
    m_failure.reset();
    if (!write(Way::Leaving))
        return Leaving::Failed;
    if (!m_row.exists())
        return Leaving::Done;
    QList<BoundBox*> givenUp;
    for (const Bound& bound : m_bounds) {
        if (!bound.isTooLong || !bound.box->dataChanged())
            continue;
        if (!mayGiveUp(bound))
            return Leaving::Stayed;
        givenUp += bound.box;
    }
    for (BoundBox* box : givenUp)
        box->setDataChanged(false);
    return Leaving::Done;
}

void RowBinding::tellOnce(const dao::EngineError& error) {
    if (m_failure.first())
        tellFailure(m_prompts, {u"Validate Data Error", u"validate data error : %2  %1"}, error);
}

QList<RowBinding::Typed> RowBinding::writableTexts(Way way) {
    QList<Typed> writable;
    for (Bound& bound : m_bounds) {
        BoundBox& box = *bound.box;
        // What was too long may have been undone since.
        if (!box.dataChanged() && !bound.isTooLong)
            continue;
        const QString text = box.text();
        bound.isTooLong = !bound.limitName.isEmpty() && text.size() > LargestBoundText;
        box.setNotice(bound.isTooLong ? tooLongNotice(text.size()) : QString());
        const bool isAwaited =
            way == Way::Staying && text.isEmpty() && m_required.contains(bound.field);
        if (bound.isTooLong || isAwaited)
            continue;
        if (m_row.value(bound.column).isNull() && text.isEmpty())
            box.setDataChanged(false); // typed and taken away again
        if (box.dataChanged())
            writable += {&box, {bound.column, text}};
    }
    return writable;
}

void RowBinding::writeRow(const QList<Typed>& typed) {
    QList<KeptRow::Change> changes;
    for (const Typed& each : typed)
        changes += each.change;
    m_row.write(changes);
    for (const Typed& each : typed)
        each.box->setDataChanged(false);
}

bool RowBinding::mayGiveUp(const Bound& bound) const {
    const auto answer = m_prompts.msg_Box(
        u"The data entered for %1 currently exceeds the database field limit.\n"
        "This data will not be saved in order to avoid currupting the database!\n\n"
        "Do you wish to leave it all the same, and lose what was typed there since it was saved "
        "last?"_s.arg(bound.limitName),
        YesNoButtons | WarningIcon | SecondButtonDefault, u"Too much data"_s);
    return answer == AnswerYes;
}
