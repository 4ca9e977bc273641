#include "year/wizard_rules.h"

#include "calendar/term_weeks.h"
#include "core/password_retry.h"
#include "core/paths.h"
#include "core/prompts.h"
#include "core/typed_date.h"
#include "store/engine/engine.h"
#include "store/engine/error.h"
#include "store/table_names.h"
#include "store/table_structure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int YearsAhead = 5;
constexpr int FirstMonthOfSetups = 6; // from then on the year to come is on teachers' minds

QString fileExtension() {
    return u".mdb"_s;
}

bool isSkipped(int frame, bool twoWeeks) {
    return !twoWeeks && (frame == WeekBFrame || frame == StartWeekFrame);
}

QString withoutRefused(const QString& name) {
    QString kept;
    for (const char32_t character : name.toUcs4()) {
        if (isFileNameCharacter(character))
            kept += QString::fromUcs4(&character, 1);
    }
    return kept;
}

/// The boundaries in pairs. A pair that holds no date is no period.
QList<DatePeriod> paired(const QList<QDate>& boundaries) {
    QList<DatePeriod> periods;
    for (qsizetype i = 0; i + 1 < boundaries.size(); i += 2) {
        if (boundaries[i].isValid() && boundaries[i + 1].isValid())
            periods.append({boundaries[i], boundaries[i + 1]});
    }
    return periods;
}

} // namespace

QStringList startupActions() {
    return {u"Setup a NEW database"_s, u"Open an Existing database"_s,
            u"Restore a Backup database"_s, u"Backup && Compact a database"_s,
            u"Repair a database"_s};
}

int nextFrame(int frame, bool twoWeeks) {
    const int next = frame + 1;
    return isSkipped(next, twoWeeks) ? next + 1 : next;
}

int previousFrame(int frame, bool twoWeeks) {
    const int previous = frame - 1;
    return isSkipped(previous, twoWeeks) ? previous - 1 : previous;
}

QString pageLabel(int frame, bool twoWeeks) {
    if (frame == FirstPage)
        return {};
    int page = 1;
    for (int before = TeacherFrame; before < frame; before = nextFrame(before, twoWeeks))
        ++page;
    return u"Page %1"_s.arg(page);
}

QStringList academicYears(QDate today) {
    QStringList years;
    for (int year = today.year() - 1; year <= today.year() + YearsAhead; ++year)
        years += u"%1-%2"_s.arg(year).arg(year + 1);
    return years;
}

int proposedYear(QDate today) {
    return today.month() >= FirstMonthOfSetups ? 1 : 0;
}

QString periodItem(const DatePeriod& period, const QLocale& locale) {
    return typedDateText(period.first, locale) + u"   to   "_s + typedDateText(period.last, locale);
}

QString startWeekHeading(const YearAnswers& answers, const QLocale& locale) {
    return u"Start the First teaching period (%1) with Timetable:"_s.arg(
        periodItem(answers.terms.value(0), locale));
}

bool isFileNameCharacter(char32_t character) {
    const QString refused = u"\\/?:|<>*\""_s;
    return QChar::isPrint(character) &&
           std::none_of(refused.begin(), refused.end(),
                        [character](QChar each) { return each.unicode() == character; });
}

QString defaultFileName(const YearAnswers& answers) {
    return withoutRefused(u"%1 (%2)"_s.arg(answers.name.trimmed(), answers.year)) + fileExtension();
}

QString archiveName(const QString& classCode) {
    return withoutRefused(classCode) + fileExtension();
}

AnswerCheck checkFileName(const QString& name) {
    const QString base = QString(name).remove(fileExtension(), Qt::CaseInsensitive).trimmed();
    if (!base.isEmpty())
        return std::nullopt;
    return AnswerFault{u"file"_s, u"Invalid Filename"_s,
                       u"You must enter a name for the database file."_s};
}

QString targetFile(const QString& folder, const QString& name) {
    const QString file = name.trimmed();
    const bool isWhole = file.endsWith(fileExtension(), Qt::CaseInsensitive);
    return folder + (isWhole ? file : file + fileExtension());
}

OpenFailure chosenFileFailure(const OpenFault& fault, const QString& path) {
    if (!isInUse(fault))
        return openFailure(fault, path);
    return {u"Database already open."_s,
            u"The database : \n\n%1\n\nappears to be aready open by another user!\n\n"
            "Please retry later.\n\n%2"_s.arg(ShortenPath(path), fault.sentence)};
}

OpenFailure defaultFileFailure(const OpenFault& fault, const QString& path) {
    const QString what =
        isInUse(fault) ? u"appears to be aready open by another user!"_s : openFaultText(fault);
    return {chosenFileFailure(fault, path).title,
            u"The default database : \n\n%1\n\n%2\n\n%3\n\n"
            "Please choose another action or press cancel again to quit."_s.arg(
                ShortenPath(path), what, fault.sentence)};
}

void showFault(Prompts& prompts, const AnswerFault& fault) {
    prompts.PlainBox(fault.text, OkButton | WarningIcon, fault.title);
}

QList<DatePeriod> ImportTermDates(const dao::DBEngine& engine, Prompts& prompts,
                                  const QString& startFolder) {
    const QString path =
        prompts.OpenFileDialog(u"Select the file to import term dates from:"_s,
                               {{u"*.mdb"_s, u"*.mdb"_s}}, startFolder, ExistingFileFlags, false);
    if (path.isEmpty())
        return {};
    AnswerFault fault{u"terms"_s, u"Invalid format"_s,
                      u"Sorry but the Term Dates table does not exist in this database."_s};
    try {
        const dao::Database source = openSource(engine, prompts, path);
        if (!source)
            return {};
        if (TableExists(source, TermDatesTable)) {
            const QList<DatePeriod> periods = paired(GetTermDays(source).boundaries);
            if (!periods.isEmpty())
                return periods;
            fault.text = u"There are no term dates in this database."_s;
        }
    } catch (const dao::EngineError& error) {
        fault.text = u"The term dates could not be read:\n\n%1"_s.arg(error.description());
    }
    showFault(prompts, fault);
    return {};
}
