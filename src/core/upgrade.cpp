#include "core/upgrade.h"

#include "core/core_settings.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/version.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <memory>
#include <optional>

namespace {

constexpr int timeoutMilliseconds = 10000;

QString address(Session& session) {
    return session.GetSettings().readText(setting::Root, setting::UpgradeAddress);
}

/// The number in the file of the newest build; nothing when it can't be had.
std::optional<int> newestBuild(const QString& endpoint) {
    QNetworkAccessManager network;
    QNetworkRequest request(
        QUrl(endpoint + (endpoint.endsWith(u'/') ? QString() : QStringLiteral("/")) +
             QStringLiteral("ORVA/build.txt")));
    request.setTransferTimeout(timeoutMilliseconds);
    const std::unique_ptr<QNetworkReply> reply(network.get(request));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    bool isNumber = false;
    const int build = reply->readAll().trimmed().toInt(&isNumber);
    return reply->error() == QNetworkReply::NoError && isNumber ? std::optional(build)
                                                                : std::nullopt;
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
    const std::optional<int> build = newestBuild(endpoint);
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
