#include "controls/wheel_guard.h"

#include <QComboBox>
#include <QEvent>

namespace {

class WheelGuard : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Wheel)
            return QObject::eventFilter(watched, event);
        event->ignore();
        return true;
    }
};

} // namespace

void ignoreWheel(QComboBox& list) {
    list.installEventFilter(new WheelGuard(&list));
}
