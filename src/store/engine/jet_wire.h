#pragma once

#include "store/engine/jet_reader.h"

#include <QByteArray>

namespace dao {

/// A Jet file's content as bytes, in which it passes from the process that reads it to the one that
/// asked.
QByteArray packContent(const JetContent& content);

/// The content again. Raises 3343 for bytes that are not exactly those of a content.
JetContent unpackContent(const QByteArray& bytes);

} // namespace dao
