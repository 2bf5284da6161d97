#include "platform/x11/X11WindowManagement.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Properties.h"
#include "platform/x11/XcbReply.h"

#include <algorithm>
#include <utility>

namespace palomet {

namespace {

xcb_atom_t makeAtom(xcb_connection_t *connection, const QByteArray &name) {
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<quint16>(name.size()), name.constData());
    return atom(connection, cookie);
}

xcb_window_t makeClock(const X11Connection &x11) {
    auto *connection = x11.get();
    const auto window = xcb_generate_id(connection);
    constexpr quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, x11.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

} // namespace

X11WindowManagement::X11WindowManagement(X11Connection &connection, const QString &desktopFile)
    : m_connection(connection)
    , m_desktopFile(desktopFile.toUtf8())
    , m_atoms{
          .supported = makeAtom(connection.get(), "_NET_SUPPORTED"),
          .activeWindow = makeAtom(connection.get(), "_NET_ACTIVE_WINDOW"),
          .userTime = makeAtom(connection.get(), "_NET_WM_USER_TIME"),
          .userTimeWindow = makeAtom(connection.get(), "_NET_WM_USER_TIME_WINDOW"),
      }
    , m_clock(makeClock(connection)) {
    connect(&m_connection, &X11Connection::received, this, &X11WindowManagement::received);
    m_connection.deliverLater();
}

X11WindowManagement::~X11WindowManagement() {
    xcb_destroy_window(m_connection.get(), m_clock);
    xcb_flush(m_connection.get());
}

void X11WindowManagement::introduce(quintptr window) {
    auto *connection = m_connection.get();
    const auto text = makeAtom(connection, "UTF8_STRING");
    for (const auto *name : {"_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID"})
        xcb_change_property(connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window),
                            makeAtom(connection, name), text, 8, static_cast<quint32>(m_desktopFile.size()),
                            m_desktopFile.constData());
    xcb_flush(connection);
    m_connection.deliverLater();
}

bool X11WindowManagement::activate(quintptr window) {
    auto *connection = m_connection.get();
    const auto known = values(connection, ask(connection, m_connection.root(), m_atoms.supported));
    m_connection.deliverLater();
    if (std::ranges::find(known, m_atoms.activeWindow) == known.end())
        return false;
    m_wanted = static_cast<xcb_window_t>(window);
    // To append nothing changes nothing, and is dated all the same.
    xcb_change_property(connection, XCB_PROP_MODE_APPEND, m_clock, m_atoms.userTime, XCB_ATOM_CARDINAL, 32, 0, nullptr);
    xcb_flush(connection);
    return true;
}

void X11WindowManagement::received(const xcb_generic_event_t &event) {
    if ((event.response_type & 0x7FU) != XCB_PROPERTY_NOTIFY)
        return;
    const auto &change = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    if (change.window == m_clock && m_wanted != XCB_NONE)
        request(change.time);
}

void X11WindowManagement::request(xcb_timestamp_t now) {
    auto *connection = m_connection.get();
    const auto window = std::exchange(m_wanted, XCB_NONE);
    // The toolkit may keep it on a window of its own.
    const auto elsewhere = values(connection, ask(connection, window, m_atoms.userTimeWindow));
    const auto holder = elsewhere.empty() ? window : elsewhere.front();
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, holder, m_atoms.userTime, XCB_ATOM_CARDINAL, 32, 1, &now);

    constexpr quint32 directActionOfTheUser = 2;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_atoms.activeWindow;
    message.data.data32[0] = directActionOfTheUser;
    message.data.data32[1] = now;
    xcb_send_event(connection, 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(connection);
    m_connection.deliverLater();
}

} // namespace palomet
