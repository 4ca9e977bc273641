// orva_bench [WORD...]: measures the program against what the raw libraries need for the same work,
// a line a figure: name, value, floor, ratio, bound, `ok` or `OVER`. With words only the figures
// whose name holds one of them. Exit status: 0 all within their bounds, 1 some over, 2 not
// measured.

#include "figures.h"

#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

enum ExitStatus { Within = 0, Over = 1, NotMeasured = 2 };

bool isAskedFor(const Figure& figure, const QStringList& words) {
    return words.isEmpty() || std::any_of(words.begin(), words.end(), [&](const QString& word) {
               return figure.name.contains(word);
           });
}

bool isWithinBound(const Figure& figure) {
    constexpr double milliseconds = 1000;
    const Measurement measured = measure(figure);
    const bool within = measured.ratio() <= figure.bound;
    std::printf("%-24s %9.3f ms %9.3f ms %6.2f %6.2f  %s\n", qPrintable(figure.name),
                measured.value * milliseconds, measured.floor * milliseconds, measured.ratio(),
                figure.bound, within ? "ok" : "OVER");
    std::fflush(stdout);
    return within;
}

/// One family after the other, so that no figure is measured in a process full of what the others
/// need: what a fork or an allocation costs depends on it.
ExitStatus measureAll(const QStringList& words) {
    // Beside the program and not in the system's temporary folder, which may be in memory, where
    // writing through to the disk costs nothing.
    const QTemporaryDir folder(QCoreApplication::applicationDirPath() + u"/bench-XXXXXX"_s);
    bool within = true;
    for (const auto& family :
         {fileFigures,        backupFigures,      recordsetFigures, classFigures,
          importFigures,      classWindowFigures, startFigures,     screenFigures,
          richTextFigures,    writingFigures,     planningFigures,  weekFigures,
          searchFigures,      eventFigures,       reminderFigures,  postItFigures,
          addressBookFigures, incidentFigures,    seatingFigures,   documentFigures,
          exportFigures,      archiveFigures}) {
        for (const Figure& figure : family(folder.path())) {
            if (isAskedFor(figure, words))
                within = isWithinBound(figure) && within;
        }
    }
    return within ? Within : Over;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::printf("%-24s %12s %12s %6s %6s\n", "figure", "value", "floor", "ratio", "bound");
    try {
        return measureAll(QCoreApplication::arguments().mid(1));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return NotMeasured;
    }
}
