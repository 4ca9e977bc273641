#include "seating/desk_seats.h"

#include <QStringList>

#include <algorithm>
#include <numeric>
#include <vector>

using namespace Qt::StringLiterals;

QStringList spokenDesks(const Desks& desks) {
    std::vector<qsizetype> byTop;
    for (qsizetype i = 0; i < desks.size(); ++i) {
        if (!desks[i].isTeachers() && desks[i].isVisible)
            byTop.push_back(i);
    }
    std::stable_sort(byTop.begin(), byTop.end(), [&](qsizetype a, qsizetype b) {
        return desks[a].place.top() < desks[b].place.top();
    });
    QStringList spoken;
    for (const Desk& desk : desks)
        spoken += desk.isTeachers() ? StripCLF(desk.caption) + u", the teacher's desk"_s
                                    : StripCLF(desk.caption);
    int row = 0;
    for (auto begin = byTop.begin(); begin != byTop.end(); ++row) {
        const QRect& first = desks[*begin].place;
        const auto end = std::find_if(begin, byTop.end(), [&](qsizetype desk) {
            return desks[desk].place.top() > first.top() + first.height() / 2;
        });
        std::stable_sort(begin, end, [&](qsizetype a, qsizetype b) {
            return desks[a].place.left() < desks[b].place.left();
        });
        for (auto desk = begin; desk != end; ++desk)
            spoken[*desk] += u", row %1, desk %2"_s.arg(row + 1).arg(desk - begin + 1);
        begin = end;
    }
    return spoken;
}
