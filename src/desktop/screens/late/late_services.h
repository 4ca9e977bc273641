#pragma once

#include "core/power_status.h"

#include <QByteArray>
#include <QImage>
#include <QString>

#include <functional>
#include <optional>

/// Services whose libraries take long to load and that few runs of the program need. They stand in
/// a module of their own, lib/liborva_late.so, which is loaded when the first of them is asked for.
class LateServices {
public:
    virtual ~LateServices() = default;

    /// As `Shell::PlaySoundFile`.
    virtual void playSound(const QString& path, bool loop, const std::function<void()>& ended) = 0;
    /// As `Shell::Notify`.
    virtual void notify(const QString& text) = 0;
    /// As `Shell::WhenWoken`.
    virtual void whenWoken(const std::function<void()>& act) = 0;
    /// How the computer is powered; nothing where no service of the desktop tells.
    virtual std::optional<PowerSupply> power() = 0;
    /// As `Shell::SetSystemPowerState`.
    virtual QString sleep(bool suspend, bool force) = 0;
    /// Starts the program of a `.desktop` file; false where that names none that can be started.
    virtual bool startDesktopFile(const QString& path) = 0;
    /// Whether the desktop has a program for files of a MIME type.
    virtual bool opens(const char* mimeType) = 0;
    /// The screen by the desktop's screenshot portal: nothing where there is none, a null picture
    /// where the person gave no leave.
    virtual std::optional<QImage> captureByPortal() = 0;
    /// As `Shell::FetchText`.
    virtual QByteArray fetch(const QString& address) = 0;
};

/// The services of this process; null where the module is missing.
LateServices* lateServices();

/// What the module is asked for by name.
extern "C" LateServices* orvaLateServices();
