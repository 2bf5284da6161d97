#pragma once

#include <QtGlobal>

#include <set>

namespace palomet {

class X11Connection;

/// Whether another program has this keycode with one of these modifiers on the root window by the input extension, as
/// the window manager of GNOME has its keys. The server grants a key once to the core protocol and once more to the
/// extension, and then only one of the two programs gets it. False where the server has no such extension. Main thread
/// only.
[[nodiscard]] bool isHeldByDeviceGrab(const X11Connection &connection, quint8 keycode,
                                      const std::set<quint16> &modifiers);

} // namespace palomet
