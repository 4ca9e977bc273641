#pragma once

#include "seating/desk.h"
#include "store/engine/engine.h"

#include <QStringList>

/// The tables of the seating plans, two a plan: the pupils' desks, and the empty ones and the
/// teacher's. All here raises what the engine raises.

/// The codes of the classes that have a table of pupils, in the order of their tables.
QStringList GetClassLists(const dao::Database& year);

/// How the default plan is called in lists.
inline const QString DefaultPlan = QStringLiteral("Default");
/// The plans of a class: the default one, and one for each room.
QStringList GetMultiPlans(const dao::Database& year, const QString& classCode);

/// Which tables of a plan are there.
enum class PlanTables {
    None,
    PupilsOnly, ///< of a file from before there were other desks
    ExtraOnly,
    Both,
};
PlanTables planTables(const dao::Database& year, const PlanName& plan);

/// Reads the desks of a plan. A failure in the middle leaves those that were read.
void readPlan(const dao::Database& year, const PlanName& plan, Desks& desks);
/// Makes both tables with these desks, whole or not at all; ties that of the pupils to the class.
void makePlan(const dao::Database& year, const PlanName& plan, const Desks& desks);
/// Writes the desks that have changed, whole or not at all. Answers the pupils' desks that are not
/// in the table; an empty desk or the teacher's that is not there is passed over.
Desks savePlan(const dao::Database& year, const PlanName& plan, const Desks& desks);
/// Drops the tables of a plan, as far as they are there. Whole or not at all.
void deletePlan(const dao::Database& year, const PlanName& plan);

void addEmptyDesk(const dao::Database& year, const PlanName& plan, const Desk& desk);
void deleteEmptyDesk(const dao::Database& year, const PlanName& plan, qint64 id);

/// A pupil as a plan sees him.
struct SeatedPupil {
    qint64 id;
    QString caption; ///< that a new desk gets
};
/// The pupils of a class, by surname.
QList<SeatedPupil> pupilsToSeat(const dao::Database& year, const QString& classCode);

/// All that a window shows of a plan.
struct ShownPlan {
    QStringList plans = {}; ///< of the class, as GetMultiPlans has them
    Desks desks = {};       ///< none where its tables are not there
    QList<SeatedPupil> pupils = {};
};
/// Reads it at one go. A failure in the middle leaves what was read.
void readShownPlan(const dao::Database& year, const PlanName& plan, ShownPlan& shown);

/// What a plan does not show until it is made anew: "2 pupils have no desk, 1 desk has an old
/// name"; empty where it shows everything.
QString planLag(const Desks& desks, const QList<SeatedPupil>& pupils);
