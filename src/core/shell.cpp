#include "core/shell.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString& openVerb() {
    static const QString verb = u"Open"_s;
    return verb;
}

/// A text within a mail address: whatever would end it or break it up is encoded, so a blank is
/// "%20".
QString mailPart(const QString& text) {
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

} // namespace

void Shell::ShellOpenFolder(const QString& folder) {
    ShellRun(openVerb(), folder);
}

void Shell::OpenUrl(const QString& url) {
    ShellRun(openVerb(), url);
}

void Shell::SendMail(const QString& address, const QString& subject, const QString& body) {
    ShellRun(openVerb(), u"mailto:"_s + address + u"?subject="_s + mailPart(subject) + u"&body="_s +
                             mailPart(body));
}
