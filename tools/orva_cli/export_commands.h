#pragma once

#include "command.h"

/// Commands that leave the data of a class as a spreadsheet: TARGET is the file, an .xlsx where its
/// name ends so, else an .xls. A file that is there already is replaced only where that is agreed
/// to. The year is only read; nothing is printed.

ExitStatus exportRegisterOf(const Workplace& workplace, const Call& call);

/// The grades with the columns that the person has not hidden.
ExitStatus exportGradesOf(const Workplace& workplace, const Call& call);

/// The names, and what `--items` lists: Tutor, Sex, Address, Telephone, Email, PID, Notes.
ExitStatus exportDetailsOf(const Workplace& workplace, const Call& call);

/// The notes under the categories that `--categories` lists.
ExitStatus exportNotesOf(const Workplace& workplace, const Call& call);

/// The lesson notes on the pupil whose `ID` is given by `--pupil`.
ExitStatus exportLessonNotesOf(const Workplace& workplace, const Call& call);
