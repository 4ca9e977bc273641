#pragma once

#include "core/prompts.h"
#include "office/word_document.h"

#include <QStringList>

/// The lessons of classes in a span of days. Answers whether the document was made; a span without
/// lessons and a failure were told then.
bool CreateWeeklyPlan(const Session& session, const DocumentPlace& place, const DatePeriod& days,
                      const QStringList& classes);

/// What is shown while a plan is asked for: a class and the first day of a week. The year's weeks
/// begin with `weeks`.
struct ShownWeek {
    QString classCode;
    QDate firstDay;
    QList<QDate> weeks = {};
};
/// Asks for the week that is shown, or else for the days and classes, and makes the plan.
bool ExportWeeklyPlan(const Session& session, const DocumentPlace& place, const ShownWeek& shown);
