#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Loads what reads zip archives: before the child process that uses it. False where the module or
/// the library behind it is missing.
bool loadZipReader();

/// A part of an archive, unpacked, by its path in there; none where there is no such part.
std::optional<QByteArray> readZipPart(const QByteArray& archive, const QString& name);
