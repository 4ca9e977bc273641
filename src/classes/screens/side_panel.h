#pragma once

#include "classes/register_keys.h"

#include <QWidget>

/// The panel beside the register: the pupil's photo, the key to the marks and the notes on the
/// lesson.
class SidePanel : public QWidget {
    Q_OBJECT

public:
    explicit SidePanel(const KeyArray& keys, QWidget* parent = nullptr);
};
