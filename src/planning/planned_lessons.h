#pragma once

#include "core/prompts.h"
#include "store/engine/database.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

/// A period of a sheet that has a class.
struct PlannedLesson {
    QString planDate; ///< "yy-mm-dd"
    int period;
    QString classCode;
    QString lesson = {};   ///< rich text; empty for Null
    QString homework = {}; ///< the same
};

/// Which lessons.
struct LessonChoice {
    std::optional<DatePeriod> days = {};
    QStringList classes = {}; ///< in any case; of all classes where it is empty
    bool withTexts = true;    ///< else the lessons are read without what is written for them
};

/// The lessons of a year with so many periods a day, in the order of dates and periods. Raises what
/// the engine raises.
QList<PlannedLesson> plannedLessons(const dao::Database& year, int periodsPerDay,
                                    const LessonChoice& choice);
