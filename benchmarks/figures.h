#pragma once

#include <QString>

#include <memory>
#include <vector>

// A harness of its own rather than Google Benchmark: a figure here is the ratio of two pieces of
// work, and on a machine with other load that holds only where the two run in turn within one loop.
// The library measures one benchmark after the other, or shuffles all of them among each other.

/// A piece of work that can be done again and again.
class Work {
public:
    virtual ~Work() = default;
    virtual void prepare() {} ///< before each run; not timed
    virtual void run() = 0;   ///< timed
    /// After each run; not timed. Answers how much was done, which both sides of a figure have to
    /// agree on.
    virtual qint64 finish() = 0;
};

/// One picture of a screen that shows sixty a second: what a person sees happen at once takes no
/// longer.
inline constexpr double FrameSeconds = 0.016;

/// What the program needs for something, beside what the raw library needs for the same, or beside
/// one frame of the screen.
struct Figure {
    QString name;
    double bound; ///< how many times the floor the value may be
    int rounds;
    std::unique_ptr<Work> value;
    std::unique_ptr<Work> floor; ///< none: FrameSeconds
};

struct Measurement {
    double value; ///< seconds, as the next
    double floor;
    double ratio() const { return value / floor; }
};

/// Runs both sides (or the only one) in turn, each round the other one first, after one round that
/// does not count. Answers each side's shortest time: other load on the machine only ever adds to
/// it. Raises std::runtime_error where the sides did not do the same.
Measurement measure(const Figure& figure);

/// The figures, each family by the file that its work is in. `folder` takes their files; it has to
/// be on the disk where years are kept.
std::vector<Figure> fileFigures(const QString& folder);
std::vector<Figure> backupFigures(const QString& folder);
std::vector<Figure> recordsetFigures(const QString& folder);
std::vector<Figure> classFigures(const QString& folder);
std::vector<Figure> importFigures(const QString& folder);
std::vector<Figure> classWindowFigures(const QString& folder);
std::vector<Figure> startFigures(const QString& folder);
std::vector<Figure> screenFigures(const QString& folder);
std::vector<Figure> richTextFigures(const QString& folder);
std::vector<Figure> writingFigures(const QString& folder);
std::vector<Figure> planningFigures(const QString& folder);
std::vector<Figure> weekFigures(const QString& folder);
std::vector<Figure> archiveFigures(const QString& folder);
std::vector<Figure> documentFigures(const QString& folder);
std::vector<Figure> searchFigures(const QString& folder);
std::vector<Figure> eventFigures(const QString& folder);
std::vector<Figure> reminderFigures(const QString& folder);
std::vector<Figure> postItFigures(const QString& folder);
std::vector<Figure> addressBookFigures(const QString& folder);
std::vector<Figure> incidentFigures(const QString& folder);
std::vector<Figure> seatingFigures(const QString& folder);
std::vector<Figure> exportFigures(const QString& folder);
