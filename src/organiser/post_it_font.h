#pragma once

#include "core/font_record.h"

#include <optional>

class Settings;

/// The font of what is written in post-it notes, as the settings have it; none where none was ever
/// chosen.
std::optional<FontRecord> postItFont(const Settings& settings);
void setPostItFont(Settings& settings, const FontRecord& font);
