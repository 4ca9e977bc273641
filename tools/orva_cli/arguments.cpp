#include "arguments.h"

#include "commands.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <unistd.h>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

const QList<CommandOption>& commonOptions() {
    static const QList<CommandOption> options{{u"yes"_s, {}}, {u"password-fd"_s, u"N"_s}};
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

/// A line from a descriptor, byte by byte: what stands behind it is left for who reads next. Null
/// where nothing can be read.
QString readLine(int descriptor) {
    QByteArray line("");
    for (char byte = 0;;) {
        const ssize_t got = ::read(descriptor, &byte, 1);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return {};
        if (got == 0 || byte == '\n')
            return QString::fromUtf8(line);
        line += byte;
    }
}

void readPasswords(const QString& descriptor, Call& call) {
    bool isNumber = false;
    const int number = descriptor.toInt(&isNumber);
    call.password = isNumber ? readLine(number) : QString();
    if (call.password.isNull())
        throw UsageError(u"--password-fd takes the number of a file that is open for reading."_s,
                         call.command);
    if (call.command->hasSecondFile)
        call.secondPassword = readLine(number);
    if (call.secondPassword.isEmpty())
        call.secondPassword = call.password;
}

} // namespace

QString usageOf(const Command* command) {
    if (command)
        return u"orva-cli %1 %2"_s.arg(command->name, command->usage);
    QString usage = u"orva-cli COMMAND FILE.mdb ARGUMENTS [--yes] [--password-fd N]"_s;
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
    if (call.has(u"password-fd"_s))
        readPasswords(call.options.take(u"password-fd"_s), call);
    return call;
}
