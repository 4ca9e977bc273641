#pragma once

#include "classes/class_tables.h"
#include "store/engine/database.h"
#include "store/schema.h"
#include "year/year_answers.h"

#include <QLocale>

class Progress;
class Prompts;

/// The key of a month's record in `Calendar`: the first three letters of its name and "1".
QString monthKey(int month, const QLocale& locale);

/// Fills an empty file with a year: all that stands in it at its creation, from answers that pass
/// `checkAnswers`. Raises what the engine raises; the caller makes it whole or not at all.
class YearBuilder {
public:
    YearBuilder(const dao::Database& database, const YearAnswers& answers, Progress& progress,
                Prompts& prompts, const QLocale& locale);

    void build();

private:
    void createPlanning();
    void createCalendar();
    void createAdmin();
    void createClasscodes();
    void createExtraTTinfo(QChar letter);
    void createTermDates();
    void fillPlanning();
    void createClasses();
    void createRegisterAndMarks(const QString& classCode);

    dao::Recordset createAndOpen(Table table);

    const dao::Database& m_database;
    const YearAnswers& m_answers;
    Progress& m_progress;
    Prompts& m_prompts;
    const QLocale& m_locale;
    QList<QDate> m_days;    ///< the teaching days
    QList<QChar> m_letters; ///< a letter for each of them; empty with one timetable
};

/// The periods in which a class is taught according to the answers.
ClassPeriods classPeriods(const YearAnswers& answers, const QString& classCode);
