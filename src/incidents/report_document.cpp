#include "incidents/report_document.h"

#include "core/session.h"
#include "incidents/incident_rows.h"
#include "office/document_templates.h"
#include "office/plain_cell.h"
#include "richtext/rtf_template.h"

using namespace Qt::StringLiterals;

namespace {

const DocumentTemplate ReportTemplate{
    u"IR1.dot"_s, u"The template download is complete, would you like to create a report now?"_s};

} // namespace

std::optional<ReportTexts> readReportTexts(const Session& session, qint64 report) {
    const dao::Recordset row = openIncident(session.CurrentDB, report);
    if (row.EOF_())
        return {};
    const std::optional<IncidentPupil> pupil = pupilOfReport(session.CurrentDB, report);
    const auto text = [&row](const QString& field) { return row.Collect(field).toText(); };
    const auto plain = [&text](const QString& field) { return plainCellText(text(field)); };
    return ReportTexts{.forename = pupil ? pupil->forename : QString(),
                       .surname = pupil ? pupil->surname : QString(),
                       .date = incidentDateText(text(u"Date"_s), session.ShortDateFormat),
                       .tutor = text(u"Tutor"_s),
                       .title = text(u"Event"_s),
                       .information = plain(u"Incident"_s),
                       .actionTaken = plain(u"Action"_s),
                       .home = plain(u"Home"_s),
                       .furtherAction = plain(u"Further"_s),
                       .sendTo = text(u"SendTo"_s),
                       .copyTo = text(u"CC"_s)};
}

bool CreateWordDoc(const Session& session, const DocumentPlace& place, const ReportTexts& report) {
    const Seams& seams = session.GetSeams();
    WordDocument word(seams, place);
    if (!word.Word_Start())
        return false;
    const std::optional<QByteArray> source = ReadTemplate(seams, place, ReportTemplate);
    if (!source)
        return false;
    word.step(0, u"Creating template document"_s);
    richtext::RtfTemplate document(*source);
    const QString name = report.forename + u' ' + report.surname;
    document.setTitle(name);
    const struct {
        QString bookmark;
        QString text;
    } values[] = {
        {u"PupilName"_s, name},
        {u"NotUsed"_s, {}},
        {u"iDate"_s, report.date},
        {u"Tutor"_s, report.tutor},
        {u"Title"_s, report.title},
        {u"Information"_s, report.information},
        {u"ActionTaken"_s, report.actionTaken},
        {u"Home"_s, report.home},
        {u"FurtherAction"_s, report.furtherAction},
        {u"Teacher"_s, session.TeacherName},
        {u"To"_s, report.sendTo},
        {u"CC"_s, report.copyTo},
    };
    constexpr int last = 12;
    for (int index = 0; index < last; ++index) {
        word.step(index * 100 / last, u"Adding "_s + values[index].bookmark);
        document.fillBookmark(values[index].bookmark, values[index].text);
    }
    return word.Word_Finish(u"Incident report"_s, document.source());
}
