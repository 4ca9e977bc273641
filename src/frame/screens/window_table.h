#pragma once

#include "frame/frame_commands.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <span>

class QMenu;
class QWidget;

/// A tool window that the program has. The one list of them (window_table.cpp) is all that the main
/// window knows: what is not in it has no command anywhere. A new window is one line there.
struct WindowEntry {
    QString name; ///< the system's name: "TTfrm"
    /// Under which its place is kept when it closes and found when it loads; empty for none.
    QString placementKey;
    /// Makes the tool window. Empty for one that is not inside the main window.
    std::function<QWidget*(Session& session)> make;
    /// Whether it works on the open year. Where it does not, it takes input without one, and goes
    /// with no question when all windows are unloaded.
    bool needsDatabase = true;
    /// Shows one thing in a window that it made (MainFrame::OpenFormOn).
    std::function<void(QWidget& window, const QVariant& subject)> showSubject = {};
    /// Lets a window that it made show the file anew (MainFrame::RefreshForm).
    std::function<void(QWidget& window)> refresh = {};
    /// Acts on a command in place of opening the window.
    std::function<void(Session& session, FrameCommand command)> run = {};
    /// Fills the popup of the toolbar that belongs to it, each time before it shows.
    std::function<void(Session& session, QMenu& menu)> fill = {};
};

using WindowTable = std::span<const WindowEntry>;

WindowTable windowTable();

/// The entry of that name; null for a window that does not exist.
const WindowEntry* findWindow(WindowTable windows, QStringView name);
