// make_year [--replace] ANSWERS.json FILE.mdb: makes a year's file from answers, with no window.
// samples/README.md tells the format. Exit status: 0 made, 2 refused (standard error names the
// answer and the reason), 1 for every other failure. Nothing is left behind by a failure.

#include "core/console_prompts.h"
#include "core/silent_seams.h"
#include "store/engine/error.h"
#include "year/year_answers_json.h"
#include "year/year_creation.h"

#include <QCoreApplication>
#include <QFile>

#include <csignal>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

enum ExitStatus { Done = 0, Failed = 1, Refused = 2 };

struct Arguments {
    QString answers;
    QString target;
    ExistingFile existing = ExistingFile::Keep;
};

void say(const QString& text) {
    QString line = text;
    line.replace(u'\n', u' ').replace(u'\t', u' ');
    std::fprintf(stderr, "%s\n", line.toLocal8Bit().constData());
}

bool readArguments(QStringList words, Arguments& arguments) {
    words.removeFirst();
    if (words.removeAll(u"--replace"_s) > 0)
        arguments.existing = ExistingFile::Replace;
    if (words.size() != 2)
        return false;
    arguments.answers = words[0];
    arguments.target = words[1];
    return true;
}

int makeYear(const Arguments& arguments) {
    const QLocale locale = QLocale::c();
    QFile file(arguments.answers);
    if (!file.open(QIODevice::ReadOnly)) {
        say(u"%1: %2"_s.arg(arguments.answers, file.errorString()));
        return Failed;
    }
    const ReadAnswers read = readYearAnswers(file.readAll(), locale);
    if (read.fault) {
        say(u"%1: %2"_s.arg(read.fault->field, read.fault->text));
        return Refused;
    }
    SilentProgress progress;
    ConsolePrompts prompts;
    try {
        CreateDB(dao::DBEngine(), read.answers, arguments.target, arguments.existing, progress,
                 prompts, locale);
    } catch (const dao::EngineError& error) {
        say(error.description());
        return error.number() == dao::FileExists ? Refused : Failed;
    }
    return Done;
}

} // namespace

int main(int argc, char* argv[]) {
    // A write beyond the allowed size of files is a failure to report, not a death.
    std::signal(SIGXFSZ, SIG_IGN);
    const QCoreApplication application(argc, argv);
    Arguments arguments;
    if (!readArguments(QCoreApplication::arguments(), arguments)) {
        say(u"usage: make_year [--replace] ANSWERS.json FILE.mdb"_s);
        return Refused;
    }
    return makeYear(arguments);
}
