#include "richtext/rtf_words.h"

#include "richtext/text_state.h"

#include <QTextListFormat>

#include <array>
#include <string_view>

namespace richtext {

namespace {

struct Entry {
    std::string_view name;
    WordMeaning meaning;
};

constexpr Entry words[] = {
    // Groups that hold nothing to show. One that is marked with \* is skipped anyway unless its
    // word has another meaning here.
    {"info", {Word::SkippedGroup}},
    {"stylesheet", {Word::SkippedGroup}},
    {"fldinst", {Word::SkippedGroup}},
    {"nonshppict", {Word::SkippedGroup}},
    {"shprslt", {Word::SkippedGroup}},
    {"sn", {Word::SkippedGroup}},
    {"header", {Word::SkippedGroup}},
    {"headerl", {Word::SkippedGroup}},
    {"headerr", {Word::SkippedGroup}},
    {"headerf", {Word::SkippedGroup}},
    {"footer", {Word::SkippedGroup}},
    {"footerl", {Word::SkippedGroup}},
    {"footerr", {Word::SkippedGroup}},
    {"footerf", {Word::SkippedGroup}},
    {"footnote", {Word::SkippedGroup}},
    {"ftnsep", {Word::SkippedGroup}},
    {"ftnsepc", {Word::SkippedGroup}},
    {"ftncn", {Word::SkippedGroup}},
    {"aftnsep", {Word::SkippedGroup}},
    {"aftnsepc", {Word::SkippedGroup}},
    {"aftncn", {Word::SkippedGroup}},
    {"annotation", {Word::SkippedGroup}},
    {"atnid", {Word::SkippedGroup}},
    {"atnauthor", {Word::SkippedGroup}},
    {"bkmkstart", {Word::SkippedGroup}},
    {"bkmkend", {Word::SkippedGroup}},
    {"nonesttables", {Word::SkippedGroup}},
    {"pntxta", {Word::SkippedGroup}},
    {"pntxtb", {Word::SkippedGroup}},
    {"pnseclvl", {Word::SkippedGroup}},
    {"xe", {Word::SkippedGroup}},
    {"rxe", {Word::SkippedGroup}},
    {"txe", {Word::SkippedGroup}},
    {"tc", {Word::SkippedGroup}},
    {"tcn", {Word::SkippedGroup}},
    {"filetbl", {Word::SkippedGroup}},
    {"listtable", {Word::SkippedGroup}},
    {"listoverridetable", {Word::SkippedGroup}},
    {"revtbl", {Word::SkippedGroup}},
    {"private", {Word::SkippedGroup}},
    {"template", {Word::SkippedGroup}},
    {"comment", {Word::SkippedGroup}},
    {"title", {Word::SkippedGroup}},
    {"author", {Word::SkippedGroup}},
    {"operator", {Word::SkippedGroup}},
    {"subject", {Word::SkippedGroup}},
    {"keywords", {Word::SkippedGroup}},
    {"panose", {Word::SkippedGroup}},
    {"falt", {Word::SkippedGroup}},
    {"fontemb", {Word::SkippedGroup}},

    {"upr", {Word::StructureGroup}},
    {"shp", {Word::StructureGroup}},
    {"shpinst", {Word::StructureGroup}},
    {"shpgrp", {Word::StructureGroup}},
    {"sp", {Word::StructureGroup}},
    {"sv", {Word::StructureGroup}},
    {"ud", {Word::ShownGroup}},
    {"shptxt", {Word::ShownGroup}},
    {"shppict", {Word::ShownGroup}},
    {"nesttableprops", {Word::ShownGroup}},
    {"fonttbl", {Word::FontTable}},
    {"colortbl", {Word::ColourTable}},
    {"object", {Word::Object}},
    {"pict", {Word::Picture}},
    {"pntext", {Word::ListMarker}},
    {"listtext", {Word::ListMarker}},
    {"pn", {Word::Bullets}},

    {"tab", {Word::Symbol, u'\t'}},
    {"line", {Word::Symbol, QChar::LineSeparator}},
    {"lbr", {Word::Symbol, QChar::LineSeparator}},
    {"page", {Word::Symbol, QChar::LineSeparator}},
    {"column", {Word::Symbol, QChar::LineSeparator}},
    {"bullet", {Word::Symbol, 0x2022}},
    {"endash", {Word::Symbol, 0x2013}},
    {"emdash", {Word::Symbol, 0x2014}},
    {"lquote", {Word::Symbol, 0x2018}},
    {"rquote", {Word::Symbol, 0x2019}},
    {"ldblquote", {Word::Symbol, 0x201C}},
    {"rdblquote", {Word::Symbol, 0x201D}},
    {"enspace", {Word::Symbol, 0x2002}},
    {"emspace", {Word::Symbol, 0x2003}},
    {"qmspace", {Word::Symbol, 0x2005}},
    {"zwj", {Word::Symbol, 0x200D}},
    {"zwnj", {Word::Symbol, 0x200C}},
    {"zwbo", {Word::Symbol, 0x200B}},
    {"zwnbo", {Word::Symbol, 0x2060}},
    {"ltrmark", {Word::Symbol, 0x200E}},
    {"rtlmark", {Word::Symbol, 0x200F}},
    {"par", {Word::Paragraph}},
    {"sect", {Word::Paragraph}},
    {"cell", {Word::Cell}},
    {"nestcell", {Word::Cell}},
    {"row", {Word::Row}},
    {"nestrow", {Word::Row}},
    {"u", {Word::Unicode}},
    {"uc", {Word::UnicodeSkip}},
    {"bin", {Word::Binary}},

    {"b", {Word::Flag, Bold}},
    {"i", {Word::Flag, Italic}},
    {"ul", {Word::Flag, Underline}},
    {"uld", {Word::Flag, Underline}},
    {"uldash", {Word::Flag, Underline}},
    {"uldashd", {Word::Flag, Underline}},
    {"uldashdd", {Word::Flag, Underline}},
    {"uldb", {Word::Flag, Underline}},
    {"ulth", {Word::Flag, Underline}},
    {"ulw", {Word::Flag, Underline}},
    {"ulwave", {Word::Flag, Underline}},
    {"ulhwave", {Word::Flag, Underline}},
    {"ulldash", {Word::Flag, Underline}},
    {"ulthd", {Word::Flag, Underline}},
    {"ulthdash", {Word::Flag, Underline}},
    {"ulnone", {Word::FlagOff, Underline}},
    {"strike", {Word::Flag, Strike}},
    {"striked", {Word::Flag, Strike}},
    {"v", {Word::Flag, Hidden}},
    {"deleted", {Word::Flag, Hidden}},
    {"super", {Word::Flag, Superscript}},
    {"sub", {Word::Flag, Subscript}},
    {"nosupersub", {Word::FlagOff, Superscript | Subscript}},
    {"up", {Word::Raised}},
    {"dn", {Word::Lowered}},
    {"plain", {Word::Plain}},
    {"f", {Word::Font}},
    {"fs", {Word::FontSize}},
    {"cf", {Word::Colour}},
    {"highlight", {Word::Highlight}},
    {"cb", {Word::Highlight}},
    {"chcbpat", {Word::Highlight}},

    {"pard", {Word::ParagraphDefaults}},
    {"ql", {Word::Alignment, Qt::AlignLeft}},
    {"qr", {Word::Alignment, Qt::AlignRight}},
    {"qc", {Word::Alignment, Qt::AlignHCenter}},
    {"qj", {Word::Alignment, Qt::AlignJustify}},
    {"li", {Word::LeftIndent}},
    {"ri", {Word::RightIndent}},
    {"fi", {Word::FirstIndent}},
    {"sb", {Word::SpaceBefore}},
    {"sa", {Word::SpaceAfter}},
    {"sl", {Word::LineSpacing}},
    {"slmult", {Word::LineMultiple}},
    {"rtlpar", {Word::Direction, Qt::RightToLeft}},
    {"ltrpar", {Word::Direction, Qt::LeftToRight}},
    {"pnlvlblt", {Word::ListStyle, QTextListFormat::ListDisc}},
    {"pnlvlbody", {Word::ListStyle, QTextListFormat::ListDecimal}},
    {"pnlvlcont", {Word::ListStyle, 0}},
    {"pndec", {Word::ListStyle, QTextListFormat::ListDecimal}},
    {"pncard", {Word::ListStyle, QTextListFormat::ListDecimal}},
    {"pnucltr", {Word::ListStyle, QTextListFormat::ListUpperAlpha}},
    {"pnlcltr", {Word::ListStyle, QTextListFormat::ListLowerAlpha}},
    {"pnucrm", {Word::ListStyle, QTextListFormat::ListUpperRoman}},
    {"pnlcrm", {Word::ListStyle, QTextListFormat::ListLowerRoman}},

    {"ansicpg", {Word::AnsiCodePage}},
    {"mac", {Word::CodePage, 10000}},
    {"pc", {Word::CodePage, 437}},
    {"pca", {Word::CodePage, 850}},
    {"deff", {Word::DefaultFont}},
    {"fcharset", {Word::FontCharset}},
    {"cpg", {Word::FontCodePage}},
    {"red", {Word::Red}},
    {"green", {Word::Green}},
    {"blue", {Word::Blue}},

    {"objclass", {Word::ObjectClass}},
    {"objdata", {Word::ObjectData}},
    {"pngblip", {Word::PictureKind, PngPicture}},
    {"jpegblip", {Word::PictureKind, JpegPicture}},
    {"dibitmap", {Word::PictureKind, BitmapPicture}},
    {"picwgoal", {Word::PictureWidth}},
    {"pichgoal", {Word::PictureHeight}},
    {"picscalex", {Word::PictureScaleX}},
    {"picscaley", {Word::PictureScaleY}},
};

// An open hash table, filled by the compiler; at most a quarter of its places are taken.
constexpr quint32 places = 1024;
static_assert(std::size(words) * 4 <= places);

constexpr std::array<quint8, places> table = [] {
    std::array<quint8, places> filled{};
    for (size_t i = 0; i < std::size(words); ++i) {
        quint32 hash = noLetters;
        for (const char letter : words[i].name)
            hash = hashLetter(hash, static_cast<char16_t>(letter));
        quint32 place = hash % places;
        while (filled[place] != 0)
            place = (place + 1) % places;
        filled[place] = static_cast<quint8>(i + 1);
    }
    return filled;
}();

bool isSame(std::string_view name, QStringView word) {
    if (static_cast<qsizetype>(name.size()) != word.size())
        return false;
    for (size_t i = 0; i < name.size(); ++i) {
        if (static_cast<char16_t>(name[i]) != word.utf16()[i])
            return false;
    }
    return true;
}

} // namespace

WordMeaning meaningOf(QStringView word, quint32 hash) {
    for (quint32 place = hash % places; table[place] != 0; place = (place + 1) % places) {
        const Entry& entry = words[table[place] - 1];
        if (isSame(entry.name, word))
            return entry.meaning;
    }
    return {};
}

} // namespace richtext
