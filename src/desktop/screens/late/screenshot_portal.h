#pragma once

#include <QImage>
#include <QObject>
#include <QVariantMap>

#include <optional>

/// A picture of the screen by the desktop's portal (org.freedesktop.portal.Screenshot), which asks
/// the person for leave where it has to. The file that the portal makes is read and removed.
class ScreenshotPortal : public QObject {
    Q_OBJECT

public:
    /// Waits for the desktop's answer. A null picture where the person gave no leave or did not
    /// answer; nothing where there is no portal.
    std::optional<QImage> capture();

signals:
    void answered();

private slots:
    void response(uint status, const QVariantMap& results);

private:
    QImage m_picture;
    bool m_isAnswered = false;
};
