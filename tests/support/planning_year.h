#pragma once

#include "richtext/plain_text.h"
#include "support/year_session.h"

/// A session for the planning sheets of a year, with a look at what their rows hold. Sheets are
/// named by their dates, such as 24-09-09.
class PlanningYear : public YearSession {
protected:
    static QString sheet(const QString& planDate) {
        return u"SELECT * FROM Planning WHERE PlanDate = '%1'"_s.arg(planDate);
    }
    dao::Value stored(const QString& planDate, const QString& field) {
        return rows(sheet(planDate)).Collect(field);
    }
    QString storedText(const QString& planDate, const QString& field) {
        return richtext::plainText(stored(planDate, field).toText());
    }
    void store(const QString& planDate, const QString& field, const dao::Value& value) {
        put(sheet(planDate), field, value);
    }
};
