#include "platform/x11/X11Properties.h"

#include "platform/x11/XcbReply.h"

namespace palomet {

namespace {

/// The most windows, and the most numbers of a property, that are looked at.
constexpr quint32 mostValues = 4096;

} // namespace

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t *connection, const QByteArray &name) {
    return xcb_intern_atom(connection, 1, static_cast<quint16>(name.size()), name.constData());
}

xcb_atom_t atom(xcb_connection_t *connection, xcb_intern_atom_cookie_t cookie) {
    const XcbReply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(connection, cookie, nullptr)};
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

xcb_get_property_cookie_t ask(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property) {
    return xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, mostValues);
}

std::vector<quint32> values(xcb_connection_t *connection, xcb_get_property_cookie_t cookie) {
    const XcbReply<xcb_get_property_reply_t> reply{xcb_get_property_reply(connection, cookie, nullptr)};
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return {first, first + xcb_get_property_value_length(reply.get()) / static_cast<int>(sizeof(quint32))};
}

} // namespace palomet
