#pragma once

#include "core/font_record.h"

#include <QFont>

/// The font of a record, without its colour.
QFont toFont(const FontRecord& record);
FontRecord toFontRecord(const QFont& font, qint32 colour);
