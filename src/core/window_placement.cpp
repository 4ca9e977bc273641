#include "core/window_placement.h"

#include "core/settings.h"

#include <cmath>
#include <optional>

namespace {

/// The settings that make up a window's placement, in its key.
struct PlacementSettings {
    explicit PlacementSettings(QStringView key)
        : state{key, u"WindowState"}
        , top{key, u"Top"}
        , left{key, u"Left"}
        , width{key, u"Width"}
        , height{key, u"Height"} {}

    Setting<qint32> state;
    Setting<qint32> top; ///< in twips, as all that follow
    Setting<qint32> left;
    Setting<qint32> width;
    Setting<qint32> height;
};

/// The one window that stands in the middle of the screen before it has a place of its own, and the
/// one that stands at its right, beside what it explains.
constexpr QStringView CentredWindow = u"CPlanFrm";
constexpr QStringView WindowAtTheRight = u"HelpFrm";

qint32 stored(float twips) {
    return static_cast<qint32>(std::lround(twips));
}

Placement readPlacement(const Settings& settings, const PlacementSettings& kept) {
    const auto twips = [&settings](const Setting<qint32>& length) {
        return static_cast<float>(settings.get(length));
    };
    return {.Top = twips(kept.top),
            .Left = twips(kept.left),
            .Width = twips(kept.width),
            .Height = twips(kept.height)};
}

void placeByDefault(PlacedWindow& window) {
    Placement place = window.placement();
    place.Top = 0;
    place.Left = 0;
    const QSize screen = window.screenSize() * TwipsPerPixel;
    if (window.windowName() == WindowAtTheRight)
        place.Left = static_cast<float>(screen.width()) - place.Width;
    if (window.windowName() == CentredWindow) {
        place.Top = (static_cast<float>(screen.height()) - place.Height) / 2;
        place.Left = (static_cast<float>(screen.width()) - place.Width) / 2;
    }
    window.setPlacement(place);
}

/// Keeps the main window from drawing itself for a scope.
class MainWindowLock {
public:
    explicit MainWindowLock(PlacedWindow& window) : m_window(window) {
        m_window.lockMainWindow(true);
    }
    ~MainWindowLock() { m_window.lockMainWindow(false); }
    MainWindowLock(const MainWindowLock&) = delete;
    MainWindowLock& operator=(const MainWindowLock&) = delete;

private:
    PlacedWindow& m_window;
};

} // namespace

void SaveWindowPlacement(Settings& settings, const PlacedWindow& window, QStringView keyName) {
    const PlacementSettings kept(keyName);
    const Settings::Batch together(settings);
    settings.set(kept.state, window.windowState());
    if (window.windowState() != WindowNormal)
        return;
    const Placement place = window.placement();
    settings.set(kept.top, stored(place.Top));
    settings.set(kept.left, stored(place.Left));
    settings.set(kept.width, stored(place.Width));
    settings.set(kept.height, stored(place.Height));
}

void RestoreWindowPlacement(const Settings& settings, PlacedWindow& window, QStringView keyName) {
    const PlacementSettings kept(keyName);
    const std::optional<qint32> state = settings.find(kept.state);
    if (!state)
        placeByDefault(window);
    else if (*state == WindowNormal)
        window.setPlacement(readPlacement(settings, kept));
    else if (*state == WindowMinimised || *state == WindowMaximised)
        window.setWindowState(*state);
}

void RestoreChildPlacement(const Settings& settings, PlacedWindow& window, QStringView keyName) {
    const MainWindowLock lock(window);
    if (window.windowState() == WindowMaximised)
        return;
    const PlacementSettings kept(keyName);
    for (const Setting<qint32>& length : {kept.top, kept.left, kept.height, kept.width}) {
        if (!settings.find(length))
            return;
    }
    window.setPlacement(readPlacement(settings, kept));
}
