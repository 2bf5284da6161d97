#pragma once

#include "base/DisplayRoute.h"
#include "base/Scheduler.h"
#include "platform/dbus/DesktopMicrophonePermission.h"
#include "platform/pulse/PulseSoundServer.h"
#include "platform/x11/X11Connection.h"
#include "shortcuts/DesktopKeys.h"
#include "shortcuts/KeyboardLayout.h"

#include <QDBusConnection>
#include <QSettings>

#include <chrono>
#include <memory>
#include <optional>

namespace palomet {

/// The desktop session as the program and its doctor find it: the bus, the X server, and the settings. Main thread
/// only.
class Session {
public:
    explicit Session(DisplayRoute::Way way);

    /// The name of the desktop file, by which portals and panels know the program.
    [[nodiscard]] static QString applicationId();
    [[nodiscard]] static QString version();

    [[nodiscard]] static bool isWayland();
    /// The way to the screen that this session has. An X server that does not answer is waited for as long as that, or
    /// for ever. Needs no application object.
    [[nodiscard]] static DisplayRoute displayRoute(std::optional<std::chrono::milliseconds> patience = {});

    [[nodiscard]] const QDBusConnection &bus() const { return m_bus; }
    /// Null without an X server, or where the windows do without one. What is made of it does not outlive this.
    [[nodiscard]] X11Connection *x11() const { return m_x11.get(); }

    [[nodiscard]] std::unique_ptr<KeyboardLayout> makeKeyboardLayout() const;
    /// Null where nothing but the attempt tells who has a key. `layout` outlives it.
    [[nodiscard]] static std::unique_ptr<DesktopKeys> makeDesktopKeys(const KeyboardLayout &layout);
    [[nodiscard]] static std::unique_ptr<QSettings> makeSettings();

    /// The sound server, which tells the permission when it refuses the microphone.
    struct Sound {
        std::unique_ptr<DesktopMicrophonePermission> permission;
        std::unique_ptr<PulseSoundServer> server;
    };
    /// `scheduler` outlives the sound.
    [[nodiscard]] Sound makeSound(Scheduler &scheduler) const;

private:
    const DisplayRoute::Way m_way;
    QDBusConnection m_bus;
    std::unique_ptr<X11Connection> m_x11;
};

} // namespace palomet
