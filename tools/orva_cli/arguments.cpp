#include "arguments.h"

#include "commands.h"
#include "core/given_password.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QList<CommandOption>& commonOptions() {
    static const QList<CommandOption> options{
        {u"yes"_s, {}}, {u"password-fd"_s, u"N"_s}, {u"password"_s, u"P"_s}};
    return options;
}

/// The command whose name the words begin with.
const Command& namedCommand(const QStringList& words) {
    for (const Command& command : programCommands()) {
        const QStringList name = command.name.split(u' ');
        if (words.first(std::min(name.size(), words.size())) == name)
            return command;
    }
    throw UsageError(words.isEmpty() ? u"There is no command."_s
                                     : u"There is no such command: "_s + words.constFirst(),
                     nullptr);
}

/// The passwords from where the call says, or else from the environment.
void readPasswords(Call& call) {
    call.password = passwordFromEnvironment();
    call.secondPassword = passwordFromEnvironment("ORVA_SECOND_PASSWORD");
    if (call.has(u"password"_s))
        call.password = call.options.take(u"password"_s);
    if (call.has(u"password-fd"_s)) {
        const QString descriptor = call.options.take(u"password-fd"_s);
        call.password = passwordFromDescriptor(descriptor);
        if (call.password.isNull())
            throw UsageError(
                u"--password-fd takes the number of a file that is open for reading."_s,
                call.command);
        if (call.command->hasSecondFile)
            call.secondPassword = passwordFromDescriptor(descriptor);
    }
    if (call.secondPassword.isEmpty())
        call.secondPassword = call.password;
}

} // namespace

QString usageOf(const Command* command) {
    if (command)
        return u"orva-cli %1 %2"_s.arg(command->name, command->usage);
    QString usage =
        u"orva-cli COMMAND FILE.mdb ARGUMENTS [--yes] [--password-fd N | --password P]"_s;
    for (const Command& each : programCommands())
        usage += u"\n       "_s + usageOf(&each);
    return usage;
}

Call readCall(const QStringList& words) {
    Call call;
    call.command = &namedCommand(words);
    const QList<CommandOption> options = commonOptions() + call.command->options;
    QCommandLineParser parser;
    for (const CommandOption& option : options)
        parser.addOption({option.name, {}, option.value});
    if (!parser.parse(words))
        throw UsageError(parser.errorText(), call.command);
    // The parser takes the first word for the program's name.
    call.arguments = parser.positionalArguments().mid(call.command->name.count(u' '));
    if (call.arguments.size() != call.command->arguments + 1)
        throw UsageError(u"There are too many or too few arguments."_s, call.command);
    call.file = QFileInfo(call.arguments.takeFirst()).absoluteFilePath();
    for (const CommandOption& option : options) {
        if (parser.isSet(option.name))
            call.options[option.name] = parser.value(option.name);
    }
    call.consents = call.options.remove(u"yes"_s) > 0;
    readPasswords(call);
    return call;
}
