#include "desktop/screens/late/sound.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QTimer>
#include <QUrl>
#include <QtEndian>

#include <chrono>
#include <utility>

namespace {

/// So long a sound may take to be read and to begin. One that the computer swallows is over then.
constexpr std::chrono::seconds Patience(5);

/// How long a wave file plays, by what its head says of the bytes that a second takes; nothing
/// where it says nothing.
std::chrono::milliseconds playingTime(const QString& path) {
    constexpr qint64 headSize = 4096;
    constexpr qsizetype rateOffset = 16; // in the chunk "fmt ", behind its name and size
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(headSize);
    const qsizetype format = head.indexOf("fmt ");
    if (format < 0 || head.size() < format + rateOffset + qsizetype(sizeof(quint32)))
        return {};
    const auto rate = qFromLittleEndian<quint32>(head.constData() + format + rateOffset);
    constexpr qint64 milliseconds = 1000;
    return std::chrono::milliseconds(rate == 0 ? 0 : file.size() * milliseconds / rate);
}

} // namespace

Sound::Sound(const QString& path, bool loop, std::function<void()> ended)
    : m_ended(std::move(ended)) {
    const std::chrono::milliseconds time = playingTime(path);
    if (time.count() == 0 || QMediaDevices::defaultAudioOutput().isNull()) {
        end();
        return;
    }
    connect(&m_effect, &QSoundEffect::statusChanged, this, &Sound::followState);
    connect(&m_effect, &QSoundEffect::playingChanged, this, &Sound::followState);
    m_effect.setSource(QUrl::fromLocalFile(path));
    m_effect.setLoopCount(loop ? QSoundEffect::Infinite : 1);
    m_effect.play();
    QTimer::singleShot(Patience, this, [this] {
        if (!m_hasStarted)
            end();
    });
    if (!loop)
        QTimer::singleShot(time + Patience, this, &Sound::end);
}

Sound::~Sound() {
    m_effect.disconnect(this);
    end();
}

void Sound::followState() {
    if (m_effect.status() == QSoundEffect::Error)
        return end();
    if (m_effect.isPlaying() && m_effect.status() == QSoundEffect::Ready)
        m_hasStarted = true;
    else if (m_hasStarted)
        end();
}

void Sound::end() {
    if (const std::function<void()> ended = std::exchange(m_ended, nullptr))
        ended();
}
