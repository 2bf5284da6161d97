#include "app/ToolkitPlatform.h"

#include "platform/wayland/LayerShell.h"

#include <QLoggingCategory>
#include <QOpenGLContext>

namespace palomet {

using namespace Qt::StringLiterals;
using Way = DisplayRoute::Way;

namespace {

constexpr auto *platform = "QT_QPA_PLATFORM";
constexpr auto *buffers = "QT_WAYLAND_CLIENT_BUFFER_INTEGRATION";

bool isUnset(const char *name) {
    return qEnvironmentVariableIsEmpty(name);
}

} // namespace

ToolkitPlatform::ToolkitPlatform(const DisplayRoute &route) {
    if (route.reason != DisplayRoute::Reason::User && (route.way == Way::Wayland || route.way == Way::XWayland))
        m_isChosen = qputenv(platform, route.way == Way::Wayland ? "wayland" : "xcb");
    if (route.way != Way::Wayland)
        return;
    if (route.hasLayers)
        LayerShell::prepare();
    // Everything is drawn by the processor. Without this the toolkit loads the graphics driver for the first window
    // nevertheless, which may take more memory than the whole window.
    m_isWithoutDriver = isUnset("QT_QUICK_BACKEND") && isUnset(buffers) && qputenv(buffers, "none");
    if (m_isWithoutDriver)
        // It says that there is no such thing as "none".
        QLoggingCategory::setFilterRules(u"qt.qpa.wayland.warning=false"_s);
}

void ToolkitPlatform::settle() const {
    if (m_isChosen)
        qunsetenv(platform);
    if (!m_isWithoutDriver)
        return;
    // Whoever asks this has the driver looked for, which else comes with the first window.
    static_cast<void>(QOpenGLContext::supportsThreadedOpenGL());
    qunsetenv(buffers);
}

} // namespace palomet
