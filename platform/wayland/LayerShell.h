#pragma once

#include "platform/wayland/LayerSurface.h"
#include "platform/wayland/WaylandHandles.h"

#include <QObject>

#include <memory>
#include <unordered_map>

class QWindow;

namespace palomet {

/// Has the compositor place windows above all others, full-screen ones too, which a window cannot do itself on Wayland.
/// These are all of ours that bypass the window manager: the strip, at the middle of the lower edge of the screen where
/// the user is, and what belongs to it, above it. Main thread only.
class LayerShell final : public QObject {
public:
    /// Null where the toolkit's windows are not Wayland's, or the compositor has no layers. After the application
    /// object is made, which outlives it; so it does those windows.
    static std::unique_ptr<LayerShell> bind();
    ~LayerShell() override;

    /// Tells the toolkit to leave such windows alone, by the environment, where it looks each time that it shows one.
    /// Before the application object is made.
    static void prepare();

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    LayerShell(wl_display *display, WaylandOwner<wl_proxy> shell);
    void place(QWindow &window);
    /// Forgets a window's surface, and has it get another one when it shows again.
    void renew(QWindow &window);

    wl_display *const m_display; ///< The toolkit's.
    const WaylandOwner<wl_proxy> m_shell;
    std::unordered_map<const QWindow *, std::unique_ptr<LayerSurface>> m_surfaces;
};

} // namespace palomet
