#pragma once

#include <QByteArray>

/// A compound file, as documents of older office programs are kept in, with one stream of that
/// name. Raises 3251 where the library is not installed, 3043 where it fails.
QByteArray compoundFile(const char* streamName, const QByteArray& stream);
