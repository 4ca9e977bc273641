#include "office/number_format.h"

#include <QRegularExpression>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct UsualFormats {
    int first;
    int last;
    CellKind kind;
};
/// Those that workbooks know without their text, the eastern ones among them.
constexpr UsualFormats usualFormats[] = {
    {14, 17, CellKind::Date}, {18, 21, CellKind::Time}, {22, 22, CellKind::DateTime},
    {27, 31, CellKind::Date}, {32, 35, CellKind::Time}, {36, 36, CellKind::Date},
    {45, 47, CellKind::Time}, {50, 58, CellKind::Date},
};

/// The letters of a format's first section that stand for parts of a number: without what is
/// quoted, escaped, filled in or in brackets (but for hours, minutes and seconds that count on).
QString lettersOfFormat(QStringView code) {
    QString letters;
    for (qsizetype place = 0; place < code.size() && code[place] != u';'; ++place) {
        const QChar sign = code[place];
        if (sign == u'\\' || sign == u'_' || sign == u'*') {
            ++place;
        } else if (sign == u'"' || sign == u'[') {
            const qsizetype end = code.indexOf(sign == u'"' ? u'"' : u']', place + 1);
            if (end < 0)
                break;
            const QStringView inside = code.sliced(place + 1, end - place - 1);
            if (sign == u'[' && (inside.startsWith(u'h', Qt::CaseInsensitive) ||
                                 inside.startsWith(u's', Qt::CaseInsensitive)))
                letters += u'h';
            place = end;
        } else {
            letters += sign.toLower();
        }
    }
    return letters;
}

/// Whether a time's hours, minutes or seconds go on beyond a day; of others the day is hidden.
bool countsOn(int id, const QString& code) {
    constexpr int usualOne = 46;
    static const QRegularExpression part(u"\\[(h+|m+|s+)\\]"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    return id == usualOne || code.contains(part);
}

} // namespace

std::optional<CellKind> momentOfFormat(int id, QStringView code) {
    if (code.isEmpty()) {
        for (const UsualFormats& each : usualFormats) {
            if (id >= each.first && id <= each.last)
                return each.kind;
        }
        return std::nullopt;
    }
    if (code.compare(u"General", Qt::CaseInsensitive) == 0)
        return std::nullopt;
    const QString letters = lettersOfFormat(code);
    const bool hasTime = letters.contains(u'h') || letters.contains(u's');
    const bool hasDate =
        letters.contains(u'd') || letters.contains(u'y') || (letters.contains(u'm') && !hasTime);
    if (hasDate)
        return hasTime ? CellKind::DateTime : CellKind::Date;
    return hasTime ? std::optional(CellKind::Time) : std::nullopt;
}

void NumberFormats::put(SheetCells& sheet, int row, int column, double number,
                        qsizetype style) const {
    const int id = cells.value(style, 0);
    const QString code = codes.value(id);
    const std::optional<CellKind> kind = momentOfFormat(id, code);
    if (!kind)
        return sheet.setNumber(row, column, number);
    const bool isOfDay = *kind == CellKind::Time && number >= 1 && !countsOn(id, code);
    sheet.setMoment(row, column, *kind, isOfDay ? number - std::floor(number) : number, from1904);
}
