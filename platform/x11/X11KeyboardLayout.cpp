#include "platform/x11/X11KeyboardLayout.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbKeyboard.h"
#include "platform/x11/XcbReply.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace palomet {

namespace {

XkbKeymap keymap(const X11Connection &connection) {
    return XkbKeymap([&](xkb_context *context) -> xkb_keymap * {
        const auto device = xkb_x11_get_core_keyboard_device_id(connection.get());
        if (device == -1)
            return nullptr;
        return xkb_x11_keymap_new_from_device(context, connection.get(), device, XKB_KEYMAP_COMPILE_NO_FLAGS);
    });
}

quint32 activeGroup(const X11Connection &connection) {
    const XcbReply<xcb_xkb_get_state_reply_t> state(xcb_xkb_get_state_reply(
        connection.get(), xcb_xkb_get_state(connection.get(), XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->group : 0;
}

} // namespace

X11KeyboardLayout::X11KeyboardLayout(X11Connection &connection)
    : m_connection(connection) {
    // Of the state, only the group: every key press changes the rest.
    constexpr quint16 state = XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr quint16 group = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_details_t details{};
    details.affectState = group;
    details.stateDetails = group;
    xcb_xkb_select_events_aux(connection.get(), XCB_XKB_ID_USE_CORE_KBD, state, 0, 0, 0, 0, &details);
    xcb_flush(connection.get());
    connect(&m_connection, &X11Connection::received, this, &X11KeyboardLayout::received);
    readAgain();
}

std::optional<QString> X11KeyboardLayout::character(quint32 keyCode) const {
    return m_keymap.character(keyCode, m_group);
}

void X11KeyboardLayout::received(const xcb_generic_event_t &event) {
    if ((event.response_type & 0x7FU) != m_connection.keyboardEvent())
        return;
    if (event.pad0 == XCB_XKB_STATE_NOTIFY)
        activate(reinterpret_cast<const xcb_xkb_state_notify_event_t &>(event).group);
    else if (event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY)
        readLater();
}

void X11KeyboardLayout::activate(quint32 group) {
    if (group == m_group)
        return;
    m_group = group;
    Q_EMIT changed();
}

void X11KeyboardLayout::readLater() {
    // A change of the keyboard comes as a burst.
    if (m_isReadPending)
        return;
    m_isReadPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isReadPending = false;
            readAgain();
            Q_EMIT changed();
        },
        Qt::QueuedConnection);
}

void X11KeyboardLayout::readAgain() {
    m_keymap = keymap(m_connection);
    m_group = activeGroup(m_connection);
    m_connection.deliverLater();
}

} // namespace palomet
