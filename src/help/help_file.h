#pragma once

#include "help/help.h"

#include <optional>

/// Help on disk. The file has three parts (docs/help.md): the eight characters "ORVAHLP1", the
/// SHA-256 of what follows, and one CBOR map: `pages`, `chapters` and `pictures`.

/// False where the file could not be written; what stood there is then untouched.
bool writeHelpFile(const HelpBook& book, const QString& path);

/// What reading a help file ends in: the book, or a sentence for the teacher.
struct ReadHelp {
    std::optional<HelpBook> book;
    QString fault;
};
ReadHelp readHelpFile(const QString& path);

/// The help that is installed with the program; the path, whether there is such a file or not.
QString stockHelpFile();

/// Reads the person's own copy of the help, which is made from the stock where there is none, where
/// the stock is newer, and where the copy is damaged. A copy that can't be made leaves what is
/// there.
ReadHelp openHelpFile(const QString& path, const QString& stock = stockHelpFile());
