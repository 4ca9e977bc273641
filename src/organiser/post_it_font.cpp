#include "organiser/post_it_font.h"

#include "core/settings.h"
#include "organiser/post_it_settings.h"

std::optional<FontRecord> postItFont(const Settings& settings) {
    const QString name = settings.get(setting::PostitFontName);
    const std::optional<qint32> colour = settings.find(setting::PostitFontCol);
    if (name.isEmpty() && !colour)
        return std::nullopt;
    FontRecord font;
    if (!name.isEmpty())
        font.name = name;
    font.bold = settings.get(setting::PostitFontBold);
    font.italic = settings.get(setting::PostitFontItalic);
    font.underline = settings.get(setting::PostitFontUnderline);
    font.size = settings.get(setting::PostitFontSize);
    font.colour = colour.value_or(0);
    return font;
}

void setPostItFont(Settings& settings, const FontRecord& font) {
    const Settings::Batch whole(settings);
    settings.set(setting::PostitFontName, font.name);
    settings.set(setting::PostitFontBold, font.bold);
    settings.set(setting::PostitFontItalic, font.italic);
    settings.set(setting::PostitFontUnderline, font.underline);
    settings.set(setting::PostitFontSize, font.size);
    settings.set(setting::PostitFontCol, font.colour);
}
