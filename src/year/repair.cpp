#include "year/repair.h"

#include "core/password_retry.h"
#include "core/prompts.h"
#include "store/engine/error.h"
#include "store/engine/files.h"
#include "year/year_mending.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int RepairReportSeconds = 10;
/// So many tables with losses are told line by line: a box has to fit on a screen.
constexpr qsizetype MostLines = 20;

/// A name beside a damaged file, under which it stays, that no file has yet.
QString keptName(const QString& path) {
    const QFileInfo info(dao::behindLinks(path));
    const QString base = info.absolutePath() + u'/' + info.completeBaseName() + u".damaged"_s;
    const QString extension = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
    QString name = base + extension;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = u"%1 %2%3"_s.arg(base, QString::number(number), extension);
    return name;
}

QString counted(qint64 records) {
    return records == 1 ? u"1 record"_s : u"%1 records"_s.arg(records);
}

bool isWhole(const dao::RepairedTable& table) {
    return table.lost == 0 && table.inPart == 0 && table.standIns == 0 && !table.mayLackMore;
}

/// What was made of a table that is not whole.
QString lossText(const dao::RepairedTable& table) {
    QStringList parts{counted(table.saved) + u" saved"_s};
    if (table.inPart > 0)
        parts += u"%1 of them in part"_s.arg(table.inPart);
    if (table.lost > table.unrelated)
        parts += u"at most %1 lost"_s.arg(table.lost - table.unrelated);
    if (table.unrelated > 0)
        parts += u"%1 lost that belonged to none"_s.arg(table.unrelated);
    if (table.mayLackMore)
        parts += u"others may be lost, nobody can tell how many"_s;
    if (table.standIns > 0)
        parts +=
            u"%1 made anew with a \"?\", for lost ones that others belong to"_s.arg(table.standIns);
    return u"%1: %2"_s.arg(table.table, parts.join(u", "_s));
}

void tellOutcome(Prompts& prompts, const RepairOutcome& outcome) {
    const QString title = u"Database Repaired:"_s;
    const QString text =
        u"The database file has been repaired. If you still have trouble accessing\n"
        "it's data try restoring a backup database file."_s;
    if (outcome.report.wasWhole) {
        prompts.MsgAuto_box(text, OkButton | InformationIcon, title, RepairReportSeconds);
        return;
    }
    prompts.msg_Box(u"%1\n\n%2\n\nThe damaged file stays as:\n%3"_s.arg(
                        text, repairText(outcome.report), outcome.kept),
                    OkButton | InformationIcon, title);
}

/// Mends a file, asking for its password unless this one is right.
std::optional<RepairOutcome> repairFile(const BackupContext& context, const QString& path,
                                        QString password) {
    Prompts& prompts = context.seams.prompts;
    for (int failures = 0;; ++failures) {
        try {
            const auto lock = lockClosedFile(path);
            const QString kept = keptName(path);
            RepairOutcome outcome{.report = context.engine.RepairDatabase(
                                      path, dao::connectText(password), kept, yearKnowledge()),
                                  .kept = {},
                                  .password = password};
            if (!outcome.report.wasWhole)
                outcome.kept = kept;
            tellOutcome(prompts, outcome);
            return outcome;
        } catch (const dao::EngineError& error) {
            if (error.number() != dao::WrongPassword) {
                prompts.PlainBox(
                    u"The database could not be repaired:\n%1\n\n%2\n\nThe file has not been "
                    "changed. You can restore a backup of it."_s.arg(path, error.description()),
                    OkButton | WarningIcon, u"Repair Error"_s);
                return std::nullopt;
            }
        }
        if (!askForPassword(prompts, failures, password))
            return std::nullopt;
    }
}

bool wantsRepair(Session& session, const QString& path) {
    const OpenFailure failure = openFailure(session.LastOpenFault(), path);
    const QString question =
        u"The database : \n\n%1\n\n%2\n\n%3\n\nDo you wish to repair it? All that can still be "
        "read is brought back. The damaged file stays beside it, as:\n%4"_s.arg(
            ShortenPath(path), openFaultText(session.LastOpenFault()),
            session.LastOpenFault().sentence, ShortenPath(keptName(path)));
    return session.GetSeams().prompts.msg_Box(question, YesNoButtons | WarningIcon,
                                              failure.title) == AnswerYes;
}

} // namespace

QString repairText(const dao::RepairReport& report) {
    QStringList losses;
    QStringList whole;
    for (const dao::RepairedTable& table : report.tables) {
        if (isWhole(table))
            whole += u"%1 (%2)"_s.arg(table.table).arg(table.saved);
        else
            losses += lossText(table);
    }
    QStringList lines = losses.mid(0, MostLines);
    if (losses.size() > MostLines)
        lines += u"and losses in %1 more tables"_s.arg(losses.size() - MostLines);
    lines += report.added;
    if (!whole.isEmpty())
        lines += (losses.isEmpty() ? u"All records of these tables were saved: %1."_s
                                   : u"All records of the other tables were saved: %1."_s)
                     .arg(whole.join(u", "_s));
    return lines.join(u'\n');
}

std::optional<RepairOutcome> RepairDatabaseFile(const BackupContext& context, const QString& path) {
    const BoxAnswer answer = context.seams.prompts.msg_Box(
        u"The opperation will attempt to repair a selected database.\n"
        "You should only run this opperation if you are experiencing \n"
        "problems with accessing data in the current database.\n"
        "Do you wish to continue?"_s,
        YesNoButtons | QuestionIcon, u"Repair Database:"_s);
    return answer == AnswerNo ? std::nullopt : repairFile(context, path, {});
}

OpenResult OpenOrRepair(Session& session, const QString& path, const QString& password) {
    const OpenResult result = session.OpenDatabaseFile(path, password);
    const OpenFault fault = session.LastOpenFault();
    if (result != OpenInvalid || fault.number != dao::DamagedDatabase ||
        !session.Engine().MayBeRepaired(path))
        return result;
    if (!wantsRepair(session, path))
        return OpenCancelled;
    const auto outcome = repairFile(backupContext(session), path, fault.password);
    return outcome ? session.OpenDatabaseFile(path, outcome->password) : OpenCancelled;
}
