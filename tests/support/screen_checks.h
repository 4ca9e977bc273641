#pragma once

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

/// What a window has to be, whatever it is for: each of these fails the test and names the control.

/// Everything that Tab reaches has a name for screen readers, and the order of Tab follows the eye:
/// from a control to one that stands right of it or below.
void checkFocus(QWidget& window);
/// Every text stands out from its background, but for what is disabled.
void checkLegible(QWidget& window);
/// No label is smaller than its text needs.
void checkNothingCut(QWidget& window);

/// Every letter that is underlined is underlined once, and reaches something.
void checkLetters(QWidget& window);

/// All of the above, in the light and the dark scheme. Leaves a picture of each in the folder that
/// the environment names in ORVA_PICTURES, if it does.
void checkScreen(QWidget& window, const QString& name);

/// Calls `act` with the next window that waits for the person, once it stands. If it still stands
/// then, the test fails and the window is closed.
void whenAsked(const std::function<void(QWidget&)>& act);

/// Types a key where the focus of the window is.
void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

/// The control of a name. There must be one of this type.
template<typename Control>
Control& control(QWidget& window, const QString& name) {
    auto* found = window.findChild<Control*>(name);
    if (!found)
        qFatal("no control %s", qPrintable(name));
    return *found;
}
