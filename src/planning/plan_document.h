#pragma once

#include "office/word_document.h"

#include <QDate>

/// The short term plan of a period, in the teacher's template. Answers whether the document was
/// made; a refusal or a failure was told then.
bool CreateShortTermPlan(const Session& session, const DocumentPlace& place, QDate date,
                         int period);
