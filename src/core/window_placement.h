#pragma once

#include <QSize>
#include <QString>

class Settings;

/// A logical pixel is so many twips, the unit in which places of windows are kept.
inline constexpr int TwipsPerPixel = 15;

enum WindowState { WindowNormal = 0, WindowMinimised = 1, WindowMaximised = 2 };

/// Where a window stands within the main window, or on the screen for one outside it. In twips.
struct Placement {
    float Top = 0;
    float Left = 0;
    float Width = 0;
    float Height = 0;

    bool operator==(const Placement&) const = default;
};

/// What the placement rules need of a window.
class PlacedWindow {
public:
    virtual ~PlacedWindow() = default;

    virtual QString windowName() const = 0; ///< the name of its kind, such as "TTfrm"
    virtual int windowState() const = 0;    ///< a WindowState
    virtual void setWindowState(int state) = 0;
    virtual Placement placement() const = 0;
    virtual void setPlacement(const Placement& placement) = 0;
    virtual QSize screenSize() const = 0; ///< logical pixels
    /// Stops the main window from drawing itself, or lets it again.
    virtual void lockMainWindow(bool lock) = 0;
};

/// Keeps the window's state under the key of that name below the root and, only when the state is
/// normal, its place and size, so that a maximised window keeps the last normal size it had.
void SaveWindowPlacement(Settings& settings, const PlacedWindow& window, QStringView keyName);

/// Gives the window the state and place kept under that name. A window that was never kept goes to
/// the top left of the main window; `CPlanFrm` to the middle of the screen, `HelpFrm` to its right.
void RestoreWindowPlacement(const Settings& settings, PlacedWindow& window, QStringView keyName);

/// Moves the window to the place kept under that name, if all of it is there and the window is not
/// maximised. Its state stays.
void RestoreChildPlacement(const Settings& settings, PlacedWindow& window, QStringView keyName);
