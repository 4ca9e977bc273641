#pragma once

#include "store/engine/structure.h"
#include "store/engine/value.h"

#include <QByteArray>
#include <QList>

namespace dao {

/// All that a genuine Jet file holds of a person's: the tables without the engine's own, in the
/// order of the catalogue, and the relations (in the `relations` of their foreign tables).
struct JetTable {
    TableStructure structure;
    QList<QList<Value>> rows; ///< in the table's order; a value a field
};

struct JetContent {
    QList<JetTable> tables;
};

/// Whether bytes from the start of a file are those of a genuine Jet file (.mdb of Jet 3 or 4).
bool isJetHeader(const QByteArray& start);

/// Raises 3343 for a Jet file whose end is missing: `start` is its start, `size` its length.
void checkJetPages(const QByteArray& start, qint64 size);

/// The password that a Jet file is protected with, empty for none. `start`: its first 4096 bytes
/// at least, fewer raise 3343.
QString jetPassword(const QByteArray& start);

/// Reads a genuine Jet file whole. Date fields come as texts "yyyy-mm-dd hh:mm:ss", truth values as
/// -1 and 0, currencies as numbers. Raises 3343 for a damaged or truncated file: whatever its
/// bytes, it ends in content or in that error. Raises 3051 where the computer lacks what it needs.
JetContent readJetFile(const QByteArray& file);

} // namespace dao
