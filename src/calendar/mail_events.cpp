#include "calendar/mail_events.h"

#include "calendar/event_rows.h"
#include "core/engine_failure.h"
#include "core/progress.h"
#include "core/prompts.h"
#include "core/session.h"
#include "richtext/rtf_text.h"
#include "store/engine/names.h"
#include "store/record_steps.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox mailEventsFailure{
    u"Calendar of Events Error",
    u"The events could not be imported:\n\n%1\n\nThe calendar of events "
    "is as it was."};

const QString DocumentHead =
    u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans Serif;}}\r\n"
    "\\viewkind4\\uc1\\pard\\lang2057\\f0\\fs17 "_s;
const QString DocumentEnd = u"\\par }"_s;

/// Text by lines, as one paragraph of rich text.
void appendLines(QString& rtf, const QString& text) {
    const QStringList lines = text.trimmed().split(u'\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0)
            rtf += u"\\line "_s;
        richtext::appendText(rtf, lines[i]);
    }
}

/// From the event's text to the end of the document.
QString eventParagraph(const MailEvent& event) {
    QString rtf;
    appendLines(rtf, event.Subject);
    if (!event.Body.isEmpty()) {
        rtf += u" :- \\i "_s;
        appendLines(rtf, event.Body);
        rtf += u" \\i0 "_s;
    }
    return rtf + u" \r\n"_s + DocumentEnd;
}

void addEvent(dao::Recordset& months, const MailEvent& event) {
    const QDate day = event.Start.date();
    const QString key = baseMonthKey(day.month(), QLocale());
    if (!FindInRecordset(months, u"Month = "_s + dao::writeText(key)))
        return;
    const QString field = dayField(day.day());
    const QString before = months.Collect(field).toText();
    const QString after = withEvent(before, event);
    if (after == before)
        return;
    months.Edit();
    months.SetCollect(field, after);
    months.Update();
}

MailItems<MailEvent> readMailEvents(const Seams& seams) {
    const ProgressWindow window(seams.progress, u"Import from Outlook"_s);
    seams.progress.UpdateProgress(0, u"Reading the calendar"_s);
    return seams.mail.Outlook_ReadCalendar();
}

} // namespace

QString withEvent(const QString& day, const MailEvent& event) {
    // From the end of a document back to the backslash of the size that an empty paragraph has in
    // front of its line break: "\fs17 \r\n\par }".
    constexpr qsizetype backToSize = 8;
    constexpr qsizetype lineBreak = 2;
    if (day.isEmpty())
        return DocumentHead + eventParagraph(event);
    const qsizetype end = day.lastIndexOf(DocumentEnd);
    if (end < 0)
        return day;
    if (end >= backToSize && day.at(end - backToSize) == u'\\')
        return day.left(end - lineBreak) + eventParagraph(event);
    return day.left(end) + u"\\par "_s + eventParagraph(event);
}

bool COEImportFromOutlook(Session& session) {
    const Seams& seams = session.GetSeams();
    const MailItems<MailEvent> events = readMailEvents(seams);
    if (events.items.isEmpty()) {
        seams.prompts.msg_Box(
            nothingFoundText(u"Sorry but no calendar events could be found in outlook!"_s,
                             events.fault),
            OkButton | WarningIcon, u"No Events Found"_s);
        return false;
    }
    const bool isDone = tryTelling(seams.prompts, mailEventsFailure, [&] {
        dao::Transaction whole(session.CurrentDB);
        Change_Field_type(session.CurrentDB);
        dao::Recordset months = session.CurrentDB.OpenRecordset(CalendarTable);
        for (const MailEvent& event : events.items)
            addEvent(months, event);
        months.Close();
        whole.commit();
    });
    if (isDone)
        emit session.GetNotices().eventsChanged();
    return isDone;
}
