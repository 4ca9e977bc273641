#pragma once

#include <QString>
#include <QStringList>

/// Makes files of another format ("rtf", "png", ...) by the installed LibreOffice, in a folder that
/// is there: one for each file, with its name and the format as its ending. Runs under a profile of
/// its own, so that one that is open is not disturbed. Answers false where LibreOffice is missing
/// or takes longer than a minute; a file that it can't read is left out.
bool ConvertByLibreOffice(const QStringList& files, const QString& format, const QString& folder);
