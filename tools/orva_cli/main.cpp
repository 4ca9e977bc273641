// orva-cli COMMAND FILE.mdb ARGUMENTS: the program without its windows, for scripts and for people
// who look after somebody's year. The same rules, with the program's settings and folders; a
// message or question is a line on standard error, a question is answered No, with `--yes` Yes.
// Exit status: 0 done, 1 refused or failed, 2 wrong usage.

#include "arguments.h"
#include "core/console_prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/silent_seams.h"
#include "core/system_clock.h"
#include "core/version.h"
#include "store/engine/error.h"
#include "year/year_opening.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <cstdio>
#include <new>

using namespace Qt::StringLiterals;

namespace {

void say(ConsolePrompts& prompts, const Call& call, const QString& text) {
    prompts.PlainBox(text, OkButton | WarningIcon, call.command->name);
}

/// Runs the command; what it raises is told.
ExitStatus runTelling(const Workplace& workplace, const Call& call) {
    ConsolePrompts& prompts = workplace.prompts;
    try {
        return call.command->run(workplace, call);
    } catch (const RefusedCommand& refused) {
        say(prompts, call, refused.reason());
    } catch (const dao::EngineError& error) {
        say(prompts, call, error.description());
    } catch (const std::bad_alloc&) { // a file that claims to hold more than there is memory
        say(prompts, call, u"There is not enough memory."_s);
    }
    return Failed;
}

ExitStatus carryOut(const Call& call) {
    dao::DBEngine engine;
    Settings settings;
    SystemClock clock;
    ConsolePrompts prompts(call.consents ? Consent::Yes : Consent::No);
    SilentProgress progress;
    AbsentShell shell;
    Session session(engine, settings, {prompts, progress, shell, clock}, yearOpening());
    session.Start(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    const ExitStatus status = runTelling({session, prompts}, call);
    if (status != Done && prompts.hasDeclined())
        say(prompts, call, u"A question was answered No; --yes answers Yes."_s);
    if (std::fflush(stdout) != 0) {
        say(prompts, call, u"The answer could not be written."_s);
        return Failed;
    }
    return status;
}

} // namespace

int main(int argc, char** argv) {
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words += QString::fromLocal8Bit(argv[i]);
    int ownName = 1; // all other words are the program's, none the library's
    const QCoreApplication application(ownName, argv);
    QCoreApplication::setApplicationName(u"ORVA"_s);
    QCoreApplication::setApplicationVersion(programVersion());
    try {
        return carryOut(readCall(words));
    } catch (const UsageError& error) {
        std::fprintf(stderr, "%s\nusage: %s\n", qPrintable(error.fault()),
                     qPrintable(usageOf(error.command())));
        return WrongUsage;
    }
}
