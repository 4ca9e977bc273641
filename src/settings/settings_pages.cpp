#include "settings/settings_pages.h"

#include "calendar/event_settings.h"
#include "calendar/timetable_settings.h"
#include "classes/class_settings.h"
#include "classes/register_keys.h"
#include "core/core_settings.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/writing_settings.h"
#include "incidents/incident_settings.h"
#include "organiser/address_book_settings.h"
#include "organiser/post_it_font.h"
#include "organiser/post_it_settings.h"
#include "planning/planning_settings.h"
#include "store/table_names.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array breakFields{u"Break1", u"Break2", u"Break3"};
constexpr std::array timingSettings{&setting::STP_Time1, &setting::STP_Time2, &setting::STP_Time3};

/// A text is kept where there is one.
void keepText(Settings& settings, const Setting<QString>& setting, const QString& text) {
    if (text.isEmpty())
        settings.remove(setting);
    else
        settings.set(setting, text);
}

/// Another spelling of a folder is the same one only where the file system says so.
QString lowerCaseWhereSame(const QString& folder) {
    const QString lower = folder.toLower();
    return QFileInfo(lower).exists() && QFileInfo(lower) == QFileInfo(folder) ? lower : folder;
}

} // namespace

GeneralValues readGeneral(const Settings& settings) {
    return {.closing = settings.get(setting::AutoBackup),
            .defaultDatabase = settings.get(setting::DefaultDatabasePath),
            .skipsWizard = settings.get(setting::DontShowStartup),
            .checksForUpgrade = settings.get(setting::CheckForUpgrade)};
}

void Apply_General(Settings& settings, const GeneralValues& page) {
    const Settings::Batch whole(settings);
    settings.set(setting::AutoBackup, page.closing);
    if (page.defaultDatabase.isEmpty()) {
        settings.remove(setting::DefaultDatabasePath);
        settings.remove(setting::DontShowStartup);
    } else {
        settings.set(setting::DefaultDatabasePath, page.defaultDatabase);
        settings.set(setting::DontShowStartup, page.skipsWizard);
    }
    settings.set(setting::CheckForUpgrade, page.checksForUpgrade);
}

ViewValues readView(const Settings& settings) {
    return {.toolbar = settings.get(setting::ToolbarAlignment),
            .fadeStart = settings.get(setting::FadeStartColor),
            .fadeEnd = settings.find(setting::FadeEndColor),
            .fadeStyle = settings.get(setting::FadeStyle),
            .disablesGradients = settings.get(setting::DisableGradients),
            .loadsPostIts = settings.get(setting::AutoloadPostits),
            .postItCaption = settings.get(setting::PostitCapCol),
            .postItColour = settings.get(setting::PostitCol),
            .postItFont = postItFont(settings).value_or(FontRecord())};
}

void Apply_View(Session& session, const ViewValues& page) {
    Settings& settings = session.GetSettings();
    session.GradientsEnabled = session.GradientsAvailable && !page.disablesGradients;
    const Settings::Batch whole(settings);
    settings.set(setting::ToolbarAlignment, page.toolbar);
    settings.set(setting::AutoloadPostits, page.loadsPostIts);
    settings.set(setting::PostitCapCol, page.postItCaption);
    settings.set(setting::PostitCol, page.postItColour);
    setPostItFont(settings, page.postItFont);
    settings.set(setting::FadeStartColor, page.fadeStart);
    if (page.fadeEnd)
        settings.set(setting::FadeEndColor, *page.fadeEnd);
    settings.set(setting::FadeStyle, page.fadeStyle);
    settings.set(setting::DisableGradients, page.disablesGradients);
}

void Apply_Filepaths(Session& session, const FolderDefaults& folders) {
    Settings& settings = session.GetSettings();
    const Settings::Batch whole(settings);
    const std::array kept{&setting::DefaultOpenFolder, &setting::DefaultSaveFolder,
                          &setting::DefaultBackupFolder};
    for (size_t row = 0; row < kept.size(); ++row) {
        if (!folders.at(row).isProposed) // what was never chosen goes on being proposed
            settings.set(*kept.at(row), folders.at(row).folder);
    }
    session.FolderDefaults = folders;
}

TimetableValues readTimetable(const Session& session) {
    TimetableValues page{
        .font = session.GetSettings().ReadFontRecord(setting::keyOf(setting::Timetable))};
    const dao::Recordset admin =
        session.CurrentDB.OpenRecordset(AdminTable, dao::RecordsetType::Snapshot);
    for (size_t i = 0; i < page.breaks.size(); ++i) {
        const qint64 after = admin.Collect(breakFields.at(i)).toInteger();
        page.breaks.at(i) =
            after > 0 && after < session.PeriodsPerDay ? static_cast<int>(after) : 0;
    }
    return page;
}

void Apply_Timetable(Session& session, const TimetableValues& page) {
    dao::Recordset admin = session.CurrentDB.OpenRecordset(AdminTable);
    admin.Edit();
    for (size_t i = 0; i < page.breaks.size(); ++i)
        admin.SetCollect(breakFields.at(i), page.breaks.at(i));
    admin.Update();
    admin.Close();
    session.GetSettings().WriteFontRecord(setting::keyOf(setting::Timetable), page.font);
}

PlanningValues readPlanning(const Settings& settings) {
    PlanningValues page{.font = settings.ReadFontRecord(setting::keyOf(setting::Planning)),
                        .showsClassCoding = settings.get(setting::ShowClassCoding),
                        .subject = settings.get(setting::STP_Subject),
                        .ability = settings.get(setting::STP_Ability),
                        .unit = settings.get(setting::STP_Unit),
                        .term = settings.find(setting::STP_Term).value_or(-1)};
    for (size_t i = 0; i < page.times.size(); ++i)
        page.times.at(i) = settings.get(*timingSettings.at(i));
    return page;
}

void Apply_Planning(Settings& settings, const PlanningValues& page) {
    const Settings::Batch whole(settings);
    settings.WriteFontRecord(setting::keyOf(setting::Planning), page.font);
    settings.set(setting::ShowClassCoding, page.showsClassCoding);
    keepText(settings, setting::STP_Subject, page.subject);
    keepText(settings, setting::STP_Ability, page.ability);
    keepText(settings, setting::STP_Unit, page.unit);
    if (page.term < 0)
        settings.remove(setting::STP_Term);
    else
        settings.set(setting::STP_Term, page.term);
    for (size_t i = 0; i < page.times.size(); ++i)
        keepText(settings, *timingSettings.at(i), page.times.at(i));
}

RegisterValues readRegister(const Session& session) {
    const Settings& settings = session.GetSettings();
    return {.keys = readRegisterKeys(settings, session.GetSeams().prompts).lines,
            .previousDates = std::clamp(settings.get(setting::PreviousDates), FewestPreviousDates,
                                        MostPreviousDates),
            .displaysPicture = settings.get(setting::DisplayKeyPicture),
            .leavesOutNotes = settings.get(setting::DontUsePupilNotes)};
}

void Apply_Register(Settings& settings, const RegisterValues& page) {
    const Settings::Batch whole(settings);
    const QString key = setting::keyOf(setting::RegisterKey);
    settings.ClearRegistryKey(key);
    for (const QString& line : page.keys)
        settings.WriteRegistryValue(key, line.left(1), line.mid(2));
    settings.set(setting::PreviousDates, page.previousDates);
    settings.set(setting::DisplayKeyPicture, page.displaysPicture);
    settings.set(setting::DontUsePupilNotes, page.leavesOutNotes);
}

EventsValues readEvents(const Settings& settings) {
    return {settings.get(setting::WeekendCol), settings.get(setting::HolidayCol)};
}

void Apply_COE(Settings& settings, const EventsValues& page) {
    const Settings::Batch whole(settings);
    settings.set(setting::WeekendCol, page.weekend);
    settings.set(setting::HolidayCol, page.holiday);
}

bool readHidesIncidentWarning(const Settings& settings) {
    return settings.get(setting::ShowSecurityDialog);
}

void Apply_Incidents(Settings& settings, bool hidesWarning) {
    settings.set(setting::ShowSecurityDialog, hidesWarning);
}

AddressValues readAddresses(const Settings& settings) {
    return {settings.get(setting::DontShowDeleteContactPrompt),
            settings.get(setting::DontShowDeleteGroupPrompt)};
}

void Apply_Addresses(Settings& settings, const AddressValues& page) {
    const Settings::Batch whole(settings);
    settings.set(setting::DontShowDeleteContactPrompt, page.deletesContacts);
    settings.set(setting::DontShowDeleteGroupPrompt, page.deletesGroups);
}

FolderDefault chosenFolder(const FolderDefault& row, const QString& folder) {
    FolderDefault chosen = row;
    chosen.folder = lowerCaseWhereSame(folder.endsWith(u'/') ? folder : folder + u'/');
    chosen.isProposed = false;
    chosen.shortFolder = ShortenPath(chosen.folder.toLower());
    return chosen;
}

int steppedPreviousDates(int number, int step) {
    return std::clamp(number + step, FewestPreviousDates, MostPreviousDates);
}
