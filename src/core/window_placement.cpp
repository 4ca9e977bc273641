#include "core/window_placement.h"

#include "core/settings.h"

#include <cmath>

namespace {

constexpr QStringView WindowStateValue = u"WindowState";
constexpr QStringView TopValue = u"Top";
constexpr QStringView LeftValue = u"Left";
constexpr QStringView WidthValue = u"Width";
constexpr QStringView HeightValue = u"Height";

/// The one window that stands in the middle of the screen before it has a place of its own.
constexpr QStringView CentredWindow = u"CPlanFrm";

qint32 stored(float twips) {
    return static_cast<qint32>(std::lround(twips));
}

float readTwips(Settings& settings, QStringView key, QStringView name) {
    return static_cast<float>(settings.readNumber(key, name));
}

Placement readPlacement(Settings& settings, QStringView key) {
    return {.Top = readTwips(settings, key, TopValue),
            .Left = readTwips(settings, key, LeftValue),
            .Width = readTwips(settings, key, WidthValue),
            .Height = readTwips(settings, key, HeightValue)};
}

void placeByDefault(PlacedWindow& window) {
    Placement place = window.placement();
    place.Top = 0;
    place.Left = 0;
    if (window.windowName() == CentredWindow) {
        const QSize screen = window.screenSize() * TwipsPerPixel;
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
    const Settings::Batch together(settings);
    const QString key = setting::keyOf(keyName);
    settings.CreateRegistryKey(key);
    settings.WriteRegistryValue(key, WindowStateValue, window.windowState());
    if (window.windowState() != WindowNormal)
        return;
    const Placement place = window.placement();
    settings.WriteRegistryValue(key, TopValue, stored(place.Top));
    settings.WriteRegistryValue(key, LeftValue, stored(place.Left));
    settings.WriteRegistryValue(key, WidthValue, stored(place.Width));
    settings.WriteRegistryValue(key, HeightValue, stored(place.Height));
}

void RestoreWindowPlacement(Settings& settings, PlacedWindow& window, QStringView keyName) {
    const QString key = setting::keyOf(keyName);
    if (settings.ReadRegistryValue(key, WindowStateValue) != SettingFound) {
        placeByDefault(window);
        return;
    }
    const qint32 state = settings.readNumber(key, WindowStateValue);
    if (state == WindowNormal) {
        window.setPlacement(readPlacement(settings, key));
    } else if (state == WindowMinimised || state == WindowMaximised) {
        window.setWindowState(state);
    }
}

void RestoreChildPlacement(Settings& settings, PlacedWindow& window, QStringView keyName) {
    const MainWindowLock lock(window);
    if (window.windowState() == WindowMaximised)
        return;
    const QString key = setting::keyOf(keyName);
    for (QStringView name : {TopValue, LeftValue, HeightValue, WidthValue}) {
        if (settings.ReadRegistryValue(key, name) != SettingFound)
            return;
    }
    window.setPlacement(readPlacement(settings, key));
}
