#pragma once

#include <QString>

#include <functional>
#include <span>

class QWidget;
class Session;

/// A tool window that the program has. The one list of them (window_table.cpp) is all that the main
/// window knows: what is not in it has no command anywhere. A new window is one line there.
struct WindowEntry {
    QString name;         ///< the system's name: "TTfrm"
    QString placementKey; ///< under which its place is kept; empty for none
    std::function<QWidget*(Session& session)> make;
};

std::span<const WindowEntry> windowTable();

/// The entry of that name; null for a window that does not exist.
const WindowEntry* findWindow(const QString& name);
