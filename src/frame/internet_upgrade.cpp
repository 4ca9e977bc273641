#include "frame/internet_upgrade.h"

#include "core/program_settings.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/version.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString address(Session& session) {
    return session.GetSettings().get(setting::UpgradeAddress);
}

/// The number of the newest build; nothing when it can't be had.
std::optional<int> newestBuild(Shell& shell, const QString& endpoint) {
    const QString file =
        endpoint + (endpoint.endsWith(u'/') ? QString() : u"/"_s) + u"ORVA/build.txt"_s;
    bool isNumber = false;
    const int build = shell.FetchText(file).trimmed().toInt(&isNumber);
    return isNumber ? std::optional(build) : std::nullopt;
}

} // namespace

bool hasUpgradeAddress(Session& session) {
    return !address(session).isEmpty();
}

void GetUpgradeInfo(Session& session) {
    const QString title = u"Internet Upgrade"_s;
    const Seams& seams = session.GetSeams();
    const auto say = [&](const QString& text) {
        seams.prompts.PlainBox(text, OkButton | InformationIcon, title);
    };
    const QString endpoint = address(session);
    if (endpoint.isEmpty())
        return say(u"No internet address for upgrades has been configured."_s);
    const std::optional<int> build = newestBuild(seams.shell, endpoint);
    if (!build)
        return say(u"The internet address for upgrades could not be reached.\n\n"
                   "Please try again later."_s);
    if (*build <= ProgramBuild)
        return say(u"You already have the latest version of ORVA."_s);
    if (seams.prompts.PlainBox(u"A newer version of ORVA is available.\n\nWould you "
                               "like to open its internet page now?"_s,
                               YesNoButtons | QuestionIcon, title) == AnswerYes)
        seams.shell.OpenUrl(endpoint);
}
