#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbKeyboard.h"

namespace palomet::test {

/// Makes one of the keyboard's layouts the active one, as a layout switcher does.
inline void activateGroup(const X11Connection &connection, quint8 group) {
    xcb_xkb_latch_lock_state(connection.get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    xcb_flush(connection.get());
}

} // namespace palomet::test
