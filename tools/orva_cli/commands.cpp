#include "commands.h"

#include "file_commands.h"
#include "search_commands.h"

using namespace Qt::StringLiterals;

const QList<Command>& commandTable() {
    static const QList<Command> commands{
        {.name = u"check"_s, .usage = u"YEAR"_s, .run = checkYear},
        {.name = u"repair"_s, .usage = u"YEAR"_s, .run = repairYear},
        {.name = u"backup"_s,
         .usage = u"YEAR [--compact]"_s,
         .run = backUpYear,
         .options = {{u"compact"_s, {}}}},
        {.name = u"find"_s,
         .usage = u"YEAR TEXT [--homework] [--match-case]"_s,
         .run = findInYear,
         .arguments = 1,
         .options = {{u"homework"_s, {}}, {u"match-case"_s, {}}}},
        {.name = u"history"_s, .usage = u"YEAR CLASS"_s, .run = printHistory, .arguments = 1},
    };
    return commands;
}
