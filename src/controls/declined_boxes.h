#pragma once

#include <QObject>

/// While there is one, nobody is there to answer: every box that comes up takes at once the answer
/// that destroys nothing, as by Escape.
class DeclinedBoxes : public QObject {
    Q_OBJECT

public:
    explicit DeclinedBoxes(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
