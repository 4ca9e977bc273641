#pragma once

#include "help/help.h"

/// How the help file is made from its sources: one Markdown file a page, `contents.txt` with the
/// order of the pages, and the pictures of the windows (docs/help.md has the format).

struct BuiltHelp {
    HelpBook book;
    /// Sentences, each of which names the page at fault. With one of them the book is not fit to be
    /// used.
    QStringList faults;
};

/// `sources` and `pictures` are folders. `windows` are those that the program has: a page about
/// another one is left out, and links to it read as plain text.
BuiltHelp buildHelp(const QString& sources, const QString& pictures, const QStringList& windows);
