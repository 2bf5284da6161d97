#pragma once

#include "ui/strip/WorkArea.h"

namespace palomet {

class X11Connection;

/// The edges of the screens that the desktop's panels and docks reserve for themselves, each as its window says
/// it (`_NET_WM_STRUT_PARTIAL`, else `_NET_WM_STRUT`), and what the window manager reserves for panels that are no
/// windows of their own: one rectangle a monitor (`_GTK_WORKAREAS_D0` and so on) where it says so, else
/// `_NET_WORKAREA`, which is one for all monitors together and so of use only where there is one.
class X11WorkArea final : public WorkArea {
public:
    /// The connection outlives this.
    explicit X11WorkArea(X11Connection &connection)
        : m_connection(connection) {}

    /// Asks anew each time.
    [[nodiscard]] QRect usable(const QRect &screen) const override;

private:
    X11Connection &m_connection;
};

} // namespace palomet
