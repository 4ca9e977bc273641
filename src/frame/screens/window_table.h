#pragma once

#include "core/program_settings.h"
#include "core/tool_windows.h"
#include "frame/frame_commands.h"

#include <QString>

#include <functional>
#include <optional>
#include <span>

class QMenu;
class QWidget;

/// How a window stands to the main window.
enum class WindowKind {
    Tool,         ///< one, inside the main window
    Floating,     ///< one, beside the main window that owns it
    FloatingMany, ///< beside the main window, one for each subject
};

/// All that the main window knows of another window. What is not in the table has no command
/// anywhere; a new window is one entry there.
struct WindowEntry {
    ToolWindow window;
    QString name = {}; ///< the system's name, which is its object name: "TTfrm"
    WindowKind kind = WindowKind::Tool;
    /// Under which its place is kept when it closes and found when it loads; empty for none.
    QString placementKey = {};
    /// From which it takes its place when it is asked for while it is minimised; empty for none.
    QString minimisedKey = {};
    /// By which it is noted that it is open at the end of the program; none for a window that is
    /// not opened again. They open in the order of the table.
    std::optional<setting::OpenAtStart> openAtStart = {};
    /// Whether it works on the open year. Where it does not, it takes input without one, and goes
    /// with no question when all windows are unloaded.
    bool needsDatabase = true;
    /// The window that is never open beside this one: it closes before this one is made.
    std::optional<ToolWindow> insteadOf = {};
    /// Makes it, one of many for its subject; null where there is nothing to show. Empty for one
    /// that the main window does not open by itself. A menu bar that is set in its layout gets the
    /// main window's menus in front.
    std::function<QWidget*(Session& session, const WindowSubject& subject)> make = {};
    /// Shows a subject in it, after it was made or while it is open.
    std::function<void(QWidget& window, const WindowSubject& subject)> show = {};
    /// Acts on a command in place of opening the window, for what it is about.
    std::function<void(Session& session, FrameCommand command, const WindowSubject& subject)> run =
        {};
    /// Fills the popup of the toolbar that belongs to it, each time before it shows.
    std::function<void(Session& session, QMenu& menu)> fill = {};
};

using WindowTable = std::span<const WindowEntry>;

/// The windows of the program.
WindowTable windowTable();

/// The entry of a window; null for one that the table does not have.
const WindowEntry* findWindow(WindowTable windows, ToolWindow window);
