#pragma once

#include "incidents/incident_rows.h"

class Session;

/// Makes a report that a person has entered, its pupil where there is none of that name, and its
/// title one of those that are offered. What is missing, and a failure, is told. Answers the
/// report's `ID`; none where nothing was made.
std::optional<qint64> createIncident(Session& session, const NewIncident& incident);
