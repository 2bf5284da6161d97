#include "platform/x11/X11DeviceGrabs.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbReply.h"

#include <xcb/xinput.h>

#include <vector>

namespace palomet {

bool isHeldByDeviceGrab(const X11Connection &connection, quint8 keycode, const std::set<quint16> &modifiers) {
    auto *const server = connection.get();
    const auto *extension = xcb_get_extension_data(server, &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return false;
    const XcbReply<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(server, xcb_input_xi_query_version(server, 2, 0), nullptr));
    if (!version)
        return false;
    // Nothing tells who has a key: to take it for a moment is to ask.
    const std::vector<quint32> masks(modifiers.begin(), modifiers.end());
    const auto count = static_cast<quint16>(masks.size());
    constexpr quint32 events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
    const auto asked = xcb_input_xi_passive_grab_device(
        server, XCB_CURRENT_TIME, connection.root(), XCB_NONE, keycode, XCB_INPUT_DEVICE_ALL_MASTER, count, 1,
        XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
        XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, masks.data());
    xcb_input_xi_passive_ungrab_device(server, connection.root(), keycode, XCB_INPUT_DEVICE_ALL_MASTER, count,
                                       XCB_INPUT_GRAB_TYPE_KEYCODE, masks.data());
    const XcbReply<xcb_input_xi_passive_grab_device_reply_t> reply(
        xcb_input_xi_passive_grab_device_reply(server, asked, nullptr));
    // Only the modifiers that were refused are listed.
    return reply && reply->num_modifiers > 0;
}

} // namespace palomet
