#include "desktop/screens/late/late_services.h"

#include "desktop/screens/late/computer_power.h"
#include "desktop/screens/late/desktop_signals.h"
#include "desktop/screens/late/desktop_starter.h"
#include "desktop/screens/late/screenshot_portal.h"
#include "desktop/screens/late/sound.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrl>

#include <memory>

namespace {

constexpr int fetchMilliseconds = 10000;

class Services : public LateServices {
public:
    void playSound(const QString& path, bool loop, const std::function<void()>& ended) override {
        m_sound.reset();
        if (!path.isEmpty())
            m_sound = std::make_unique<Sound>(path, loop, ended);
    }

    void notify(const QString& text) override { m_signals.notify(text); }
    void whenWoken(const std::function<void()>& act) override { m_signals.whenWoken(act); }

    std::optional<PowerSupply> power() override { return desktopPower(); }
    QString sleep(bool suspend, bool force) override { return letSleep(suspend, force); }
    bool startDesktopFile(const QString& path) override { return ::startDesktopFile(path); }

    bool opens(const char* mimeType) override { return desktopOpens(mimeType); }
    std::optional<QImage> captureByPortal() override { return ScreenshotPortal().capture(); }

    QByteArray fetch(const QString& address) override {
        QNetworkAccessManager network;
        QNetworkRequest request{QUrl(address)};
        request.setTransferTimeout(fetchMilliseconds);
        const std::unique_ptr<QNetworkReply> reply(network.get(request));
        QEventLoop loop;
        QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
        if (!reply->isFinished())
            loop.exec(QEventLoop::ExcludeUserInputEvents);
        return reply->error() == QNetworkReply::NoError ? reply->readAll() : QByteArray();
    }

private:
    std::unique_ptr<Sound> m_sound;
    DesktopSignals m_signals;
};

} // namespace

extern "C" Q_DECL_EXPORT LateServices* orvaLateServices() {
    static Services services;
    return &services;
}
