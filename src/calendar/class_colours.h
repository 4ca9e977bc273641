#pragma once

#include "core/class_colour.h"

#include <QList>

class Session;

namespace dao {
class Database;
}

/// The classes with their colours, in the order of `Classcodes`; white where none was set. Raises
/// what the engine raises, as the next.
QList<ClassColour> readClasses(const dao::Database& database);

/// Reads the session's `ClassColours` from its file.
void LoadClassColours(Session& session);
