#pragma once

#include "core/font_record.h"

namespace richtext {

/// A document text with the font at the start of its last paragraph, of which it keeps the head
/// alone: meant for documents without text. Works on the text as it stands and knows only the
/// program's own dialect: without "\pard\plain\" it answers the text unchanged. A font or a colour
/// that its tables lack is not added; the font is then "f0", the colour the number behind the
/// table's last.
QString SetDefaultFormat(const QString& rtf, const FontRecord& font);

} // namespace richtext
