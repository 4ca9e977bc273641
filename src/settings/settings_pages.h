#pragma once

#include "core/font_record.h"
#include "core/paths.h"
#include "core/program_settings.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

class Session;
class Settings;

/// What the pages of the settings dialog hold, how it is read and how each page is written by
/// itself. Colours have red in the low byte.

struct GeneralValues {
    ClosingBackup closing = ClosingBackup::None;
    QString defaultDatabase; ///< empty for none
    bool skipsWizard = false;
    bool checksForUpgrade = false;
};

struct ViewValues {
    ToolbarSide toolbar = ToolbarSide::Left;
    qint32 fadeStart = 0;
    std::optional<qint32> fadeEnd; ///< none: the colour of the person's scheme
    FadeDirection fadeStyle = FadeDirection::Diagonal;
    bool disablesGradients = false;
    bool loadsPostIts = false;
    qint32 postItCaption = 0;
    qint32 postItColour = 0;
    FontRecord postItFont;
};

struct TimetableValues {
    std::array<int, 3> breaks{}; ///< after which period each falls; 0 for none
    FontRecord font;
};

/// What has no text, or no term, is not kept, and a new plan begins without it.
struct PlanningValues {
    FontRecord font;
    bool showsClassCoding = false;
    QString subject;
    QString ability;
    QString unit;
    int term = -1; ///< the place in the list, from 0; -1 for none
    std::array<QString, 3> times{};
};

struct RegisterValues {
    QStringList keys; ///< "L=Late"
    int previousDates = 1;
    bool displaysPicture = false;
    bool leavesOutNotes = false;
};

struct EventsValues {
    qint32 weekend = 0;
    qint32 holiday = 0;
};

struct AddressValues {
    bool deletesContacts = false; ///< without a question, as the next
    bool deletesGroups = false;
};

GeneralValues readGeneral(const Settings& settings);
ViewValues readView(const Settings& settings);
TimetableValues readTimetable(const Session& session); ///< raises what the engine raises
PlanningValues readPlanning(const Settings& settings);
RegisterValues readRegister(const Session& session);
EventsValues readEvents(const Settings& settings);
bool readHidesIncidentWarning(const Settings& settings);
AddressValues readAddresses(const Settings& settings);

void Apply_General(Settings& settings, const GeneralValues& page);
/// The main window follows at once; windows that are open keep their gradients.
void Apply_View(Session& session, const ViewValues& page);
/// The folders of the session are those that hold from now on.
void Apply_Filepaths(Session& session, const FolderDefaults& folders);
void Apply_Timetable(Session& session,
                     const TimetableValues& page); ///< raises what the engine raises
void Apply_Planning(Settings& settings, const PlanningValues& page);
void Apply_Register(Settings& settings, const RegisterValues& page);
void Apply_COE(Settings& settings, const EventsValues& page);
void Apply_Incidents(Settings& settings, bool hidesWarning);
void Apply_Addresses(Settings& settings, const AddressValues& page);

/// A row of the file locations for a folder that was chosen: in lower case, as this system's
/// folders allow only where that names the same one, with a separator at its end.
FolderDefault chosenFolder(const FolderDefault& row, const QString& folder);

/// So many lessons before the current one can be in view.
inline constexpr int FewestPreviousDates = 1;
inline constexpr int MostPreviousDates = 10;
/// The number after a step up or down, within those bounds.
int steppedPreviousDates(int number, int step);
