#pragma once

#include <QDate>
#include <QString>

#include <memory>
#include <variant>

struct PostIt;

/// The windows that can be asked for, by what they are. The frame's table of windows says which of
/// them the program has, and everything about each.
enum class ToolWindow {
    StartupWizard,
    Help,
    DailySheet,
    WeeklySheet,
    Timetable,
    Classes,
    CalendarOfEvents,
    Search,
    History,
    Settings,
    Postits,
    Reminders,
    SeatingPlans,
    Incidents,
    UserTools,
    AddressBook,
    Archive,
    WeekChange,
};

/// The pages of the settings, by which `ToolWindow::Settings` is opened as its subject, a `qint64`.
/// The last one is the part of the view's page that is about post-it notes.
enum SettingsPage : qint64 {
    GeneralSettingsPage,
    ViewSettingsPage,
    FileLocationsPage,
    TimetableSettingsPage,
    PlanningSettingsPage,
    RegisterSettingsPage,
    EventsSettingsPage,
    IncidentSettingsPage,
    AddressSettingsPage,
    PostItSettingsPage,
};

/// A stretch of a text on the daily sheet of a date.
struct SheetText {
    QDate date;
    int period = 0;          ///< from 1 on
    bool isHomework = false; ///< else it is in the lesson
    int start = 0;           ///< in the plain text, from 0, in UTF-16 units
    int length = 0;

    bool operator==(const SheetText&) const = default;
};

/// What stands in the calendar of events for a day.
struct EventText {
    QDate date;
    QString text; ///< plain

    bool operator==(const EventText&) const = default;
};

/// A post-it note as it was just read (organiser/post_it_rows.h). One is the same as another of its
/// number.
struct PostItSubject {
    qint64 id = 0;
    std::shared_ptr<const PostIt> note;

    bool operator==(const PostItSubject& other) const { return id == other.id; }
};

/// One thing of all that a window can show: the sheet of a date, a text on it, the register of a
/// class's code, the row of an `ID`, an event to be reminded of, a post-it note. None: what the
/// window shows by itself.
using WindowSubject =
    std::variant<std::monostate, QDate, QString, qint64, SheetText, EventText, PostItSubject>;

/// How rules and windows reach other windows. This class itself is a program without windows.
class ToolWindows {
public:
    virtual ~ToolWindows() = default;

    /// Whether the program has the window; what leads to one that it lacks is left out everywhere.
    virtual bool has(ToolWindow) const { return false; }
    /// Loads and shows a window, or brings it to the front, and lets it show the subject.
    virtual void open(ToolWindow, const WindowSubject& = {}) {}
    /// Unloads a window, if it is loaded. Answers false where it stays, for what is written in it.
    virtual bool close(ToolWindow) { return true; }
    virtual bool isOpen(ToolWindow) const { return false; }
    /// Unloads all windows of the year but that of the settings, after each was asked. Answers
    /// false, with all as they were, where the person stays for what is written in one.
    virtual bool closeYearWindows() { return true; }
    /// Closes the year, backs it up with compaction and opens it again. Answers false where it did
    /// not come open again: then there is the start-up wizard.
    virtual bool backUpNow() { return true; }
    /// Lets the person archive a class of the year, once the window that asks has done its work: it
    /// closes with all others of the year, or all stay where what is written in one can't be kept.
    virtual void archiveClass(const QString& /*classCode*/) {}
    /// Writes all that is typed in the windows. Answers false where something can't be written and
    /// the person wants to see to that first.
    virtual bool writeAll() { return true; }
    /// Opens the windows of the last run, after a year came open.
    virtual void RunCurrentStartup() {}
};
