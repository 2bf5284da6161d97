#pragma once

#include "platform/xkb/XkbKeymap.h"
#include "shortcuts/KeyboardLayout.h"

#include <xcb/xcb.h>

namespace palomet {

class X11Connection;

/// The layout that the X server's keyboard has now, also after it changes.
class X11KeyboardLayout final : public KeyboardLayout {
    Q_OBJECT

public:
    /// `connection` outlives this.
    explicit X11KeyboardLayout(X11Connection &connection);

    [[nodiscard]] std::optional<QString> character(quint32 keyCode) const override;

private:
    void received(const xcb_generic_event_t &event);
    void activate(quint32 group);
    void readLater();
    void readAgain();

    X11Connection &m_connection;
    XkbKeymap m_keymap;
    quint32 m_group = 0;
    bool m_isReadPending = false;
};

} // namespace palomet
