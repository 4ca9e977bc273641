#include "classes/new_class.h"

#include "classes/class_code.h"
#include "core/prompts.h"
#include "store/table_names.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

TaughtWeek emptyGrid(int periodsPerDay) {
    return TaughtWeek(static_cast<qsizetype>(periodsPerDay) * DaysOfTimetable);
}

/// Marks the cells that a class takes.
void takeCells(TaughtWeek& grid, const std::array<QString, DaysOfTimetable>& digits,
               const QString& code) {
    for (int day = 0; day < DaysOfTimetable; ++day) {
        for (const QChar digit : digits[static_cast<size_t>(day)]) {
            const int index = (digit.digitValue() - 1) * DaysOfTimetable + day;
            if (index >= 0 && index < grid.size())
                grid[index] = {code, true};
        }
    }
}

void dropPicks(TaughtWeek& grid) {
    for (TaughtPeriod& cell : grid) {
        if (!cell.taken)
            cell.caption.clear();
    }
}

std::array<QString, DaysOfTimetable> pickedIn(const NewClass& answers, QChar letter) {
    std::array<QString, DaysOfTimetable> digits;
    const TaughtWeek& grid = answers.week(letter);
    for (int index = 0; index < grid.size(); ++index) {
        const int day = index % DaysOfTimetable;
        const int period = (index - day) / DaysOfTimetable + 1;
        if (isPicked(answers, grid[index]))
            digits[static_cast<size_t>(day)] += QString::number(period);
    }
    return digits;
}

NewClassStep leaveCodePage(NewClass& answers, Prompts& prompts) {
    if (answers.code.isEmpty()) {
        prompts.PlainBox(u"You have not entered a new Classcode!\n"
                         "You must do this before you can continue."_s,
                         OkButton | WarningIcon, u"New Class setup"_s);
        return NewClassStep::Stay;
    }
    if (const AnswerCheck fault = checkClassCode(answers.code, answers.codesInUse)) {
        prompts.PlainBox(fault->text, OkButton | WarningIcon, fault->title);
        answers.code.clear();
        return NewClassStep::Stay;
    }
    dropPicks(answers.weekA);
    dropPicks(answers.weekB);
    answers.page = TimetableAPage;
    answers.nextFinishes = !answers.twoWeeks;
    return NewClassStep::Move;
}

} // namespace

TaughtWeek emptyWeekA(int periodsPerDay) {
    return emptyGrid(periodsPerDay);
}

TaughtWeek emptyWeekB(int periodsPerDay) {
    return emptyGrid(periodsPerDay);
}

NewClass readNewClass(const dao::Database& database) {
    NewClass answers;
    dao::Recordset admin = database.OpenRecordset(AdminTable);
    answers.periodsPerDay = static_cast<int>(admin.Collect(u"PeriodsPerDay").toInteger());
    answers.twoWeeks = admin.Collect(u"TTweekly").toInteger() == 1;
    admin.Close();
    answers.weekA = emptyWeekA(answers.periodsPerDay);
    if (answers.twoWeeks)
        answers.weekB = emptyWeekB(answers.periodsPerDay);
    dao::Recordset classcodes = database.OpenRecordset(ClasscodesTable);
    for (; !classcodes.EOF_(); classcodes.MoveNext()) {
        const QString code = classcodes.Collect(u"Classcode").toText();
        answers.codesInUse += code;
        const ClassPeriods periods = classPeriods(classcodes);
        takeCells(answers.weekA, periods.weekA, code);
        if (answers.twoWeeks)
            takeCells(answers.weekB, periods.weekB, code);
    }
    classcodes.Close();
    return answers;
}

void showInvalidCharacter(Prompts& prompts) {
    prompts.PlainBox(u"Sorry but you can't use that character in a Classcode!"_s,
                     OkButton | WarningIcon, u"Invalid Character"_s);
}

QString classCodeKey(Prompts& prompts, const QString& key) {
    const QList<uint> characters = key.toUcs4();
    const bool entersNothing =
        std::all_of(characters.begin(), characters.end(), [](char32_t each) { return each < 32; });
    if (entersNothing)
        return key;
    if (std::all_of(characters.begin(), characters.end(), isClassCodeCharacter))
        return key.toUpper();
    showInvalidCharacter(prompts);
    return {};
}

NewClassStep nextPage(NewClass& answers, int page, Prompts& prompts) {
    if (page == ClassCodePage)
        return leaveCodePage(answers, prompts);
    if (page == TimetableAPage && answers.twoWeeks) {
        answers.page = TimetableBPage;
        return NewClassStep::Move;
    }
    // On the second timetable the button changes only now, at its last press.
    answers.nextFinishes = true;
    return NewClassStep::Finish;
}

void previousPage(NewClass& answers, int page) {
    answers.page = std::max<int>(page - 1, ClassCodePage);
    answers.nextFinishes = false;
}

bool toggleCell(NewClass& answers, QChar letter, int index, Prompts& prompts) {
    TaughtPeriod& cell = answers.week(letter)[index];
    if (cell.taken) {
        prompts.PlainBox(
            u"You already teach this period! You can't change the class you teach without "
            "removing the class altogether before creating a new class."_s,
            OkButton | WarningIcon, u"Period unavailable"_s);
        return false;
    }
    cell.caption = cell.caption.isEmpty() ? answers.code : QString();
    return true;
}

bool isPicked(const NewClass& answers, const TaughtPeriod& cell) {
    return !cell.taken && !cell.caption.isEmpty() && cell.caption == answers.code;
}

ClassPeriods pickedPeriods(const NewClass& answers) {
    ClassPeriods periods;
    periods.weekA = pickedIn(answers, u'A');
    if (answers.twoWeeks)
        periods.weekB = pickedIn(answers, u'B');
    return periods;
}

bool confirmCancel(Prompts& prompts) {
    return prompts.PlainBox(u"The New Class setup is incomplete.\n"
                            "Are you sure you wish to cancel the setup?"_s,
                            YesNoButtons | QuestionIcon, u"Cancel"_s) == AnswerYes;
}

QString newClassTitle() {
    return u"New Class Wizard"_s;
}

QString newClassHelp(int page) {
    if (page == ClassCodePage)
        return u"Each class must have a unique Classcode. The classcode may be up to 6 digits. "
               "The Classcodes you have already used are listed below;"_s;
    return u"Your current timetable is shown below. Please select from the available periods when "
           "this new class is to be taught."_s;
}

QString newClassPageTitle(int page) {
    return u"Page %1"_s.arg(page);
}

QString nextButtonText(const NewClass& answers) {
    return answers.nextFinishes ? u"Finish >>"_s : u"Next >>"_s;
}
