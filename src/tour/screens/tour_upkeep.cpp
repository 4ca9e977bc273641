#include "tour/screens/tour_upkeep.h"

#include "core/clock.h"
#include "core/session.h"
#include "tour/screens/tour_pictures.h"
#include "year/screens/archive_dialog.h"
#include "year/screens/change_weeks_wizard.h"
#include "year/week_choice.h"

#include <QListWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The place in the list of the first week that begins after a date; of the last one where none
/// does.
int weekAfter(const Session& session, QDate date) {
    const QList<QDate> starts = weekStarts(session.CurrentDB);
    const auto next = std::upper_bound(starts.begin(), starts.end(), date);
    return static_cast<int>(std::min(next, starts.end() - 1) - starts.begin());
}

} // namespace

void visitArchive(Session& session, TourPictures& pictures) {
    ArchiveDialog dialog(session, {});
    dialog.show();
    pictures.save(dialog, u"Archivefrm"_s);
    dialog.next();
    pictures.save(dialog, u"Archivefrm_name"_s);
}

void visitWeekChange(Session& session, TourPictures& pictures) {
    ChangeWeeksWizard wizard(session);
    wizard.show();
    pictures.save(wizard, u"ChangeWeekFrm"_s);
    wizard.next();
    wizard.findChild<QListWidget*>(u"List1"_s)
        ->setCurrentRow(weekAfter(session, session.GetSeams().clock.today()));
    pictures.save(wizard, u"ChangeWeekFrm_week"_s);
}
