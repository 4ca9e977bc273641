#pragma once

#include "store/engine/database.h"

#include <QString>

/// Brings the sheets of older files up to date. Each step goes by the absence of its field, so that
/// it does nothing to a file that has it, and is done whole or not at all. No recordset may have
/// `Planning` open (3211). A sheet whose date can't be read raises 3421.

/// Adds `Week` behind `PlanDate` and numbers the teaching weeks in the order of the records.
void AddWeekField(const dao::Database& database);

/// In a year with two timetables (`twoWeekly` 1) adds `ABWeek` behind `Week` and letters the sheets
/// by their weeks. Needs `Week`.
void AddABWeekField(const dao::Database& database, int twoWeekly, const QString& startWeek);
