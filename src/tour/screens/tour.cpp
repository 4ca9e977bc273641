#include "tour/screens/tour.h"

#include "core/clock.h"
#include "core/progress.h"
#include "core/prompts.h"
#include "core/session.h"
#include "desktop/screens/progress_dialog.h"
#include "frame/screens/main_window.h"
#include "frame/year_roads.h"
#include "help/help_file.h"
#include "help/screens/help_window.h"
#include "incidents/security_warning.h"
#include "store/engine/error.h"
#include "tour/screens/tour_classes.h"
#include "tour/screens/tour_contacts.h"
#include "tour/screens/tour_documents.h"
#include "tour/screens/tour_events.h"
#include "tour/screens/tour_incidents.h"
#include "tour/screens/tour_menu.h"
#include "tour/screens/tour_past_lessons.h"
#include "tour/screens/tour_pictures.h"
#include "tour/screens/tour_planning.h"
#include "tour/screens/tour_post_its.h"
#include "tour/screens/tour_reminders.h"
#include "tour/screens/tour_seating.h"
#include "tour/screens/tour_settings.h"
#include "tour/screens/tour_timetable.h"
#include "tour/screens/tour_upkeep.h"
#include "tour/screens/tour_wizard.h"
#include "year/screens/startup_wizard.h"
#include "year/wizard_rules.h"
#include "year/year_answers_json.h"
#include "year/year_creation.h"

#include <QApplication>
#include <QFile>

#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool fail(const QString& sentence) {
    std::fprintf(stderr, "%s\n", qPrintable(sentence));
    return false;
}

std::optional<YearAnswers> sampleAnswers() {
    QFile file(u":/samples/year.json"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(u"The sample is not part of the program."_s);
        return std::nullopt;
    }
    const ReadAnswers read = readYearAnswers(file.readAll(), QLocale());
    if (!read.fault)
        return read.answers;
    fail(read.fault->field + u": "_s + read.fault->text);
    return std::nullopt;
}

void makeYear(Session& session, const YearAnswers& answers, const QString& path) {
    const Seams& seams = session.GetSeams();
    CreateDB(session.Engine(), answers, path, ExistingFile::Replace, seams.progress, seams.prompts,
             QLocale::c());
}

/// The wizard on its first page, and each of its other pages filled with the sample's answers.
void visitWizard(MainWindow& frame, const YearAnswers& answers, TourPictures& pictures) {
    frame.open(ToolWindow::StartupWizard);
    auto* wizard = frame.findChild<StartupWizard*>();
    pictures.save(*wizard, u"StartupWiz"_s);
    fillWizard(*wizard, answers,
               [&](int number) { pictures.save(*wizard, u"StartupWiz_%1"_s.arg(number)); });
    frame.CloseOpenForms();
}

/// One prompt of each kind.
void visitPrompts(Session& session, MainWindow& frame, TourPictures& pictures) {
    Prompts& prompts = session.GetSeams().prompts;
    pictures.saveAsked(u"msgFrm_checkbox"_s,
                       [&] { MayShowIncidents(session.GetSettings(), prompts); });
    pictures.saveAsked(u"msgFrm_input"_s, [&] {
        prompts.input_box(u"Please enter a caption for the new sub menu:"_s, OkCancelButtons,
                          u"Create Sub Menu"_s, u"New Menu"_s);
    });
    const QDate today = session.GetSeams().clock.today();
    pictures.saveAsked(u"msgFrm_dates"_s, [&] {
        prompts.Date_Box(u"Teaching period"_s, {today, today.addDays(27)});
    });
    pictures.saveAsked(u"msgFrm_link"_s, [&] {
        prompts.File_Link(u"Create a File Link"_s, u"Enter the information"_s, {}, {});
    });
    pictures.saveAsked(u"PasswordORVA"_s, [&] { prompts.PromptForPassword(); });
    pictures.saveAsked(u"AboutFrm"_s, [&] { frame.Help_Menu(HelpItem::About); });
}

/// Long work half done.
void visitProgress(Session& session, TourPictures& pictures) {
    Progress& progress = session.GetSeams().progress;
    const ProgressWindow window(progress, u"Backing up Database:"_s);
    constexpr int halfDone = 50;
    progress.UpdateProgress(halfDone, u"Backing up Database:"_s, u"Compacting Database"_s);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* shown = qobject_cast<ProgressDialog*>(widget))
            pictures.save(*shown, u"ProgressFrm"_s);
    }
}

/// The help, once it has been made: that needs the other pictures first.
void visitHelp(MainWindow& frame, TourPictures& pictures) {
    if (!QFile::exists(stockHelpFile()))
        return;
    frame.Help_Menu(HelpItem::Contents);
    if (auto* help = frame.findChild<HelpWindow*>()) {
        pictures.save(*help, u"HelpFrm"_s);
        help->close();
    }
}

/// The names of the program's windows, one a line: what the help can be about.
bool writeWindowNames(const QString& path) {
    QFile file(path);
    QStringList names;
    for (const WindowEntry& entry : windowTable())
        names += entry.name + u'\n';
    return file.open(QIODevice::WriteOnly) && file.write(names.join(QString()).toUtf8()) > 0;
}

} // namespace

bool playTour(Session& session, MainWindow& frame, const QString& folder) {
    TourPictures pictures(folder);
    const QString year = folder + u"/sample.mdb"_s;
    const std::optional<YearAnswers> answers = sampleAnswers();
    try {
        if (!answers)
            return false;
        // Pictures tell nothing of the machine that they are taken on: the wizard would, once it
        // knows a year.
        session.FolderDefaults[SaveFolder].folder = u"/home/teacher/Documents/ORVA/"_s;
        visitWizard(frame, *answers, pictures);
        makeYear(session, *answers, year);
        session.DatabasePath = year;
        if (session.OpenDatabaseFile(year, {}) != OpenDone)
            return fail(u"The sample year did not open."_s);
        fillTimetable(session);
        fillEvents(session);
        fillReminders(session);
        fillWeeks(session);
        fillTodaysSheet(session);
        fillTodaysPlan(session);
        fillFirstClass(session);
    } catch (const dao::EngineError& error) {
        return fail(error.description());
    }
    frame.SetCaption(
        mainCaption(u"/home/teacher/Documents/ORVA/%1"_s.arg(defaultFileName(*answers))));
    frame.EnableInput(true);
    pictures.save(frame, u"mdiORVA"_s);
    for (const WindowEntry& entry : windowTable()) {
        if (!entry.make || !entry.needsDatabase || entry.kind != WindowKind::Tool)
            continue;
        frame.open(entry.window);
        pictures.save(frame, entry.name);
        frame.CloseOpenForms();
    }
    visitShortTermPlan(frame, pictures);
    visitPastLessons(session, frame, pictures);
    visitClasses(session, frame, pictures);
    visitReminders(session, frame, pictures);
    visitPostIts(session, frame, pictures);
    visitSeating(session, frame, pictures);
    visitIncidents(session, frame, pictures);
    visitDocuments(session, folder);
    visitContacts(session, frame, pictures);
    visitMenuEditor(session, frame, pictures);
    visitSettings(session, frame, pictures);
    visitPrompts(session, frame, pictures);
    visitProgress(session, pictures);
    visitArchive(session, pictures);
    visitWeekChange(session, pictures);
    visitHelp(frame, pictures);
    return pictures.areWhole() && writeWindowNames(folder + u"/windows.txt"_s);
}
