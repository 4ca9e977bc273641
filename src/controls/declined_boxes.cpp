#include "controls/declined_boxes.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>

DeclinedBoxes::DeclinedBoxes(QObject* parent) : QObject(parent) {
    qApp->installEventFilter(this);
}

bool DeclinedBoxes::eventFilter(QObject* watched, QEvent* event) {
    auto* box = event->type() == QEvent::Show ? qobject_cast<QDialog*>(watched) : nullptr;
    // From its own loop: it does not wait for an answer before.
    if (box && box->isModal())
        QMetaObject::invokeMethod(box, &QWidget::close, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}
