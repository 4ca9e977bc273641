#include "seating/desk.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString LineBreak = u"\r\n"_s;

/// By the line break, unless it ends the caption; else by the first blank.
std::optional<QString> pupilEntry(const QString& caption) {
    qsizetype divider = caption.indexOf(LineBreak);
    qsizetype length = LineBreak.size();
    if (divider < 0 || divider + length == caption.size()) {
        divider = caption.indexOf(u' ');
        length = 1;
    }
    if (divider < 0)
        return std::nullopt;
    return caption.mid(divider + length) + u'\t' + caption.left(divider);
}

} // namespace

qsizetype deskCount(const Desks& desks) {
    return std::count_if(desks.begin(), desks.end(),
                         [](const Desk& desk) { return !desk.isTeachers(); });
}

qsizetype deskPlace(const Desks& desks, qint64 id) {
    const auto found =
        std::find_if(desks.begin(), desks.end(), [id](const Desk& desk) { return desk.id == id; });
    return found == desks.end() ? -1 : found - desks.begin();
}

int deskTwips(int units, int twipsPerPixel) {
    constexpr int pixelsPerUnit = 8;
    return units * pixelsPerUnit * twipsPerPixel + twipsPerPixel;
}

QString pupilCaption(const QString& firstname, const QString& surname) {
    return firstname + LineBreak + surname;
}

QString StripCLF(const QString& caption) {
    return QString(caption).replace(LineBreak, u" "_s);
}

QList<ListedPupil> listedPupils(const Desks& desks) {
    QList<ListedPupil> listed;
    for (const Desk& desk : desks) {
        if (!desk.isPupils())
            continue;
        if (const std::optional<QString> entry = pupilEntry(desk.caption))
            listed += {desk.id, *entry};
    }
    return listed;
}
