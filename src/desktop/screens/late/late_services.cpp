#include "desktop/screens/late/late_services.h"

#include "desktop/screens/late/screenshot_portal.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSoundEffect>
#include <QUrl>

#include <memory>

namespace {

constexpr int fetchMilliseconds = 10000;

class Services : public LateServices {
public:
    void playSound(const QString& path, bool loop) override {
        m_sound.reset();
        if (path.isEmpty())
            return;
        m_sound = std::make_unique<QSoundEffect>();
        m_sound->setSource(QUrl::fromLocalFile(path));
        m_sound->setLoopCount(loop ? QSoundEffect::Infinite : 1);
        m_sound->play();
    }

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
    std::unique_ptr<QSoundEffect> m_sound;
};

} // namespace

extern "C" Q_DECL_EXPORT LateServices* orvaLateServices() {
    static Services services;
    return &services;
}
