// Makes the program's help file from its pages and the pictures of a tour.
//
//     make_help PAGES PICTURES FILE
//
// PAGES is the folder of the pages (docs/help.md), PICTURES a folder that the tour filled: its
// windows.txt says which windows the program has. Where a page is at fault, says so and ends with
// status 1.

#include "help/help_builder.h"
#include "help/help_file.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

int fail(const QString& sentence) {
    std::fprintf(stderr, "%s\n", qPrintable(sentence));
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (arguments.size() != 3)
        return fail(u"make_help PAGES PICTURES FILE"_s);
    QFile windows(QDir(arguments[1]).filePath(u"windows.txt"_s));
    if (!windows.open(QIODevice::ReadOnly))
        return fail(windows.fileName() + u" can't be read"_s);
    const BuiltHelp built =
        buildHelp(arguments[0], arguments[1],
                  QString::fromUtf8(windows.readAll()).split(u'\n', Qt::SkipEmptyParts));
    if (!built.faults.isEmpty())
        return fail(built.faults.join(u'\n'));
    if (!writeHelpFile(built.book, arguments[2]))
        return fail(arguments[2] + u" can't be written"_s);
    return 0;
}
