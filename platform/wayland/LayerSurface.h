#pragma once

#include <QObject>

struct wl_display;
struct wl_output;
struct wl_proxy;
struct wl_surface;

namespace palomet {

/// A surface in the layer above all windows, in the middle of the screen's lower edge. It has no focus. To be gone
/// before the surface that it is made of. Main thread only.
class LayerSurface final : public QObject {
    Q_OBJECT

public:
    struct Place {
        wl_output *screen; ///< Null: the compositor chooses one, which is where the user is.
        int width;
        int height;
        int distance; ///< To the edge, or to a panel there.
    };

    /// Makes it of a surface without a role and without content, and waits for its place, a second at most. Without
    /// one it shows nowhere, whatever its content. All arguments outlive it.
    LayerSurface(wl_display *display, wl_proxy *shell, wl_surface *surface, const Place &place);
    ~LayerSurface() override;

    /// Another size and distance, with its next content.
    void change(const Place &place);

Q_SIGNALS:
    /// It has lost its place, for its screen is gone. From the event loop.
    void lost();

private:
    static void configured(void *data, wl_proxy *surface, uint32_t serial, uint32_t width, uint32_t height);
    static void closed(void *data, wl_proxy *surface);

    wl_proxy *m_surface = nullptr; ///< Null without a place.
    bool m_isPlaced = false;
    bool m_isClosed = false;
};

} // namespace palomet
