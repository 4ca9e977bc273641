#pragma once

#include "store/engine/database.h"

#include <QDate>
#include <QList>
#include <QLocale>
#include <QString>

/// What the Change Week Allocations Wizard asks and says: the teaching weeks to choose from, and
/// the consequences of each. Raises what the engine raises.

/// The first teaching day of each teaching week of the year, in order: the first is week 1's.
QList<QDate> weekStarts(const dao::Database& database);
/// A week in the list: "Monday 06/09/2026", the day's name in the person's language.
QString weekStartText(QDate date, const QLocale& locale);

/// What a change from this week on means, by the first of its sheets.
QString weekChangeSummary(const dao::Database& database, short week);
/// The same, and how to go on, as the wizard shows it.
QString load_Week_information(const dao::Database& database, short week);

/// What the wizard's first page says.
QString weekChangeExplanation();
/// What it says once a change from that week on is done.
QString weekChangeReport(const QString& weekStart);
