#pragma once

#include <QList>
#include <QRect>
#include <QSize>
#include <QString>

/// What stands in a classroom. Places and sizes are in twips, a 1440th of an inch each: those of a
/// QRect's left, top, width and height.

/// The `ID` of the teacher's desk. Those of pupils' desks are the pupils' own, from 1 on; those of
/// empty desks are negative.
inline constexpr qint64 TeachersDesk = 0;

struct Desk {
    qint64 id = TeachersDesk;
    QRect place = {};
    QString caption = {}; ///< of a pupil the first name, a line break, the surname
    bool isVisible = true;

    bool isPupils() const { return id > TeachersDesk; }
    bool isEmpty() const { return id < TeachersDesk; }
    bool isTeachers() const { return id == TeachersDesk; }
    bool operator==(const Desk&) const = default;
};

/// Which plan of a class: the default one without a room.
struct PlanName {
    QString classCode = {};
    QString room = {};

    bool operator==(const PlanName&) const = default;
};

/// The desks in the order of their making, those of pupils, empty ones, and the teacher's, which a
/// plan may lack, last.
using Desks = QList<Desk>;

/// How many desks there are beside the teacher's.
qsizetype deskCount(const Desks& desks);
/// The place of a desk in the list by its `ID`; -1 where it is not there.
qsizetype deskPlace(const Desks& desks, qint64 id);

/// The sizes of a new desk.
struct DeskSizes {
    QSize desk{855, 615};
    QSize teachers{1695, 615};
};

/// A width or height that is set in units of the grid. `twipsPerPixel` is that of its direction.
int deskTwips(int units, int twipsPerPixel);
/// The most units that can be set.
inline constexpr int MostDeskUnits = 20;

inline const QString EmptyDeskCaption = QStringLiteral("EMPTY");
inline const QString TeachersCaption = QStringLiteral("TEACHER");
/// The most characters of a caption.
inline constexpr int LongestDeskCaption = 255;

/// A pupil's caption.
QString pupilCaption(const QString& firstname, const QString& surname);
/// A caption in one line.
QString StripCLF(const QString& caption);

/// A pupil as the list of them reads.
struct ListedPupil {
    qint64 id;
    QString entry; ///< surname, tab, first name
};
/// The pupils that have a desk; one whose caption can't be divided is not listed.
QList<ListedPupil> listedPupils(const Desks& desks);
