#include "frame/internet_upgrade.h"

#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/version.h"
#include "frame/frame_settings.h"

#include <optional>

namespace {

QString address(Session& session) {
    return session.GetSettings().get(setting::UpgradeAddress);
}

/// The number of the newest build; nothing when it can't be had.
std::optional<int> newestBuild(Shell& shell, const QString& endpoint) {
    const QString file = endpoint + (endpoint.endsWith(u'/') ? QString() : QStringLiteral("/")) +
                         QStringLiteral("ORVA/build.txt");
    bool isNumber = false;
    const int build = shell.FetchText(file).trimmed().toInt(&isNumber);
    return isNumber ? std::optional(build) : std::nullopt;
}

} // namespace

bool hasUpgradeAddress(Session& session) {
    return !address(session).isEmpty();
}

void GetUpgradeInfo(Session& session) {
    const QString title = QStringLiteral("Internet Upgrade");
    const Seams& seams = session.GetSeams();
    const auto say = [&](const QString& text) {
        seams.prompts.PlainBox(text, OkButton | InformationIcon, title);
    };
    const QString endpoint = address(session);
    if (endpoint.isEmpty())
        return say(QStringLiteral("No internet address for upgrades has been configured."));
    const std::optional<int> build = newestBuild(seams.shell, endpoint);
    if (!build)
        return say(QStringLiteral("The internet address for upgrades could not be reached.\n\n"
                                  "Please try again later."));
    if (*build <= ProgramBuild)
        return say(QStringLiteral("You already have the latest version of ORVA."));
    if (seams.prompts.PlainBox(QStringLiteral("A newer version of ORVA is available.\n\nWould you "
                                              "like to open its internet page now?"),
                               YesNoButtons | QuestionIcon, title) == AnswerYes)
        seams.shell.OpenUrl(endpoint);
}
