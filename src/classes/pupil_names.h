#pragma once

#include "store/engine/database.h"

#include <QList>
#include <QString>

/// A pupil of a class, by name.
struct ClassPupil {
    QString forename = {};
    QString surname = {};
};
/// The pupils of a class, by surname. Raises what the engine raises.
QList<ClassPupil> classPupils(const dao::Database& year, const QString& classCode);
