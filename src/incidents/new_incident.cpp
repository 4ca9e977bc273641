#include "incidents/new_incident.h"

#include "core/engine_failure.h"
#include "core/session.h"
#include "incidents/incident_titles.h"

using namespace Qt::StringLiterals;

namespace {

bool isComplete(const NewIncident& incident, Prompts& prompts) {
    if (incident.surname.trimmed().isEmpty() || incident.forename.trimmed().isEmpty()) {
        prompts.msg_Box(u"You have not entered either a Surname or a Forename.\n\n"
                        "Please try again!"_s,
                        OkButton | WarningIcon, u"Create Incident"_s);
        return false;
    }
    if (incident.date < FirstIncidentDate || incident.date > LastIncidentDate) {
        prompts.msg_Box(u"You must enter a valid date of the incident."_s, OkButton, {});
        return false;
    }
    return true;
}

} // namespace

std::optional<qint64> createIncident(Session& session, const NewIncident& incident) {
    Prompts& prompts = session.GetSeams().prompts;
    if (!isComplete(incident, prompts))
        return std::nullopt;
    std::optional<qint64> report;
    tryTelling(prompts, {.title = u"Create Incident"},
               [&] { report = addIncident(session.CurrentDB, incident); });
    if (report)
        addIncidentTitle(session.GetSettings(), incident.event);
    return report;
}
