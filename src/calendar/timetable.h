#pragma once

#include "store/engine/database.h"

#include <QList>
#include <QString>

#include <array>

class Session;

/// The personal timetable: the teacher's week as a grid of periods by weekdays. It shows three
/// tables at once: `Classcodes` (the classes and when they are taught), `ExtraTTinfo` and
/// `ExtraTTinfoB` (cells without a class, in week A or the only week, and in week B) and `RoomID`.
/// Which class is taught when is not changed here; how a cell looks and reads is.

/// The colour of a cell that was never given one: the window colour of the person's scheme.
inline constexpr qint32 DefaultCellColour = static_cast<qint32>(0x80000005);
/// The grey of an editor in which no colour was chosen. A cell can't be given it.
inline constexpr qint32 NoColourChosen = 0x404040;
/// How long a caption or a room may be.
inline constexpr int LongestCaption = 255;

/// A cell of the grid, as it reads and looks.
struct TimetableCell {
    QString caption;
    qint32 colour = DefaultCellColour; ///< red in the low byte
    QString tag;                       ///< the class's code; empty where no class is taught
    QString room;

    bool operator==(const TimetableCell&) const = default;
};

/// What was put into the editor of a cell.
struct CellEdit {
    QString caption;
    qint32 colour = NoColourChosen;
    QString room;
};

/// What "Copy" keeps of a cell.
struct CopiedCell {
    QString caption;
    qint32 colour;
};

/// The grid of one week. Days are 1 (Monday) to 5, periods from 1 on.
class TimetableGrid {
public:
    static constexpr int Days = 5;

    explicit TimetableGrid(int periods = 0);

    int periods() const { return m_periods; }
    /// Whether LoadTT came to its end. Until then an empty cell only says that nothing was read.
    bool isWhole() const { return m_isWhole; }
    void setWhole(bool whole) { m_isWhole = whole; }

    /// Raises 3265 for a cell that the grid does not have.
    const TimetableCell& at(int day, int period) const;
    TimetableCell& at(int day, int period);

    /// Empties all captions, tags and rooms and takes back all colours.
    void clear();
    /// Puts an edit on a cell. Every other cell of its class takes its caption and colour, so that
    /// a class reads and looks the same all week; a room stays its own cell's.
    void applyEdit(int day, int period, const CellEdit& edit);
    CopiedCell copied(int day, int period) const;
    /// Puts a caption and colour on one cell; the others of its class follow at its next edit.
    void paste(int day, int period, const CopiedCell& copied);

    bool operator==(const TimetableGrid&) const = default;

private:
    static void paste(TimetableCell& cell, const CopiedCell& copied) {
        cell.caption = copied.caption;
        cell.colour = copied.colour;
    }
    qsizetype indexOf(int day, int period) const;

    int m_periods;
    bool m_isWhole = false;
    QList<TimetableCell> m_cells; ///< period by period, the days side by side
};

/// What `Admin` says of the timetable.
struct TimetableYear {
    QString teacher;
    int periodsPerDay = 0;
    bool twoWeeks = false;
    std::array<qint32, 3> breaks{}; ///< the periods before the breaks; 0 is none
};
TimetableYear readTimetableYear(const dao::Database& database);

/// "Timetable for :" and the teacher.
QString timetableTitle(const TimetableYear& year);

/// Fills the grid with a week: index 0 is week A or the only one, 1 is week B. Makes `RoomID` where
/// the file lacks it. Raises what the engine raises, and 3265 for a period that the grid does not
/// have, as a class with the digit "0" asks for; what was read until then stays in the grid.
void LoadTT(const dao::Database& database, int weekIndex, TimetableGrid& grid);

/// Writes the grid of a week back, whole or not at all, and reads the session's table of class
/// colours anew. Raises what the engine raises. Kept on purpose: a cell that has two rows in
/// `ExtraTTinfo` is not saved. Of a grid that is not whole what is empty is not saved either:
/// nobody has seen what the file has there.
void SaveTTinfo(Session& session, int weekIndex, const TimetableGrid& grid);

/// The place of a cell in words: "Monday, period 3".
QString cellPlace(int day, int period);
