#include "app/Session.h"

#include "platform/gnome/GnomeKeys.h"
#include "platform/wayland/Compositor.h"
#include "platform/wayland/WaylandKeyboardLayout.h"
#include "platform/x11/X11KeyboardLayout.h"

namespace palomet {

using namespace Qt::StringLiterals;

Session::Session(DisplayRoute::Way way)
    : m_way(way)
    , m_bus(QDBusConnection::sessionBus())
    , m_x11(way == DisplayRoute::Way::Wayland || way == DisplayRoute::Way::None ? nullptr : X11Connection::open()) {}

QString Session::applicationId() {
    return u"org.palomet.Palomet"_s;
}

QString Session::version() {
    return u"" PALOMET_VERSION ""_s;
}

bool Session::isWayland() {
    return qEnvironmentVariable("XDG_SESSION_TYPE") == "wayland"_L1;
}

DisplayRoute Session::displayRoute(std::optional<std::chrono::milliseconds> patience) {
    const auto compositor = [] {
        const auto answer = askCompositor();
        if (!answer)
            return Displays::Compositor::None;
        return answer->hasLayerShell ? Displays::Compositor::WithLayers : Displays::Compositor::WithoutLayers;
    };
    return chooseDisplayRoute({
        .chosen = qEnvironmentVariable("QT_QPA_PLATFORM"),
        .isWaylandSession = isWayland(),
        .hasPlugin = canToolkitSpeakWayland(),
        .hasX11 = [&] { return !qEnvironmentVariableIsEmpty("DISPLAY") && X11Connection::isPossible(patience); },
        .compositor = compositor,
    });
}

std::unique_ptr<KeyboardLayout> Session::makeKeyboardLayout() const {
    if (m_way == DisplayRoute::Way::Wayland)
        return std::make_unique<WaylandKeyboardLayout>();
    if (m_x11 == nullptr)
        return std::make_unique<NoKeyboardLayout>();
    return std::make_unique<X11KeyboardLayout>(*m_x11);
}

std::unique_ptr<DesktopKeys> Session::makeDesktopKeys(const KeyboardLayout &layout) {
    // On Wayland nobody takes a key, but asks for it.
    if (isWayland() || !GnomeKeys::isFor(qEnvironmentVariable("XDG_CURRENT_DESKTOP")))
        return nullptr;
    return std::make_unique<GnomeKeys>(layout);
}

std::unique_ptr<QSettings> Session::makeSettings() {
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, u"palomet"_s, u"palomet"_s);
}

Session::Sound Session::makeSound(Scheduler &scheduler) const {
    Sound sound{std::make_unique<DesktopMicrophonePermission>(m_bus, applicationId(), scheduler),
                std::make_unique<PulseSoundServer>(scheduler)};
    sound.server->onAccessDenied = [&permission = *sound.permission] { permission.soundServerRefused(); };
    sound.server->onAccessGranted = [&permission = *sound.permission] { permission.soundServerGranted(); };
    return sound;
}

} // namespace palomet
