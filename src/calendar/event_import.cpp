#include "calendar/event_import.h"

#include "calendar/event_rows.h"
#include "core/password_retry.h"
#include "core/prompts.h"
#include "core/session.h"
#include "store/engine/error.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/schema.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <QFileInfo>

#include <algorithm>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A record of the calendar: its key, and behind it the days from the first on.
using MonthRecord = QList<dao::Value>;

/// The fields of a record, in its order.
QStringList monthFields() {
    QStringList fields{u"Month"_s};
    for (int day = 1; day <= DaysOfCalendar; ++day)
        fields += dayField(day);
    return fields;
}

QList<MonthRecord> readMonths(const dao::Database& database) {
    const QStringList fields = monthFields();
    QList<MonthRecord> months;
    dao::Recordset rows = database.OpenRecordset(CalendarTable, dao::RecordsetType::Snapshot);
    for (; !rows.EOF_(); rows.MoveNext()) {
        MonthRecord month;
        for (const QString& field : fields)
            month += rows.Collect(field);
        months += month;
    }
    return months;
}

void writeMonth(dao::Recordset& rows, const MonthRecord& month) {
    const QStringList fields = monthFields();
    for (qsizetype i = 0; i < fields.size(); ++i)
        rows.SetCollect(fields.at(i), month.at(i));
    rows.Update();
}

void copyInStep(dao::Recordset& rows, const QList<MonthRecord>& months) {
    for (const MonthRecord& month : months) {
        if (rows.EOF_())
            return;
        rows.Edit();
        writeMonth(rows, month);
        rows.MoveNext();
    }
}

/// Puts back those of the extra months that another one has taken the place of.
void putBackExtraMonths(dao::Recordset& rows, const QList<MonthRecord>& before) {
    for (const MonthRecord& month : before) {
        const QString key = month.constFirst().toText();
        if (!isExtraMonthKey(key) || FindInRecordset(rows, u"Month = "_s + dao::writeText(key)))
            continue;
        rows.AddNew();
        writeMonth(rows, month);
    }
}

qsizetype longestKey(const QList<MonthRecord>& months) {
    qsizetype longest = 0;
    for (const MonthRecord& month : months)
        longest = std::max(longest, month.constFirst().toText().size());
    return longest;
}

void copyEvents(const QList<MonthRecord>& months, const dao::Database& target) {
    dao::Transaction whole(target);
    Change_Field_type(target);
    const QList<MonthRecord> before = readMonths(target);
    makeRoomForKey(target, longestKey(months.first(std::min(months.size(), before.size()))));
    dao::Recordset rows = target.OpenRecordset(CalendarTable);
    copyInStep(rows, months);
    putBackExtraMonths(rows, before);
    rows.Close();
    whole.commit();
}

void tellImport(Prompts& prompts, const QString& title, const QString& text) {
    prompts.msg_Box(text, OkButton | WarningIcon, title);
}

bool isTheSameFile(const QString& path, const QString& other) {
    return QFileInfo(path).canonicalFilePath() == QFileInfo(other).canonicalFilePath();
}

/// Answers whether it was done; raises what the engine raises.
bool importEventsFrom(Session& session, const QString& path) {
    Prompts& prompts = session.GetSeams().prompts;
    dao::Database source = openSource(session.Engine(), prompts, path);
    if (!source)
        return false;
    if (!TableExists(source, CalendarTable)) {
        tellImport(prompts, u"Invalid format"_s,
                   u"Sorry but the Calendar of Events table does not exist in this database."_s);
        return false;
    }
    const QList<MonthRecord> months = readMonths(source);
    source.Close();
    copyEvents(months, session.CurrentDB);
    return true;
}

} // namespace

bool confirmEventImport(Prompts& prompts) {
    return prompts.msg_Box(u"Importing the COE from another database will overwrite any data "
                           "already added to the current COE's!\nDo you wish to continue?"_s,
                           YesNoButtons | WarningIcon | SecondButtonDefault,
                           u"Import COE"_s) == AnswerYes;
}

bool importEvents(Session& session, const QString& path) {
    Prompts& prompts = session.GetSeams().prompts;
    if (isTheSameFile(path, session.CurrentDB.Name())) {
        tellImport(prompts, u"Already Open"_s,
                   u"You can't import from the currently open database!\n"
                   "Please choose another database."_s);
        return false;
    }
    const auto fail = [&prompts] {
        tellImport(
            prompts, u"Bad format"_s,
            u"Sorry but ORVA was unable to extract the calendar events from this database."_s);
        return false;
    };
    try {
        if (!importEventsFrom(session, path))
            return false;
    } catch (const dao::EngineError&) {
        return fail();
    } catch (const std::bad_alloc&) { // a file that claims to hold more than there is memory
        return fail();
    }
    emit session.GetNotices().eventsChanged();
    return true;
}
