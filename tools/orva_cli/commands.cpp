#include "commands.h"

#include "contact_commands.h"
#include "event_commands.h"
#include "export_commands.h"
#include "file_commands.h"
#include "remind_commands.h"
#include "search_commands.h"
#include "seat_commands.h"
#include "week_commands.h"

using namespace Qt::StringLiterals;

const QList<Command>& programCommands() {
    static const QList<Command> commands{
        {.name = u"check"_s, .usage = u"YEAR"_s, .run = checkYear},
        {.name = u"repair"_s, .usage = u"YEAR"_s, .run = repairYear},
        {.name = u"backup"_s,
         .usage = u"YEAR [--compact]"_s,
         .run = backUpYear,
         .options = {{u"compact"_s, {}}}},
        {.name = u"change-weeks"_s, .usage = u"YEAR WEEK"_s, .run = changeWeeks, .arguments = 1},
        {.name = u"events"_s, .usage = u"YEAR MONTH"_s, .run = printEvents, .arguments = 1},
        {.name = u"import-events"_s,
         .usage = u"YEAR OTHER"_s,
         .run = importEventsOf,
         .arguments = 1,
         .hasSecondFile = true},
        {.name = u"find"_s,
         .usage = u"YEAR TEXT [--homework] [--match-case]"_s,
         .run = findInYear,
         .arguments = 1,
         .options = {{u"homework"_s, {}}, {u"match-case"_s, {}}}},
        {.name = u"history"_s, .usage = u"YEAR CLASS"_s, .run = printHistory, .arguments = 1},
        {.name = u"import-contacts"_s,
         .usage = u"BOOK CSV"_s,
         .run = importContacts,
         .arguments = 1},
        {.name = u"seat"_s,
         .usage = u"YEAR CLASS [--room CODE] [--canvas WxH]"_s,
         .run = makeSeatingPlan,
         .arguments = 1,
         .options = {{u"room"_s, u"CODE"_s}, {u"canvas"_s, u"WxH"_s}}},
        {.name = u"seat-copy"_s,
         .usage = u"YEAR CLASS SOURCE"_s,
         .run = copySeatingPlan,
         .arguments = 2},
        {.name = u"export register"_s,
         .usage = u"YEAR CLASS TARGET"_s,
         .run = exportRegisterOf,
         .arguments = 2},
        {.name = u"export grades"_s,
         .usage = u"YEAR CLASS TARGET"_s,
         .run = exportGradesOf,
         .arguments = 2},
        {.name = u"export details"_s,
         .usage = u"YEAR CLASS TARGET [--items Tutor,Sex,Address,Telephone,Email,PID,Notes]"_s,
         .run = exportDetailsOf,
         .arguments = 2,
         .options = {{u"items"_s, u"ITEMS"_s}}},
        {.name = u"export notes"_s,
         .usage = u"YEAR CLASS TARGET --categories A,B"_s,
         .run = exportNotesOf,
         .arguments = 2,
         .options = {{u"categories"_s, u"TITLES"_s}}},
        {.name = u"export lesson-notes"_s,
         .usage = u"YEAR CLASS TARGET --pupil ID"_s,
         .run = exportLessonNotesOf,
         .arguments = 2,
         .options = {{u"pupil"_s, u"ID"_s}}},
        {.name = u"remind"_s, .usage = u"YEAR FROM UNTIL"_s, .run = playReminders, .arguments = 2},
    };
    return commands;
}
