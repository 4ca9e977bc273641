#pragma once

#include "seating/desk.h"

/// What the desk designer works on: desks that can be moved, sized and renamed.
class DeskContainer {
public:
    virtual ~DeskContainer() = default;

    virtual const Desks& desks() const = 0;
    virtual void setPlace(qint64 desk, const QRect& place) = 0;
    virtual void setCaption(qint64 desk, const QString& caption) = 0;
};
