#include "planning/sheet_events.h"

#include "core/dates.h"
#include "core/prompts.h"
#include "richtext/plain_text.h"
#include "richtext/work_area.h"
#include "store/engine/names.h"

#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString placeText(const SheetSelection& selection, const QString& often) {
    const QString weekday = DayName(weekdayOf(sheetDate(selection.planDate)));
    const SheetPlace& place = selection.place;
    if (place.box == SheetBox::Lesson)
        return u"to all %1 lesson %2 Periods"_s.arg(weekday).arg(place.period) + often;
    if (place.box == SheetBox::Homework)
        return u"to all %1 lesson %2 Homework sections"_s.arg(weekday).arg(place.period) +
               (often.isEmpty() ? u"."_s : often + u'.'); // two full stops in the end: kept
    return u"to all %1 %2 sections"_s.arg(weekday, blockCaption(place.box)) +
           (often.isEmpty() ? u"."_s : often);
}

QString leadOf(SheetEvent event) {
    return event == SheetEvent::Remove ? u"You have selected to remove any occurance of:"_s
                                       : u"You have selected to add the following item:"_s;
}

/// The rows of `Planning` with what a bulk edit needs of them. Read from the table's own order, so
/// that each row is read once.
class WeekdayRows {
public:
    WeekdayRows(const dao::Database& database, const SheetSelection& selection)
        : m_field(fieldOf(selection.place))
        , m_weekday(weekdayOf(sheetDate(selection.planDate)))
        , m_rows(database.OpenRecordset(
              u"SELECT PlanDate, Week, %1 FROM Planning"_s.arg(dao::writeName(m_field)))) {}

    /// Puts what `change` answers into the field of every row of the weekday that is `wanted`; no
    /// answer leaves the row as it is.
    void forEach(const std::function<bool(const QString& planDate, int week)>& wanted,
                 const std::function<std::optional<QString>(const dao::Value& present)>& change) {
        for (; !m_rows.EOF_(); m_rows.MoveNext()) {
            const QString planDate = m_rows.Collect(0).toText();
            if (weekdayOf(sheetDate(planDate)) != m_weekday ||
                !wanted(planDate, static_cast<int>(m_rows.Collect(1).toInteger())))
                continue;
            if (const auto text = change(m_rows.Collect(2))) {
                m_rows.Edit();
                m_rows.SetCollect(2, *text);
                m_rows.Update();
            }
        }
    }

private:
    QString m_field;
    int m_weekday;
    dao::Recordset m_rows;
};

void append(const dao::Database& database, const SheetSelection& selection,
            const std::function<bool(int week)>& wanted) {
    dao::Transaction whole(database);
    WeekdayRows(database, selection)
        .forEach([&](const QString& planDate,
                     int week) { return planDate != selection.planDate && wanted(week); },
                 [&](const dao::Value& present) {
                     return richtext::appendFragment(present.toText(), selection.rtf);
                 });
    whole.commit();
}

int parityOf(int week) {
    return (week + 2) % 2;
}

} // namespace

bool confirmEvent(Prompts& prompts, SheetEvent event, const SheetSelection& selection) {
    const bool isFortnightly = event == SheetEvent::AddFortnightly;
    const QString often = isFortnightly ? u" every other week."_s : QString();
    const QStringList lines{leadOf(event), selection.text, placeText(selection, often),
                            u"Are you sure you wish to continue?"_s};
    const QString title =
        isFortnightly ? u"Make this a fortnightly Event"_s : u"Make this a weekly Event"_s;
    return prompts.msg_Box(lines.join(u'\n'), YesNoButtons | QuestionIcon, title) == AnswerYes;
}

void tellNoSelection(Prompts& prompts) {
    prompts.msg_Box(u"Sorry but the selection text cannot be found."_s, OkButton | InformationIcon,
                    u"Please try again."_s);
}

void addToEveryWeek(const dao::Database& database, const SheetSelection& selection) {
    append(database, selection, [](int) { return true; });
}

void addToEveryOtherWeek(const dao::Database& database, const SheetSelection& selection) {
    append(database, selection,
           [&](int week) { return parityOf(week) == parityOf(selection.week); });
}

void removeFromEveryWeek(const dao::Database& database, const SheetSelection& selection) {
    dao::Transaction whole(database);
    WeekdayRows(database, selection)
        .forEach([](const QString&, int) { return true; },
                 [&](const dao::Value& present) -> std::optional<QString> {
                     const QString rtf = present.toText();
                     const qsizetype at = richtext::plainText(rtf).indexOf(selection.text);
                     if (at < 0)
                         return std::nullopt;
                     return richtext::removeText(rtf, at, selection.text.size());
                 });
    whole.commit();
}

void Add_to_Planning(const dao::Database& database, QDate date, SheetBox block,
                     const QString& rtf) {
    dao::Recordset sheet = database.OpenRecordset(u"SELECT * FROM Planning WHERE PlanDate = "_s +
                                                  dao::writeText(sheetDateText(date)));
    if (sheet.EOF_())
        return;
    sheet.Edit();
    sheet.SetCollect(fieldOf({block, 0}), rtf);
    sheet.Update();
}
