#pragma once

#include <QImage>
#include <QObject>
#include <QVariantMap>

/// A picture of the screen by the desktop's portal (org.freedesktop.portal.Screenshot), which asks
/// the person for leave where it has to. The file that the portal makes is read and removed.
class ScreenshotPortal : public QObject {
    Q_OBJECT

public:
    /// Waits for the desktop's answer; null where there is no portal, or no leave.
    QImage capture();

signals:
    void answered();

private slots:
    void response(uint status, const QVariantMap& results);

private:
    QImage m_picture;
};
