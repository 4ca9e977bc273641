#include "commands.h"

#include "file_commands.h"

using namespace Qt::StringLiterals;

const QList<Command>& consoleCommands() {
    static const QList<Command> commands{
        {.name = u"check"_s, .usage = u"YEAR"_s, .run = checkYear},
        {.name = u"repair"_s, .usage = u"YEAR"_s, .run = repairYear},
        {.name = u"backup"_s,
         .usage = u"YEAR [--compact]"_s,
         .run = backUpYear,
         .options = {{u"compact"_s, {}}}},
    };
    return commands;
}
