#pragma once

#include "ui/strip/WorkArea.h"

namespace palomet {

class X11Connection;

/// What the panels and docks of the desktop reserve for themselves at the edges of the screens, each as its window says
/// it (`_NET_WM_STRUT_PARTIAL`, else `_NET_WM_STRUT`). The window manager's own sum, `_NET_WORKAREA`, is one rectangle
/// for all screens together and so of no use where there are several.
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
