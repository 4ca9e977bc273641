#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <exception>
#include <utility>

class ConsolePrompts;
class Session;
struct Call;

/// How the program ends. Scripts know the values by number.
enum ExitStatus { Done = 0, Failed = 1, WrongUsage = 2 };

/// What a command works with: a session that has started and has no year open.
struct Workplace {
    Session& session;
    ConsolePrompts& prompts;
};

struct CommandOption {
    QString name;  ///< without the dashes
    QString value; ///< what its value is called in the usage; empty for one without a value
};

/// One of the program's commands.
struct Command {
    QString name;  ///< of one word, or of two where the second says of what kind
    QString usage; ///< what stands behind the name
    /// Prints its answer on standard output. `Failed` where the person was told why already, by the
    /// prompts; raises RefusedCommand and dao::EngineError otherwise, UsageError for an argument
    /// that is malformed.
    ExitStatus (*run)(const Workplace& workplace, const Call& call) = nullptr;
    int arguments = 0; ///< so many follow the file
    QList<CommandOption> options = {};
    bool hasSecondFile = false; ///< whether an argument is a file that may have its own password
};

/// A command as it was called.
struct Call {
    const Command* command = nullptr;
    QString file; ///< absolute
    QStringList arguments;
    QMap<QString, QString> options; ///< those given, by name
    bool consents = false;          ///< questions are answered Yes
    QString password;               ///< of the file; empty for none
    QString secondPassword;         ///< of the second file: the first one's where none was given

    bool has(const QString& option) const { return options.contains(option); }
};

/// Why a command did not do what it was asked to: a sentence for the person.
class RefusedCommand : public std::exception {
public:
    explicit RefusedCommand(QString reason) : m_reason(std::move(reason)) {}
    const QString& reason() const { return m_reason; }

private:
    QString m_reason;
};

/// What is wrong with how a command was called: a sentence. The command's usage is told with it.
class UsageError : public std::exception {
public:
    /// `command` is null where there is no such command.
    UsageError(QString fault, const Command* command)
        : m_fault(std::move(fault)), m_command(command) {}
    const QString& fault() const { return m_fault; }
    const Command* command() const { return m_command; }

private:
    QString m_fault;
    const Command* m_command;
};
