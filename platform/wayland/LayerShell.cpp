#include "platform/wayland/LayerShell.h"

#include "platform/wayland/LayerShellProtocol.h"
#include "platform/wayland/WaylandRegistry.h"
#include "platform/wayland/toolkitDisplay.h"
#include "ui/strip/StripPanel.h"

#include <QGuiApplication>
#include <QPlatformSurfaceEvent>
#include <QWindow>
#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformwindow.h>

namespace palomet {

namespace {

QPlatformNativeInterface &toolkit() {
    return *QGuiApplication::platformNativeInterface();
}

wl_output *screenOf(const QWindow &window) {
    return static_cast<wl_output *>(toolkit().nativeResourceForScreen("output", window.screen()));
}

/// From the window's lower edge to that of the screen. Where windows are is not known here, but how they are to each
/// other.
int distanceOf(const QWindow &window) {
    const auto *const host = window.transientParent();
    if (host == nullptr)
        return StripPanel::distance;
    return StripPanel::distance + host->geometry().bottom() - window.geometry().bottom();
}

LayerSurface::Place placeOf(const QWindow &window) {
    // The compositor's points, which are not ours where the user has the toolkit scale them.
    const auto size = window.handle()->geometry().size();
    const auto scale = static_cast<double>(size.height()) / window.height();
    return {
        .screen = window.transientParent() != nullptr ? screenOf(*window.transientParent()) : nullptr,
        .width = size.width(),
        .height = size.height(),
        .distance = qRound(distanceOf(window) * scale),
    };
}

} // namespace

std::unique_ptr<LayerShell> LayerShell::bind() {
    auto *const display = toolkitDisplay();
    if (display == nullptr)
        return nullptr;
    WaylandOwner<wl_proxy> shell(WaylandRegistry(display).bind(layershell::shellInterface, layershell::version));
    return shell ? std::unique_ptr<LayerShell>(new LayerShell(display, std::move(shell))) : nullptr;
}

LayerShell::LayerShell(wl_display *display, WaylandOwner<wl_proxy> shell)
    : m_display(display)
    , m_shell(std::move(shell)) {
    qGuiApp->installEventFilter(this);
}

LayerShell::~LayerShell() = default;

void LayerShell::prepare() {
    qputenv("QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT", "1");
}

bool LayerShell::eventFilter(QObject *object, QEvent *event) {
    if (event->type() != QEvent::PlatformSurface)
        return false;
    auto *const window = qobject_cast<QWindow *>(object);
    if (window == nullptr || !window->flags().testFlag(Qt::BypassWindowManagerHint))
        return false;
    if (static_cast<QPlatformSurfaceEvent *>(event)->surfaceEventType() == QPlatformSurfaceEvent::SurfaceCreated)
        place(*window);
    else
        m_surfaces.erase(window);
    return false;
}

void LayerShell::place(QWindow &window) {
    auto *const surface = static_cast<wl_surface *>(toolkit().nativeResourceForWindow("surface", &window));
    auto placed = std::make_unique<LayerSurface>(m_display, m_shell.get(), surface, placeOf(window));
    connect(placed.get(), &LayerSurface::lost, this, [this, &window] { renew(window); });
    // This comes first of the hiding: before the toolkit takes away what the surface is made of.
    connect(&window, &QWindow::visibleChanged, placed.get(), [this, &window](bool isVisible) {
        if (!isVisible)
            renew(window);
    });
    const auto follow = [&window, surface = placed.get()] { surface->change(placeOf(window)); };
    connect(&window, &QWindow::heightChanged, placed.get(), follow);
    connect(&window, &QWindow::widthChanged, placed.get(), follow);
    connect(&window, &QWindow::yChanged, placed.get(), follow);
    m_surfaces[&window] = std::move(placed);
}

void LayerShell::renew(QWindow &window) {
    m_surfaces.erase(&window);
    // The toolkit gives the window another surface when it shows again, and does not say so unless it is made anew.
    const auto again = [&window] {
        const bool isShown = window.isVisible();
        window.destroy();
        window.setVisible(isShown);
    };
    QMetaObject::invokeMethod(&window, again, Qt::QueuedConnection);
}

} // namespace palomet
