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
    int arguments; ///< so many follow the file
    QList<CommandOption> options;
    bool hasSecondFile; ///< whether an argument is a file that may have a password of its own
    /// Prints its answer on standard output. `Failed` where the person was told why already, by the
    /// prompts; raises RefusedCommand and dao::EngineError otherwise.
    ExitStatus (*run)(const Workplace& workplace, const Call& call);
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

/// What is wrong with how a command was called: a sentence, and the usage it should have followed.
class UsageError : public std::exception {
public:
    UsageError(QString fault, QString usage)
        : m_fault(std::move(fault)), m_usage(std::move(usage)) {}
    const QString& fault() const { return m_fault; }
    const QString& usage() const { return m_usage; }

private:
    QString m_fault;
    QString m_usage;
};
