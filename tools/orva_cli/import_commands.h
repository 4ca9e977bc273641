#pragma once

#include "command.h"

/// `import-list`: pupils from a spreadsheet, a text file or a class of another year. Prints how
/// many were added.
ExitStatus importClassList(const Workplace& workplace, const Call& call);
/// `import-marks`: a whole sheet into new grade columns. Prints the titles added.
ExitStatus importMarks(const Workplace& workplace, const Call& call);
/// `import-column`: one column of a sheet into one that is there. Prints how many pupils got their
/// grade.
ExitStatus importColumn(const Workplace& workplace, const Call& call);
/// `import-grades`: the grades of a class of another year. Prints the titles added.
ExitStatus importGrades(const Workplace& workplace, const Call& call);
