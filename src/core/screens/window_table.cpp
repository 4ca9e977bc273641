#include "core/screens/window_table.h"

#include "store/screens/startupwiz.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

std::span<const WindowEntry> windowTable() {
    static const std::array windows{
        WindowEntry{u"StartupWiz"_s, {}, [](Session& session) { return new StartupWiz(session); }},
    };
    return windows;
}

const WindowEntry* findWindow(const QString& name) {
    const auto windows = windowTable();
    const auto found =
        std::find_if(windows.begin(), windows.end(),
                     [&name](const WindowEntry& entry) { return entry.name == name; });
    return found == windows.end() ? nullptr : &*found;
}
