#pragma once

#include "core/class_colour.h"
#include "core/notices.h"
#include "core/paths.h"
#include "core/seams.h"
#include "core/tool_windows.h"
#include "store/engine/engine.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class Session;
class Settings;

/// What opening a file ends in. Callers know the values by number.
enum OpenResult : qint16 {
    OpenInvalid = 0,   ///< not a year's file, or a damaged one
    OpenDone = 1,      ///< it is the session's database now
    OpenCancelled = 2, ///< the teacher called it off
    OpenInUse = 3,     ///< another program has it
};

/// Why a file did not open: what the engine raised, and the password that the teacher gave it.
struct OpenFault {
    int number = 0; ///< of the engine's; 0 for a lack of memory
    QString sentence;
    QString password;
};

/// The word of flags with which a file is chosen.
inline constexpr int ExistingFileFlags = 0x80800;

/// What the subsystems do when a file is opened. Both raise what the engine raises; the file then
/// counts as no year's.
struct YearOpening {
    /// Reads what the session shows of the year from `CurrentDB`, and so finds out whether the file
    /// is a year's.
    std::function<void(Session&)> read;
    /// Brings an older file up to date. Not for a genuine Jet file, which is only read.
    std::function<void(Session&)> bringUpToDate;
};

/// The session: one record for the whole process, with at most one open year. All read it; only the
/// operations here write it, except `DatabasePath`, which whoever chooses a file sets first.
///
/// Two states. No database: `DatabasePath` is empty or not yet opened, `CurrentDB` is none.
/// Database open: `CurrentDB` is set, and so are the values read from the file. A failure to open
/// never leaves anything in between.
class Session {
public:
    Session(dao::DBEngine& engine, Settings& settings, const Seams& seams, YearOpening opening);

    QString AppPath;     ///< the person's program folder, with a separator at its end
    QString WindowsPath; ///< the home folder, with a separator at its end
    QString DatabasePath;
    QString DatabasePassword; ///< what opened the database; handed on to compaction
    dao::Database CurrentDB;
    QString AcademicYear; ///< a label; no date is computed from it
    qint16 PeriodsPerDay = 0;
    QString TeacherName;
    /// 1: TWO weeks, A and B, by turns; 0: one week that repeats. The name says the opposite of
    /// what it means; it is the wizard's check box and stays so.
    qint16 TTweekly = 0;
    QString StartWeek; ///< the first teaching week's letter; empty unless TTweekly is 1
    qint16 TermCount = 0;
    QList<ClassColour> ClassColours; ///< in the order of `Classcodes`
    QString ShortDateFormat;         ///< of the person's locale, as QLocale writes formats
    QString DateSeparator;
    qint16 TwipsPerPixelX = 15;
    qint16 TwipsPerPixelY = 15;
    qint32 ScreenMetricBorderX = 1; ///< logical pixels, as the next three
    qint32 ScreenMetricBorderY = 1;
    qint32 ScreenMetricCaption = 0;
    qint32 ScreenMetricIcon = 0;
    bool GradientsAvailable = false;
    bool GradientsEnabled = false;
    ::FolderDefaults FolderDefaults;
    QString CurrentClass; ///< of the period that was selected last on a daily sheet; may be empty
    QString CurrentDate;  ///< of the daily sheet shown last, as its heading gives it
    /// What was looked for on the sheets since the year was opened, the last first. Nowhere else:
    /// it may be the name of a pupil.
    QStringList EarlierSearches;
    /// The questions of the class window that the teacher has ticked not to see again in this run.
    bool DontAskDeleteClass = false;
    bool DontAskDeletePupil = false;
    /// Exported files are opened without a question: ticked in this run.
    bool AlwaysViewExports = false;

    /// Sets the values that hold for the whole run, in the order of the start: paths, gradients,
    /// default folders, the person's locale. `appPath` is made when it is not there.
    void Start(const QString& appPath);
    /// The program's windows, as long as there are any; null takes them away.
    void SetWindows(ToolWindows* windows) { m_windows = windows ? windows : &m_noWindows; }
    ToolWindows& GetWindows() const { return *m_windows; }
    Notices& GetNotices() { return m_notices; }

    dao::DBEngine& Engine() const { return m_engine; }
    Settings& GetSettings() const { return m_settings; }
    const Seams& GetSeams() const { return m_seams; }

    /// Opens a year's file into the session: the only way in. Asks for a password as often as the
    /// teacher tries; brings an older file up to date. For a genuine Jet file it offers to open the
    /// converted copy beside it, or to make one; `DatabasePath` then leads to the copy. The file of
    /// a year is its owner's alone from then on; of one with a second hard link the teacher is
    /// warned. Whatever was open has to be closed before.
    OpenResult OpenDatabaseFile(const QString& path, const QString& password);
    /// Opens ahead the file that OpenDatabaseFile is going to be asked for, where that needs but a
    /// moment and no answer: for who has nothing else to do until then. What keeps it from opening
    /// is told when it is asked for.
    void OpenAhead(const QString& path);
    /// Why OpenDatabaseFile last answered OpenInvalid or OpenInUse.
    const OpenFault& LastOpenFault() const { return m_fault; }
    /// Opens a year's file as it stands, for reading alone: asks nothing, brings nothing up to
    /// date, takes a genuine Jet file too. Raises 3265 for a file that is not a year's, and what
    /// the engine raises. Whatever was open has to be closed before.
    void OpenToRead(const QString& path, const QString& password);
    /// Asks for a file to open; empty when it was cancelled. An empty title is the usual one.
    QString ChooseDatabaseFile(const QString& title = {}, int flags = ExistingFileFlags);
    void CloseAllDatabases();
    /// The open year goes on in another file, at a path that is free, with all that it holds; its
    /// windows stay open. Where its former file opened by default the new one does. Raises what
    /// dao::Database::MoveTo raises.
    void MoveDatabase(const QString& path);
    /// Whether the file at `DatabasePath` is still open somewhere; if so the teacher is told.
    bool IsDBOpen();

    QString helpFile() const; ///< AppPath and "ORVA.hlp"

private:
    dao::Database openedAhead(const QString& path);
    OpenResult openOnce(const QString& path, const QString& password);
    OpenResult openConverted(const QString& path, const QString& password);
    OpenResult makeConverted(const QString& path, const QString& copy, const QString& password);
    OpenResult openExistingCopy(const QString& path, const QString& copy, const QString& password);
    void useCopy(const QString& original, const QString& copy);
    void warnOfOtherNames();
    void clear();

    dao::DBEngine& m_engine;
    Settings& m_settings;
    Seams m_seams;
    YearOpening m_opening;
    OpenFault m_fault;
    dao::Database m_ahead;
    QString m_aheadPath;
    Notices m_notices;
    ToolWindows m_noWindows;
    ToolWindows* m_windows = &m_noWindows;
};

/// The box for a file that did not open: its title and text, which gives the engine's sentence.
struct OpenFailure {
    QString title;
    QString text;
};
OpenFailure openFailure(const OpenFault& fault, const QString& path);

/// Whether a file did not open because another program, or this one, has it.
bool isInUse(const OpenFault& fault);
/// What is wrong with a file that did not open and is not in use, as the end of a sentence.
QString openFaultText(const OpenFault& fault);
