#include "seating/plan_making.h"

#include "core/engine_failure.h"
#include "seating/plan_layout.h"
#include "seating/plan_tables.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr FailureBox GenerationFailure{.title = u"Unable to generate seating plan"};
constexpr FailureBox DeletionFailure{.title = u"Delete Seating Plan"};
constexpr FailureBox CopyFailure{.title = u"Unable to copy layout:"};

Desks newDesks(const QList<SeatedPupil>& pupils, const Classroom& room) {
    const QList<QRect> places = deskRows(pupils.size(), room.sizes.desk, room.canvas);
    Desks desks;
    for (qsizetype i = 0; i < pupils.size(); ++i)
        desks += {.id = pupils[i].id, .place = places[i], .caption = pupils[i].caption};
    desks += {.id = TeachersDesk,
              .place = teachersPlace(room.sizes.teachers, room.canvas),
              .caption = TeachersCaption};
    return desks;
}

/// By a plain search for the code within the name, as broad as where a class is removed.
bool mayGenerate(const dao::Database& year, const QString& classCode, Prompts& prompts) {
    const QList<dao::Recordset> open = year.Recordsets();
    const bool isUsed = std::any_of(open.begin(), open.end(), [&](const dao::Recordset& each) {
        return each.Name().contains(classCode);
    });
    if (isUsed)
        prompts.msg_Box(
            u"The seating plan for this class (%1) cannot be generated since the "
            "database table for the class is currently being used.\nPlease close any "
            "window that is using this class and regenerate the class."_s.arg(classCode),
            OkButton | WarningIcon, GenerationFailure.title.toString());
    return !isUsed;
}

bool generate(const dao::Database& year, const PlanName& plan, const Classroom& room,
              Prompts& prompts, bool replaces) {
    return mayGenerate(year, plan.classCode, prompts) &&
           tryTelling(prompts, GenerationFailure, [&] {
               dao::Transaction whole(year);
               if (replaces)
                   deletePlan(year, plan);
               makePlan(year, plan, newDesks(pupilsToSeat(year, plan.classCode), room));
               whole.commit();
           });
}

/// Of an older file, which lacks the other desks.
void tellOutdated(Prompts& prompts) {
    prompts.msg_Box(u"The current seating plan for this class is out of date due to database "
                    "improvements. The plan will now be regenerated, sorry for any "
                    "inconvenience."_s,
                    OkButton | InformationIcon, u"Invalid Plan"_s);
}

} // namespace

bool GenerateNewPlan(const dao::Database& year, const PlanName& plan, const Classroom& room,
                     Prompts& prompts) {
    return generate(year, plan, room, prompts, false);
}

void ensureDefaultPlan(const dao::Database& year, const QString& classCode, const Classroom& room,
                       Prompts& prompts) {
    switch (planTables(year, {classCode, {}})) {
    case PlanTables::Both:
        return;
    case PlanTables::PupilsOnly:
        tellOutdated(prompts);
        [[fallthrough]];
    case PlanTables::ExtraOnly:
        RegenerateTable(year, classCode, room, prompts);
        return;
    case PlanTables::None:
        GenerateNewPlan(year, {classCode, {}}, room, prompts);
        return;
    }
}

bool askRegenerate(Prompts& prompts) {
    return prompts.msg_Box(u"You are about to regenerate the seating plan!\n\n"
                           "This will reallocate a desk to every pupil in the class\n"
                           "and remove any empty desks.\n\n"
                           "Do you want to continue:"_s,
                           YesNoButtons | QuestionIcon | SecondButtonDefault,
                           u"Regenerate Plan"_s) == AnswerYes;
}

bool RegenerateTable(const dao::Database& year, const QString& classCode, const Classroom& room,
                     Prompts& prompts) {
    return generate(year, {classCode, {}}, room, prompts, true);
}

bool isRoomCode(const QString& code, Prompts& prompts) {
    QString fault;
    if (code.contains(u' '))
        fault = u"You cannot use spaces in the room code, please try again"_s;
    else if (code.contains(u'_') || code.compare(DefaultPlan, Qt::CaseInsensitive) == 0)
        // The plan would be taken for that of another room.
        fault = u"You cannot use an underline, or the word \"%1\", in the room code, please try "
                "again"_s.arg(DefaultPlan);
    if (!fault.isEmpty())
        prompts.msg_Box(fault, OkButton | InformationIcon, u"Invalid Code"_s);
    return fault.isEmpty();
}

QString Create_NewPlan(const dao::Database& year, const QString& classCode, const Classroom& room,
                       Prompts& prompts) {
    const QString code = prompts.input_box(
        u"Please enter a Room code for the new seating plan.\n"
        "Please only use a maximum of 6 Characters and do not use spaces or any special "
        "characters."_s,
        OkCancelButtons, u"Room ID"_s);
    const bool isMade = !code.isEmpty() && isRoomCode(code, prompts) &&
                        GenerateNewPlan(year, {classCode, code}, room, prompts);
    return isMade ? code : QString();
}

bool deleteRoomPlan(const dao::Database& year, const PlanName& plan, Prompts& prompts) {
    BoxLook look;
    look.colour = 0xFEE1F5; // RGB 245, 225, 254
    const BoxAnswer answer = prompts.msg_Box(
        u"DELETE the seating plan for room "_s + plan.room + u".\n\nAre you sure?"_s,
        YesNoButtons | SecondButtonDefault, DeletionFailure.title.toString(), look);
    return answer == AnswerYes &&
           tryTelling(prompts, DeletionFailure, [&] { deletePlan(year, plan); });
}

QString askLayoutSource(const dao::Database& year, const QString& classCode, Prompts& prompts) {
    OneItemRequest request;
    request.title = u"Class Codes "_s;
    request.text = u"Please select which class you would like to copy the layout of desks from. "
                   "(Only default plans can be copied.)"_s;
    tryTelling(prompts, CopyFailure, [&] {
        for (const QString& other : GetClassLists(year)) {
            Desks desks;
            if (other == classCode || planTables(year, {other, {}}) != PlanTables::Both)
                continue;
            readPlan(year, {other, {}}, desks);
            if (!desks.isEmpty() && desks.first().isPupils())
                request.items += other;
        }
    });
    if (request.items.isEmpty()) {
        prompts.msg_Box(u"No other class has a seating plan with desks to copy."_s,
                        OkButton | InformationIcon, CopyFailure.title.toString());
        return {};
    }
    const std::optional<int> chosen = prompts.ReturnString(request);
    return chosen ? request.items.at(*chosen) : QString();
}

bool CopyLayout(const dao::Database& year, const QString& source, Desks& desks, Prompts& prompts) {
    Desks others;
    if (!tryTelling(prompts, CopyFailure, [&] { readPlan(year, {source, {}}, others); }))
        return false;
    const qsizetype missing = missingDesks(desks, others.size());
    if (missing > 0) {
        prompts.msg_Box(
            u"You can't emulate the layout for %1 because you have less pupil desks in %1 than "
            "require for the current class. You can add more empty desks to %1 so that you have "
            "enough desks to accomodate all pupils in the current class. You currently need %2 "
            "more desks. Please remeber to save the seating plan after you add and position empty "
            "desks."_s.arg(source, QString::number(missing)),
            OkButton | WarningIcon, CopyFailure.title.toString());
        return false;
    }
    takeLayout(desks, others);
    prompts.msg_Box(u"The seating plan has emulated the plan for class %1. Please remember to save "
                    "this plan if you wish to keep it! You can shuffle desks before saving if you "
                    "wish."_s.arg(source),
                    OkButton | InformationIcon, u"Layout Copied"_s);
    return true;
}
