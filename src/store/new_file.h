#pragma once

#include <QString>

/// Files that are made beside their place under another name and put there when they are whole.

/// Puts the finished file `made` in the place of `target`, over one that stands there: at every
/// moment, also when the power fails, the name stands for the old file or for the new one. Side
/// files that an old database left beside `target` go first. Both must be in the same folder.
/// Raises 3043 when it can't be done; then `target` is as it was.
void putInPlace(const QString& made, const QString& target);

/// Removes a database and the side files that the engine may have left with it.
void removeDatabaseFile(const QString& path);
