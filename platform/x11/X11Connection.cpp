#include "platform/x11/X11Connection.h"

#include "platform/x11/XcbKeyboard.h"
#include "platform/x11/XcbReply.h"

#include <QSocketNotifier>

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <future>
#include <thread>

namespace palomet {

std::unique_ptr<X11Connection> X11Connection::open(const QByteArray &display) {
    int screenNumber = 0;
    Connection owned(xcb_connect(display.isEmpty() ? nullptr : display.constData(), &screenNumber));
    auto *const connection = owned.get();
    if (xcb_connection_has_error(connection) != 0)
        return nullptr;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screen.rem > 1; ++i)
        xcb_screen_next(&screen);
    quint8 keyboardEvent = 0;
    if (screen.rem == 0 || xkb_x11_setup_xkb_extension(
                               connection, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                               XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &keyboardEvent, nullptr) == 0)
        return nullptr;
    // A key that is held repeats as presses alone, so that a release means a release.
    constexpr auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    // To be told of a new keyboard or mapping: a client that uses the extension gets no core event of it.
    constexpr quint16 events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr quint16 parts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP |
                              XCB_XKB_MAP_PART_VIRTUAL_MODS | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events(connection, XCB_XKB_ID_USE_CORE_KBD, events, 0, events, parts, parts, nullptr);
    return std::unique_ptr<X11Connection>(new X11Connection(std::move(owned), screen.data->root, keyboardEvent));
}

bool X11Connection::isPossible(std::optional<std::chrono::milliseconds> patience) {
    const auto connect = [] {
        const Connection connection(xcb_connect(nullptr, nullptr));
        return xcb_connection_has_error(connection.get()) == 0;
    };
    if (!patience)
        return connect();
    // Nothing calls the library off while it waits for the server's first answer.
    std::packaged_task<bool()> attempt(connect);
    auto answer = attempt.get_future();
    std::thread(std::move(attempt)).detach();
    return answer.wait_for(*patience) == std::future_status::ready && answer.get();
}

X11Connection::X11Connection(Connection connection, quint32 root, quint8 keyboardEvent)
    : m_connection(std::move(connection))
    , m_root(root)
    , m_keyboardEvent(keyboardEvent)
    , m_notifier(std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(get()), QSocketNotifier::Read)) {
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { deliver(); });
    xcb_flush(get());
}

X11Connection::~X11Connection() = default;

void X11Connection::deliverLater() {
    QMetaObject::invokeMethod(
        this, [this] { deliver(); }, Qt::QueuedConnection);
}

void X11Connection::deliver() {
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(get())})
        Q_EMIT received(*event);
    // The server is gone: nothing more will come, and the socket would stay readable for ever.
    if (xcb_connection_has_error(get()) != 0)
        m_notifier->setEnabled(false);
}

} // namespace palomet
