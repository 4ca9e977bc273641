#include "core/link_target.h"

#include "core/file_state.h"
#include "core/prompts.h"
#include "core/shell.h"
#include "core/shell_services.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

bool isWebAddress(const QString& path) {
    return path.startsWith(u"http://"_s) || path.startsWith(u"https://"_s);
}

bool isWellFormed(const QString& address) {
    const QUrl url(address, QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty();
}

} // namespace

LinkFault linkFault(const QString& name, const QString& path) {
    if (isWebAddress(path) ? !isWellFormed(path) : !FileExists(path))
        return LinkFault::Path;
    return name.trimmed().isEmpty() ? LinkFault::Name : LinkFault::None;
}

void OpenFileLink(const QString& path, const Settings& settings, Shell& shell, Prompts& prompts) {
    if (isWebAddress(path))
        shell.OpenUrl(path);
    else if (!FileExists(path))
        prompts.PlainBox(u"The file \n\n"_s + path + u"\n\ndoes not exist!"_s,
                         OkButton | WarningIcon, u"File doesn't exist"_s);
    else
        OpenShortcut(path, settings, shell, prompts);
}
