#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Properties.h"
#include "platform/x11/XcbReply.h"

#include <xcb/xcb.h>

#include <memory>
#include <vector>

namespace palomet::test {

/// A window manager that the test plays on a display without another one: it shows every window that wants to be shown,
/// and keeps who asked for the focus, and when.
class WindowManagerDouble {
public:
    struct Request {
        xcb_window_t window = XCB_NONE;
        quint32 source = 0; ///< 1: a program by itself, 2: the user directly.
        xcb_timestamp_t time = 0;

        bool operator==(const Request &) const = default;
    };

    explicit WindowManagerDouble(const QByteArray &display)
        : m_x11(X11Connection::open(display)) {
        constexpr quint32 events = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection(), m_x11->root(), XCB_CW_EVENT_MASK, &events);
        const auto supported = makeAtom("_NET_ACTIVE_WINDOW");
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, m_x11->root(), makeAtom("_NET_SUPPORTED"),
                            XCB_ATOM_ATOM, 32, 1, &supported);
        constexpr quint32 changes = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, m_elsewhere, m_x11->root(), -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &changes);
        QObject::connect(m_x11.get(), &X11Connection::received, m_x11.get(),
                         [this](const xcb_generic_event_t &event) { received(event); });
        xcb_flush(connection());
        m_x11->deliverLater();
    }

    [[nodiscard]] const std::vector<Request> &requests() const { return m_requests; }
    /// The windows that have been shown, in their order.
    [[nodiscard]] const std::vector<xcb_window_t> &windows() const { return m_windows; }

    /// Something was done in another program, of which no other is told: the server's time of that, once it has come.
    void doSomething() {
        m_now = 0;
        xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, m_elsewhere, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0,
                            nullptr);
        xcb_flush(connection());
        m_x11->deliverLater();
    }
    [[nodiscard]] xcb_timestamp_t now() const { return m_now; }

    [[nodiscard]] std::vector<quint32> property(xcb_window_t window, const char *name) const {
        auto found = values(connection(), ask(connection(), window, makeAtom(name)));
        m_x11->deliverLater();
        return found;
    }
    [[nodiscard]] QByteArray text(xcb_window_t window, const char *name) const {
        const auto cookie = xcb_get_property(connection(), 0, window, makeAtom(name), XCB_ATOM_ANY, 0, 64);
        const XcbReply<xcb_get_property_reply_t> reply{xcb_get_property_reply(connection(), cookie, nullptr)};
        m_x11->deliverLater();
        if (!reply || reply->format != 8)
            return {};
        return {static_cast<const char *>(xcb_get_property_value(reply.get())),
                xcb_get_property_value_length(reply.get())};
    }
    [[nodiscard]] xcb_atom_t makeAtom(const QByteArray &name) const {
        const auto cookie = xcb_intern_atom(connection(), 0, static_cast<quint16>(name.size()), name.constData());
        return atom(connection(), cookie);
    }

private:
    [[nodiscard]] xcb_connection_t *connection() const { return m_x11->get(); }

    void received(const xcb_generic_event_t &event) {
        const auto type = event.response_type & 0x7F;
        if (type == XCB_MAP_REQUEST) {
            m_windows.push_back(reinterpret_cast<const xcb_map_request_event_t &>(event).window);
            xcb_map_window(connection(), m_windows.back());
            xcb_flush(connection());
        } else if (type == XCB_CLIENT_MESSAGE) {
            const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
            if (message.type == makeAtom("_NET_ACTIVE_WINDOW"))
                m_requests.push_back({message.window, message.data.data32[0], message.data.data32[1]});
        } else if (type == XCB_PROPERTY_NOTIFY) {
            const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
            if (change.window == m_elsewhere)
                m_now = change.time;
        }
    }

    std::unique_ptr<X11Connection> m_x11;
    const xcb_window_t m_elsewhere = xcb_generate_id(m_x11->get());
    std::vector<Request> m_requests;
    std::vector<xcb_window_t> m_windows;
    xcb_timestamp_t m_now = 0;
};

} // namespace palomet::test
