#include "richtext/code_pages.h"

#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <map>

namespace richtext {

namespace {

// What 0x80 to 0x9F are in code page 1252; the rest of it is Latin-1.
constexpr char16_t western[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

struct CharsetPage {
    qint32 charset;
    int codePage;
};

constexpr CharsetPage charsets[] = {
    {77, 10000}, {78, 932},   {79, 949},   {80, 936},   {81, 950},   {85, 10006}, {86, 10081},
    {87, 874},   {88, 10029}, {89, 10007}, {128, 932},  {129, 949},  {134, 936},  {136, 950},
    {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {179, 1256}, {180, 1256},
    {181, 1255}, {186, 1257}, {204, 1251}, {222, 874},  {238, 1250}, {254, 437},
};

constexpr int knownPages[] = {437,  708,  720,   737,   775,   850,   852,   855,  857,  858,
                              860,  861,  862,   863,   864,   865,   866,   869,  874,  932,
                              936,  949,  950,   1250,  1251,  1252,  1253,  1254, 1255, 1256,
                              1257, 1258, 10000, 10006, 10007, 10029, 10081, 65001};

QByteArray decoderName(int codePage) {
    switch (codePage) {
    case 10000:
        return "macintosh";
    case 10006:
        return "x-mac-greek";
    case 10007:
        return "x-mac-cyrillic";
    case 10029:
        return "x-mac-centraleurroman";
    case 10081:
        return "x-mac-turkish";
    case 65001:
        return "UTF-8";
    default:
        return (codePage == 874 || codePage >= 900 ? "windows-" : "IBM") +
               QByteArray::number(codePage);
    }
}

using Characters = std::array<char16_t, 256>;

Characters characters(int codePage) {
    Characters table;
    for (int byte = 0; byte < 256; ++byte)
        table[static_cast<size_t>(byte)] =
            byte >= 0x80 && byte < 0xA0 ? western[byte - 0x80] : static_cast<char16_t>(byte);
    const QByteArray name = decoderName(codePage);
    if (codePage == westernCodePage || !QStringDecoder(name.constData()).isValid())
        return table;
    for (int byte = 0x80; byte < 256; ++byte) {
        QStringDecoder decoder(name.constData());
        const QString text = decoder.decode(QByteArray(1, static_cast<char>(byte)));
        if (text.size() == 1)
            table[static_cast<size_t>(byte)] = text.front().unicode();
    }
    return table;
}

} // namespace

int knownCodePage(qint32 number) {
    const bool isKnown =
        std::find(std::begin(knownPages), std::end(knownPages), number) != std::end(knownPages);
    return isKnown ? number : westernCodePage;
}

int codePageOfCharset(qint32 charset, int usual) {
    const auto* const found =
        std::find_if(std::begin(charsets), std::end(charsets),
                     [&](const CharsetPage& entry) { return entry.charset == charset; });
    if (found != std::end(charsets))
        return found->codePage;
    // Western documents of other programs call every font 0 and mean the document's code page; one
    // of several bytes would swallow the letters behind an accent.
    return isMultiByte(usual) && (charset == 0 || charset == 2) ? westernCodePage : usual;
}

bool isMultiByte(int codePage) {
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 ||
           codePage == 65001;
}

QString decode(int codePage, QByteArrayView bytes) {
    QStringDecoder decoder(decoderName(codePage).constData());
    return decoder.isValid() ? QString(decoder.decode(bytes)) : QString::fromLatin1(bytes);
}

char16_t decode(int codePage, uchar byte) {
    static std::map<int, Characters> tables;
    auto found = tables.find(codePage);
    if (found == tables.end())
        found = tables.emplace(codePage, characters(codePage)).first;
    return found->second[byte];
}

uchar westernByte(char16_t character) {
    if (character >= 0xA0 && character <= 0xFF)
        return static_cast<uchar>(character);
    const auto* const found = std::find(std::begin(western), std::end(western), character);
    return found == std::end(western) ? 0 : static_cast<uchar>(0x80 + (found - western));
}

} // namespace richtext
