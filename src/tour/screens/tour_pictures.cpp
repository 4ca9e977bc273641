#include "tour/screens/tour_pictures.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The window with its caption above it, which the platform draws and no grab holds.
QPixmap pictureOf(QWidget& window) {
    const QPixmap content = window.grab();
    const qreal ratio = content.devicePixelRatio();
    const int height = window.fontMetrics().height() * 2;
    QPixmap picture(content.size() + QSize(0, qRound(height * ratio)));
    picture.setDevicePixelRatio(ratio);
    const QPalette palette = window.palette();
    picture.fill(palette.color(QPalette::Highlight));
    QPainter painter(&picture);
    painter.setFont(window.font());
    painter.setPen(palette.color(QPalette::HighlightedText));
    painter.drawText(QRect(height / 3, 0, picture.width(), height), Qt::AlignVCenter,
                     window.windowTitle());
    painter.drawPixmap(0, height, content);
    return picture;
}

} // namespace

TourPictures::TourPictures(const QString& folder) : m_folder(folder) {
    QDir().mkpath(folder);
}

void TourPictures::save(QWidget& window, const QString& name) {
    QApplication::processEvents();
    const QString path = m_folder + u'/' + name + u".png"_s;
    if (pictureOf(window).save(path))
        return;
    std::fprintf(stderr, "Could not write %s\n", qPrintable(path));
    m_areWhole = false;
}

void TourPictures::saveAsked(const QString& name, const std::function<void()>& ask) {
    const auto picture = [this, name] {
        if (QWidget* window = QApplication::activeModalWidget()) {
            save(*window, name);
            window->close();
        }
    };
    QMetaObject::invokeMethod(qApp, picture, Qt::QueuedConnection);
    ask();
}
