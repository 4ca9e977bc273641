#pragma once

#include "core/session.h"
#include "year/year_answers.h"

#include <QDate>
#include <QLocale>
#include <QString>
#include <QStringList>

/// What the start-up wizard knows, without its window: its texts, the order of its pages, the rules
/// of its fields that no check of the answers holds.

/// What the wizard's first page offers, in the order of its list.
enum StartupAction {
    NoAction = -1,
    SetupAction = 0,
    OpenAction = 1,
    RestoreAction = 2,
    BackupAction = 3,
    RepairAction = 4,
};
/// Their texts as the list has them ("&&" is shown as "&").
QStringList startupActions();

/// The pages of the set-up by their numbers, and the first page, which stands before them.
enum SetupFrame {
    FirstPage = -1,
    TeacherFrame = 0,
    ClassesFrame = 1,
    WeekAFrame = 2,
    WeekBFrame = 3, ///< of two weeks only
    TermsFrame = 4,
    StartWeekFrame = 5, ///< of two weeks only
    FileFrame = 6,
};
int nextFrame(int frame, bool twoWeeks);
int previousFrame(int frame, bool twoWeeks);
/// "Page " and the place of the frame among those that the person meets, from 1. Empty for the
/// first page.
QString pageLabel(int frame, bool twoWeeks);

/// The years to choose from, "2026-2027": from last year to five years ahead.
QStringList academicYears(QDate today);
/// Which of them to propose: the one that runs, from June on the one to come.
int proposedYear(QDate today);

/// A teaching period in a list: its two dates in the person's short form, "   to   " between.
QString periodItem(const DatePeriod& period, const QLocale& locale);
/// The question for the first week's timetable.
QString startWeekHeading(const YearAnswers& answers, const QLocale& locale);

/// Whether a character may stand in the name of a file: it may on every system that the file could
/// be carried to.
bool isFileNameCharacter(char32_t character);
/// The proposed name of the year's file: the teacher's name, a blank, the year in brackets, ".mdb".
QString defaultFileName(const YearAnswers& answers);
/// The proposed name of a class's archive: its code and ".mdb".
QString archiveName(const QString& classCode);
/// A name that a file can be made under.
AnswerCheck checkFileName(const QString& name);
/// The path of a file by its name as typed, ".mdb" added where it is missing. `folder` has a
/// separator at its end.
QString targetFile(const QString& folder, const QString& name);

/// The boxes for a file that did not open, in the wizard's own words: one that was chosen, and the
/// default database on the way out.
OpenFailure chosenFileFailure(const OpenFault& fault, const QString& path);
OpenFailure defaultFileFailure(const OpenFault& fault, const QString& path);

/// Shows a fault in a plain box.
void showFault(Prompts& prompts, const AnswerFault& fault);

/// Asks for a year's file, a genuine Jet file too, and for its password if it has one, and answers
/// its teaching periods in the order in which the file has them. Nothing when it was called off or
/// the file has none; the teacher was told why.
QList<DatePeriod> ImportTermDates(const dao::DBEngine& engine, Prompts& prompts,
                                  const QString& startFolder);
