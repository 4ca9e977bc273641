#include "desktop/screens/late/screenshot_portal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingReply>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <QUrl>

#include <sys/prctl.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int portalMilliseconds = 60000; // as long as a person may take to answer

const QString portalService = u"org.freedesktop.portal.Desktop"_s;
const QString requestInterface = u"org.freedesktop.portal.Request"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

/// Where the portal will answer a request with this token.
QString requestPath(const QDBusConnection& bus, const QString& token) {
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return portalPath + u"/request/"_s + sender + u'/' + token;
}

/// The portal first looks at which program asks. A process that leaves no image of its memory hides
/// that as well, and would be refused: for the moment of asking it shows it.
class SeenByPortal {
public:
    SeenByPortal() { ::prctl(PR_SET_DUMPABLE, 1); }
    ~SeenByPortal() { ::prctl(PR_SET_DUMPABLE, m_before == 1 ? 1 : 0); }
    SeenByPortal(const SeenByPortal&) = delete;
    SeenByPortal& operator=(const SeenByPortal&) = delete;

private:
    const int m_before = ::prctl(PR_GET_DUMPABLE);
};

QDBusMessage asked(const QDBusConnection& bus, const QDBusMessage& call) {
    const SeenByPortal seen;
    return bus.call(call);
}

} // namespace

std::optional<QImage> ScreenshotPortal::capture() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    const QString token = u"orva_capture"_s;
    bus.connect(portalService, requestPath(bus, token), requestInterface, u"Response"_s, this,
                SLOT(response(uint, QVariantMap)));
    QDBusMessage call = QDBusMessage::createMethodCall(
        portalService, portalPath, u"org.freedesktop.portal.Screenshot"_s, u"Screenshot"_s);
    call << QString() << QVariantMap{{u"handle_token"_s, token}, {u"interactive"_s, false}};
    const QDBusPendingReply<QDBusObjectPath> reply = asked(bus, call);
    if (reply.isError())
        return std::nullopt;
    QEventLoop loop;
    connect(this, &ScreenshotPortal::answered, &loop, &QEventLoop::quit);
    QTimer::singleShot(portalMilliseconds, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!m_isAnswered) // or the portal would leave a picture that nobody removes
        bus.send(QDBusMessage::createMethodCall(portalService, reply.value().path(),
                                                requestInterface, u"Close"_s));
    return m_picture;
}

void ScreenshotPortal::response(uint status, const QVariantMap& results) {
    m_isAnswered = true;
    if (status == 0) {
        const QString file = QUrl(results.value(u"uri"_s).toString()).toLocalFile();
        m_picture = QImage(file);
        QFile::remove(file);
    }
    emit answered();
}
