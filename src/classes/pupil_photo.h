#pragma once

#include "store/engine/database.h"

#include <QImage>
#include <QString>

/// The photo of a pupil of a class, by `ID`: a null picture where there is none, or none that can
/// be read. `Photo` holds a picture file as it is; older files have bitmaps there. Raises what the
/// engine raises.
QImage pupilPhoto(const dao::Database& database, const QString& classCode, qint64 pupil);
