#pragma once

#include "classes/class_tables.h"

#include <QList>
#include <QString>
#include <QStringList>

class Prompts;

/// What the New Class Wizard knows, without its window: a code for the class, then the periods in
/// which it is taught, picked on the timetable. Nothing is written before createClass.

/// One period of one weekday on the wizard's timetable.
struct TaughtPeriod {
    QString caption;    ///< the code of the class taught; empty for none
    bool taken = false; ///< by a class that exists
};

/// A week of the wizard's timetable. A cell's index is (period - 1) * 5 + weekday, Monday 0.
using TaughtWeek = QList<TaughtPeriod>;

enum NewClassPage { ClassCodePage = 0, TimetableAPage = 1, TimetableBPage = 2 };

/// What a step of the wizard ends in.
enum class NewClassStep {
    Stay,  ///< on the page; the person was told why
    Move,  ///< to the page that stands in the answers now
    Finish ///< createClass is due, and the wizard closes
};

/// The wizard's answers and the timetable that it shows.
struct NewClass {
    int periodsPerDay = 0;
    bool twoWeeks = false;
    QStringList codesInUse; ///< in the order of `Classcodes`
    QString code;           ///< as it stands in the box
    TaughtWeek weekA;
    TaughtWeek weekB; ///< of two weeks only
    int page = ClassCodePage;
    bool nextFinishes = false; ///< the button reads "Finish >>"

    TaughtWeek& week(QChar letter) { return letter == u'B' ? weekB : weekA; }
    const TaughtWeek& week(QChar letter) const { return letter == u'B' ? weekB : weekA; }
};

/// Reads the year's shape, its class codes and the periods that they take. Raises what the engine
/// raises. A period beyond those of a day is left out.
NewClass readNewClass(const dao::Database& database);

/// The empty grids of the two weeks: a row a period, five days.
TaughtWeek emptyWeekA(int periodsPerDay);
TaughtWeek emptyWeekB(int periodsPerDay);

/// The box for a character that no code holds.
void showInvalidCharacter(Prompts& prompts);
/// What a key typed into the code box enters: the capital, a control key itself, nothing for a
/// character that no code holds, which is told.
QString classCodeKey(Prompts& prompts, const QString& key);

/// One page on: from the codes only with a new one, and then without the picks made under another
/// code. `page` is the one shown.
NewClassStep nextPage(NewClass& answers, int page, Prompts& prompts);
/// One page back; on the first it stays.
void previousPage(NewClass& answers, int page);

/// Picks a cell for the class, or drops the pick; tells why a cell taken by another class stays as
/// it is. Answers whether the cell changed.
bool toggleCell(NewClass& answers, QChar letter, int index, Prompts& prompts);
/// Whether a cell is picked for the new class.
bool isPicked(const NewClass& answers, const TaughtPeriod& cell);

/// The periods picked.
ClassPeriods pickedPeriods(const NewClass& answers);

/// Asks whether to give the set-up up.
bool confirmCancel(Prompts& prompts);

QString newClassTitle();             ///< of the window
QString newClassHelp(int page);      ///< the text above the list of codes or the timetable
QString newClassPageTitle(int page); ///< "Page " and the number
QString nextButtonText(const NewClass& answers);
