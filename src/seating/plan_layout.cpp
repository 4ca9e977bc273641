#include "seating/plan_layout.h"

#include <QRandomGenerator>

#include <algorithm>
#include <memory>

namespace {

constexpr int DesksInRow = 8;
constexpr int Gaps = 3;
constexpr int OuterMargins = 500;
constexpr int FirstEdge = 225;  ///< of the first desk, from the left and from the top
constexpr int RowHeight = 1200; ///< from one row's top to the next one's
constexpr int PairOverlap = 15; ///< so that the two desks of a pair read as one table
constexpr int BelowTeacher = 30;

int roundedDown(int dividend, int divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

} // namespace

int roundedQuotient(int dividend, int divisor) {
    return roundedDown(2 * dividend + divisor - 1, 2 * divisor);
}

QList<QRect> deskRows(qsizetype count, QSize desk, QSize canvas) {
    const int gap =
        roundedQuotient(canvas.width() - DesksInRow * desk.width() - OuterMargins, Gaps);
    QList<QRect> places;
    for (qsizetype i = 0; i < count; ++i) {
        QPoint corner(FirstEdge, FirstEdge);
        if (i > 0 && i % DesksInRow == 0) {
            corner.setY(places[i - DesksInRow].top() + RowHeight);
        } else if (i > 0) {
            const QRect& before = places.last();
            const int distance = i % 2 == 1 ? -PairOverlap : gap;
            corner = {before.left() + before.width() + distance, before.top()};
        }
        places += QRect(corner, desk);
    }
    return places;
}

QRect teachersPlace(QSize desk, QSize canvas) {
    return {QPoint(roundedDown(canvas.width() - desk.width(), 2),
                   canvas.height() - desk.height() - BelowTeacher),
            desk};
}

RandomNumber clockRandom(qint64 milliseconds) {
    auto generator = std::make_shared<QRandomGenerator>(static_cast<quint32>(milliseconds));
    return [generator] { return generator->generateDouble(); };
}

void shuffle(Desks& desks, const RandomNumber& random) {
    const qsizetype count = deskCount(desks);
    for (qsizetype i = 0; i < count; ++i) {
        const auto other = static_cast<qsizetype>(static_cast<double>(count) * random());
        std::swap(desks[i].place, desks[std::min(other, count - 1)].place);
    }
}

void setDeskSizes(Desks& desks, QSize size) {
    for (Desk& desk : desks) {
        if (!desk.isTeachers())
            desk.place.setSize(size);
    }
}

qsizetype missingDesks(const Desks& desks, qsizetype places) {
    return deskCount(desks) + 1 - places;
}

void takeLayout(Desks& desks, const Desks& source) {
    const qsizetype count = deskCount(desks);
    qsizetype next = 0;
    for (const Desk& from : source) {
        const qsizetype to = from.isTeachers() ? deskPlace(desks, TeachersDesk) : next++;
        if (to >= 0 && (from.isTeachers() || to < count))
            desks[to].place = from.place;
    }
}

qint64 nextEmptyId(const Desks& desks) {
    qint64 id = -1;
    while (deskPlace(desks, id) >= 0)
        --id;
    return id;
}
