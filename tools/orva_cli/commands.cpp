#include "commands.h"

#include "archive_commands.h"
#include "contact_commands.h"
#include "document_commands.h"
#include "event_commands.h"
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
        {.name = u"archive"_s,
         .usage = u"YEAR CLASS TARGET"_s,
         .run = archiveClassOf,
         .arguments = 2},
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
        {.name = u"document cover"_s,
         .usage = u"YEAR DATE TARGET.rtf"_s,
         .run = documentCover,
         .arguments = 2},
        {.name = u"document quick"_s,
         .usage = u"YEAR DATE TARGET.rtf"_s,
         .run = documentQuick,
         .arguments = 2},
        {.name = u"document weekly"_s,
         .usage = u"YEAR FROM UNTIL CLASS,CLASS TARGET.rtf"_s,
         .run = documentWeekly,
         .arguments = 4},
        {.name = u"document timetable"_s,
         .usage = u"YEAR 1|2|both TARGET.rtf"_s,
         .run = documentTimetable,
         .arguments = 2},
        {.name = u"document seating"_s,
         .usage = u"YEAR CLASS PICTURE.bmp TARGET.rtf"_s,
         .run = documentSeating,
         .arguments = 3},
        {.name = u"document incident"_s,
         .usage = u"YEAR ID TARGET.rtf"_s,
         .run = documentIncident,
         .arguments = 2},
        {.name = u"document plan"_s,
         .usage = u"YEAR DATE PERIOD TARGET.rtf"_s,
         .run = documentPlan,
         .arguments = 3},
        {.name = u"remind"_s, .usage = u"YEAR FROM UNTIL"_s, .run = playReminders, .arguments = 2},
    };
    return commands;
}
