#pragma once

#include "figures.h"

#include <QByteArray>
#include <QString>

#include <array>

using namespace Qt::StringLiterals;

/// A year's file with one class alone, in the spring: 35 pupils, 250 lessons, two a day, of which
/// all before the middle of the year are marked, and twenty grade columns.

inline const QString SampleClassCode = u"7A"_s;
inline constexpr int SampleClassPupils = 35;
inline constexpr int SampleClassMarked = 124; ///< so many lessons are marked
inline constexpr int SampleClassGrades = 20;

void createSampleClass(const QString& path);
/// The field of a lesson, from 1.
QByteArray sampleLessonName(int number);

/// A figure whose sides have a file each, since an open year is one connection's.
template<typename Value, typename Floor>
Figure sampleClassFigure(const char* name, double bound, int rounds, const QString& folder) {
    std::array<QString, 2> files;
    for (size_t side = 0; side < files.size(); ++side) {
        files[side] = u"%1/%2-%3.mdb"_s.arg(folder, QLatin1String(name)).arg(side);
        createSampleClass(files[side]);
    }
    return {QLatin1String(name), bound, rounds, std::make_unique<Value>(files[0]),
            std::make_unique<Floor>(files[1])};
}
