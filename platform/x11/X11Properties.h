#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <vector>

namespace palomet {

// Questions to an X server, each asked first and read later, so that several travel together.

/// `XCB_ATOM_NONE` of a name that nobody on the display has ever used.
[[nodiscard]] xcb_intern_atom_cookie_t askForAtom(xcb_connection_t *connection, const QByteArray &name);
[[nodiscard]] xcb_atom_t atom(xcb_connection_t *connection, xcb_intern_atom_cookie_t cookie);

/// The numbers of a property, no more than some thousands; none where there is no such property, or it has no numbers.
[[nodiscard]] xcb_get_property_cookie_t ask(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property);
[[nodiscard]] std::vector<quint32> values(xcb_connection_t *connection, xcb_get_property_cookie_t cookie);

} // namespace palomet
