#pragma once

#include "seating/desk.h"
#include "store/engine/engine.h"

#include <QStringList>

class Prompts;

/// How a plan comes to be, is made anew, takes another one's layout and goes. What can't be done
/// is told, and leaves the year as it was.

/// For what a new plan is laid out.
struct Classroom {
    QSize canvas; ///< twips
    DeskSizes sizes = {};
};

/// Lays out a desk for every pupil of a class, by surname, and the teacher's, in a new pair of
/// tables. Refuses while a window has a table of the class open. Answers whether the plan is there.
bool GenerateNewPlan(const dao::Database& year, const PlanName& plan, const Classroom& room,
                     Prompts& prompts);
/// Sees to it that a class has a default plan: makes one where there is none, and anew where a half
/// of it is missing, which is told.
void ensureDefaultPlan(const dao::Database& year, const QString& classCode, const Classroom& room,
                       Prompts& prompts);
/// Asks whether to make a default plan anew.
bool askRegenerate(Prompts& prompts);
/// Makes a class's default plan anew, whatever of it is there.
bool RegenerateTable(const dao::Database& year, const QString& classCode, const Classroom& room,
                     Prompts& prompts);

/// Whether a room can have a code; where not, that is told.
bool isRoomCode(const QString& code, Prompts& prompts);
/// Asks for the code of a room and makes the class's plan in it. Answers the code; empty where none
/// was made.
QString Create_NewPlan(const dao::Database& year, const QString& classCode, const Classroom& room,
                       Prompts& prompts);
/// Asks, and deletes a class's plan in a room. Answers whether that was agreed to and done.
bool deleteRoomPlan(const dao::Database& year, const PlanName& plan, Prompts& prompts);

/// Asks for the class, other than this one, whose layout to copy; empty for none.
QString askLayoutSource(const dao::Database& year, const QString& classCode, Prompts& prompts);
/// Gives the desks the places and sizes of another class's default plan, unless that has too few.
/// The year stays as it is. Answers whether they have them; that is told too.
bool CopyLayout(const dao::Database& year, const QString& source, Desks& desks, Prompts& prompts);
