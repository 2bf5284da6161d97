#include "platform/x11/X11HotKeyGrabber.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbKeyboard.h"
#include "platform/x11/XcbReply.h"
#include "shortcuts/KeyCodes.h"

#include <xcb/xcb.h>

#include <chrono>
#include <vector>

namespace palomet {

namespace {

bool isDown(const XcbReply<xcb_query_keymap_reply_t> &keys, quint8 keycode) {
    return keys && (keys->keys[keycode / 8] >> (keycode % 8) & 1U) != 0;
}

} // namespace

X11HotKeyGrabber::X11HotKeyGrabber(X11Connection &connection)
    : m_connection(connection)
    , m_mapping(X11Modifiers::read(connection)) {
    connect(&m_connection, &X11Connection::received, this, &X11HotKeyGrabber::received);
    m_glance.setInterval(std::chrono::milliseconds{10});
    connect(&m_glance, &QTimer::timeout, this, &X11HotKeyGrabber::forgetReleased);
}

X11HotKeyGrabber::~X11HotKeyGrabber() {
    for (const auto &[id, combination] : m_grabs)
        give(combination);
}

bool X11HotKeyGrabber::grab(quint32 id, quint32 keyCode, quint32 modifiers) {
    const auto evdev = KeyCodes::toEvdev(keyCode);
    constexpr int offset = 8;
    if (!evdev || *evdev + offset > 255)
        return false;
    const Combination combination{static_cast<quint8>(*evdev + offset), modifiers};
    rememberHeld(combination.keycode);
    if (!take(combination))
        return false;
    m_grabs.insert_or_assign(id, combination);
    return true;
}

void X11HotKeyGrabber::release(quint32 id) {
    const auto found = m_grabs.find(id);
    if (found == m_grabs.end())
        return;
    give(found->second);
    m_grabs.erase(found);
}

bool X11HotKeyGrabber::take(const Combination &combination) {
    auto *connection = m_connection.get();
    const auto mask = m_mapping.mask(combination.modifiers);
    std::vector<xcb_void_cookie_t> cookies;
    for (const auto lock : m_mapping.lockVariants())
        cookies.push_back(xcb_grab_key_checked(connection, 1, m_connection.root(), mask | lock, combination.keycode,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool isTaken = true;
    for (const auto cookie : cookies) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        isTaken = isTaken && !error;
    }
    if (!isTaken)
        give(combination);
    m_connection.deliverLater();
    return isTaken && xcb_connection_has_error(connection) == 0;
}

void X11HotKeyGrabber::give(const Combination &combination) {
    const auto mask = m_mapping.mask(combination.modifiers);
    for (const auto lock : m_mapping.lockVariants())
        xcb_ungrab_key(m_connection.get(), combination.keycode, m_connection.root(), mask | lock);
    xcb_flush(m_connection.get());
}

void X11HotKeyGrabber::rememberHeld(quint8 keycode) {
    const auto cookie = xcb_query_keymap(m_connection.get());
    const XcbReply<xcb_query_keymap_reply_t> keys(xcb_query_keymap_reply(m_connection.get(), cookie, nullptr));
    m_connection.deliverLater();
    if (!isDown(keys, keycode))
        return;
    m_heldBefore.insert_or_assign(keycode, cookie.sequence);
    m_glance.start();
}

void X11HotKeyGrabber::forgetReleased() {
    const XcbReply<xcb_query_keymap_reply_t> keys(
        xcb_query_keymap_reply(m_connection.get(), xcb_query_keymap(m_connection.get()), nullptr));
    m_connection.deliverLater();
    std::erase_if(m_heldBefore, [&](const auto &held) { return !isDown(keys, held.first); });
    if (m_heldBefore.empty())
        m_glance.stop();
}

void X11HotKeyGrabber::received(const xcb_generic_event_t &event) {
    const quint8 type = event.response_type & 0x7FU;
    if (type == XCB_KEY_PRESS) {
        const auto &press = reinterpret_cast<const xcb_key_press_event_t &>(event);
        if (!m_down.insert(press.detail).second)
            return;
        // A press that was on its way by then was one.
        const auto before = m_heldBefore.find(press.detail);
        if (before != m_heldBefore.end() && static_cast<qint32>(event.full_sequence - before->second) >= 0)
            return;
        // The upper bits say which layout is active, and the lock keys make no difference.
        constexpr quint16 modifiers = 0xFF;
        quint16 locks = XCB_MOD_MASK_LOCK;
        locks |= m_mapping.numLock | m_mapping.scrollLock;
        const auto held = static_cast<quint16>(press.state & modifiers & ~locks);
        for (const auto &[id, combination] : m_grabs) {
            if (combination.keycode == press.detail && m_mapping.mask(combination.modifiers) == held) {
                onPressed(id);
                return;
            }
        }
    } else if (type == XCB_KEY_RELEASE) {
        const auto keycode = reinterpret_cast<const xcb_key_release_event_t &>(event).detail;
        m_down.erase(keycode);
        m_heldBefore.erase(keycode);
    } else if (type == XCB_MAPPING_NOTIFY) {
        if (reinterpret_cast<const xcb_mapping_notify_event_t &>(event).request != XCB_MAPPING_POINTER)
            regrabLater();
    } else if (type == m_connection.keyboardEvent()) {
        // The extension's events share one number; what they are stands in the byte after it.
        if (event.pad0 == XCB_XKB_NEW_KEYBOARD_NOTIFY || event.pad0 == XCB_XKB_MAP_NOTIFY)
            regrabLater();
    }
}

void X11HotKeyGrabber::regrabLater() {
    if (m_isRegrabPending)
        return;
    m_isRegrabPending = true;
    QMetaObject::invokeMethod(this, &X11HotKeyGrabber::regrab, Qt::QueuedConnection);
}

void X11HotKeyGrabber::regrab() {
    m_isRegrabPending = false;
    // Typing on another keyboard tells of a "new" one as well: as long as the modifiers are the same, so are the grabs.
    const auto mapping = X11Modifiers::read(m_connection);
    m_connection.deliverLater();
    if (mapping == m_mapping)
        return;
    for (const auto &[id, combination] : m_grabs)
        give(combination);
    m_mapping = mapping;
    m_down.clear();
    std::vector<quint32> refused;
    for (const auto &[id, combination] : m_grabs) {
        if (!take(combination))
            refused.push_back(id);
    }
    for (const auto id : refused) {
        m_grabs.erase(id);
        onRefused(id);
    }
}

} // namespace palomet
