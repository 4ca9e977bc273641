#include "import_commands.h"

#include "opened_year.h"

#include "classes/class_list_import.h"
#include "classes/grade_columns.h"
#include "classes/grade_import.h"
#include "core/console_prompts.h"
#include "core/password_retry.h"
#include "core/session.h"
#include "core/tab_separated.h"
#include "store/engine/names.h"
#include "store/table_names.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What the options say in place of what the windows propose; raises UsageError. `mayBeNone`: the
/// last column may be left out.
SpreadsheetChoice choiceOf(const Call& call, SpreadsheetChoice choice, bool mayBeNone = false) {
    if (call.has(u"row"_s)) {
        choice.row = call.options[u"row"_s].toInt();
        if (choice.row < 1)
            throw UsageError(u"A row is a number from 1 on."_s, call.command);
    }
    if (!call.has(u"columns"_s))
        return choice;
    QStringList columns = call.options[u"columns"_s].split(u',');
    if (columns.size() != choice.columns.size())
        throw UsageError(u"--columns takes %1 columns, such as %2."_s.arg(choice.columns.size())
                             .arg(choice.columns.join(u',')),
                         call.command);
    if (mayBeNone && columns.constLast().compare(u"None", Qt::CaseInsensitive) == 0)
        columns.last().clear();
    for (qsizetype i = 0; i < columns.size(); ++i) {
        const bool isNone = mayBeNone && i + 1 == columns.size() && columns.at(i).isEmpty();
        if (!isNone && columnOfLetters(columns.at(i)) < 0)
            throw UsageError(u"A column is written in letters, such as A or AB."_s, call.command);
    }
    choice.columns = columns;
    return choice;
}

QString sourceOf(const Call& call) {
    return QFileInfo(call.arguments.at(1)).absoluteFilePath();
}

/// Raises RefusedCommand for a file that is no spreadsheet by its name.
QString sheetOf(const Call& call) {
    const QString file = sourceOf(call);
    if (!isSheetFile(file))
        throw RefusedCommand(u"%1 is no spreadsheet and no text file."_s.arg(file));
    return file;
}

dao::Database openOther(const Workplace& workplace, const Call& call) {
    workplace.prompts.OfferPassword(call.secondPassword);
    dao::Database other = openSource(workplace.session.Engine(), workplace.prompts, sourceOf(call));
    if (!other)
        throw RefusedCommand(u"%1 was not opened."_s.arg(sourceOf(call)));
    return other;
}

/// A class of the other year as it is written there; raises RefusedCommand where there is none.
QString classOfOther(const dao::Database& other, const QString& wanted) {
    const QStringList classes = classesOf(other);
    const auto found = std::find_if(classes.begin(), classes.end(), [&wanted](const auto& each) {
        return dao::sameName(each, wanted);
    });
    if (found == classes.end())
        throw RefusedCommand(u"There is no class %1 in %2."_s.arg(wanted, other.Name()));
    return *found;
}

/// The class that is wanted, else the only one that there is.
QString listedClass(const dao::Database& other, const Call& call) {
    if (call.has(u"class"_s))
        return classOfOther(other, call.options[u"class"_s]);
    const QStringList classes = classesOf(other);
    if (classes.size() != 1)
        throw RefusedCommand(u"Please say by --class which class is meant: %1 are there."_s.arg(
            classes.isEmpty() ? u"none"_s : classes.join(u", "_s)));
    return classes.constFirst();
}

ExitStatus printTitles(const std::optional<QStringList>& titles) {
    for (const QString& title : titles.value_or(QStringList()))
        printLine({title});
    return titles ? Done : Failed;
}

ExitStatus printCount(const std::optional<int>& count) {
    if (count)
        printLine({QString::number(*count)});
    return count ? Done : Failed;
}

} // namespace

ExitStatus importClassList(const Workplace& workplace, const Call& call) {
    const SpreadsheetChoice choice = choiceOf(call, usualListChoice(), true);
    const bool isYear = isYearFile(sourceOf(call));
    const QString file = isYear ? sourceOf(call) : sheetOf(call);
    const QString classCode = openClass(workplace, call);
    const dao::Database& year = workplace.session.CurrentDB;
    std::optional<int> added;
    if (isYear) {
        const dao::Database other = openOther(workplace, call);
        added =
            importListFromYear(year, classCode, other, listedClass(other, call), workplace.prompts);
    } else {
        added = importListFromSheet(year, classCode, {file, choice}, workplace.prompts);
    }
    workplace.session.CloseAllDatabases();
    return printCount(added);
}

ExitStatus importMarks(const Workplace& workplace, const Call& call) {
    const SheetSource source{sheetOf(call), choiceOf(call, usualExcelSheetChoice())};
    const QString classCode = openClass(workplace, call);
    std::optional<QStringList> titles;
    if (confirmExcelSheet(workplace.prompts))
        titles =
            ImportExcelSheet(workplace.session.CurrentDB, classCode, source, workplace.prompts);
    workplace.session.CloseAllDatabases();
    return printTitles(titles);
}

ExitStatus importColumn(const Workplace& workplace, const Call& call) {
    const SheetSource source{sheetOf(call), choiceOf(call, usualSelectedColumnChoice())};
    const QString field = call.arguments.at(2);
    const QString classCode = openClass(workplace, call);
    const dao::Database& year = workplace.session.CurrentDB;
    const bool isColumn = year.TableDefs()[marksTable(classCode)].Fields().Contains(field) &&
                          !dao::sameName(field, u"ID");
    if (!isColumn && !dao::sameName(field, u"Tutor")) {
        workplace.session.CloseAllDatabases();
        throw RefusedCommand(u"The class has no column %1."_s.arg(field));
    }
    std::optional<int> count;
    if (confirmSelectedColumn(field, workplace.prompts))
        count = importSelectedColumn(year, classCode, field, source, workplace.prompts);
    workplace.session.CloseAllDatabases();
    return printCount(count);
}

ExitStatus importGrades(const Workplace& workplace, const Call& call) {
    const QString classCode = openClass(workplace, call);
    std::optional<QStringList> titles;
    if (confirmFromMDB(workplace.prompts)) {
        dao::Database other = openOther(workplace, call);
        const std::optional<ForeignGrades> grades =
            readForeignGrades(other, classOfOther(other, call.arguments.at(2)), workplace.prompts);
        other.Close(); // it may be the same file
        if (grades)
            titles =
                ImportFromMDB(workplace.session.CurrentDB, classCode, *grades, workplace.prompts);
    }
    workplace.session.CloseAllDatabases();
    return printTitles(titles);
}
