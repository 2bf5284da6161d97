#include "platform/wayland/toolkitDisplay.h"

#include <QGuiApplication>
#include <qpa/qplatformnativeinterface.h>

namespace palomet {

using namespace Qt::StringLiterals;

wl_display *toolkitDisplay() {
    auto *const toolkit = QGuiApplication::platformNativeInterface();
    if (toolkit == nullptr || !QGuiApplication::platformName().startsWith("wayland"_L1))
        return nullptr;
    return static_cast<wl_display *>(toolkit->nativeResourceForIntegration("wl_display"));
}

} // namespace palomet
