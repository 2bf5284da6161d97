#include "platform/x11/X11HotKeyGrabber.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbKeyboard.h"
#include "platform/x11/XcbReply.h"
#include "shortcuts/Keys.h"

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
    m_combinations.clear();
    giveRest();
}

bool X11HotKeyGrabber::grab(quint32 id, quint32 keyCode, quint32 modifiers) {
    const auto *key = findKey(keyCode);
    if (key == nullptr)
        return false;
    const Combination combination{static_cast<quint8>(toXKeycode(*key)), modifiers};
    if (!take(combination))
        return false;
    m_combinations.insert_or_assign(id, combination);
    return true;
}

void X11HotKeyGrabber::release(quint32 id) {
    if (m_combinations.erase(id) == 0 || m_isRestPending)
        return;
    m_isRestPending = true;
    // A combination that is given back and taken anew at once stays held all the while: a press in between is not lost.
    QMetaObject::invokeMethod(this, &X11HotKeyGrabber::giveRest, Qt::QueuedConnection);
}

std::set<X11HotKeyGrabber::Grab> X11HotKeyGrabber::grabsFor(const Combination &combination) const {
    const auto mask = m_mapping.mask(combination.modifiers);
    std::set<Grab> grabs;
    for (const auto lock : m_mapping.lockVariants())
        grabs.emplace(combination.keycode, static_cast<quint16>(mask | lock));
    return grabs;
}

bool X11HotKeyGrabber::take(const Combination &combination) {
    auto *connection = m_connection.get();
    auto missing = grabsFor(combination);
    std::erase_if(missing, [this](const auto &grab) { return m_grabs.contains(grab); });
    if (missing.empty())
        return xcb_connection_has_error(connection) == 0;
    rememberHeld(combination.keycode);
    std::vector<xcb_void_cookie_t> cookies;
    cookies.reserve(missing.size());
    for (const auto &[keycode, modifiers] : missing)
        cookies.push_back(xcb_grab_key_checked(connection, 1, m_connection.root(), modifiers, keycode,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool isTaken = true;
    for (const auto cookie : cookies) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        isTaken = isTaken && !error;
    }
    if (isTaken)
        m_grabs.merge(missing);
    else
        give(missing);
    m_connection.deliverLater();
    return isTaken && xcb_connection_has_error(connection) == 0;
}

void X11HotKeyGrabber::give(const std::set<Grab> &grabs) {
    for (const auto &[keycode, modifiers] : grabs)
        xcb_ungrab_key(m_connection.get(), keycode, m_connection.root(), modifiers);
    xcb_flush(m_connection.get());
}

void X11HotKeyGrabber::giveRest() {
    m_isRestPending = false;
    auto rest = m_grabs;
    for (const auto &[id, combination] : m_combinations) {
        for (const auto &grab : grabsFor(combination))
            rest.erase(grab);
    }
    give(rest);
    std::erase_if(m_grabs, [&](const auto &grab) { return rest.contains(grab); });
}

void X11HotKeyGrabber::rememberHeld(quint8 keycode) {
    const auto cookie = xcb_query_keymap(m_connection.get());
    const XcbReply<xcb_query_keymap_reply_t> keys(xcb_query_keymap_reply(m_connection.get(), cookie, nullptr));
    m_connection.deliverLater();
    if (isDown(keys, keycode))
        awaitRelease(keycode, cookie.sequence);
}

void X11HotKeyGrabber::awaitRelease(quint8 keycode, quint32 since) {
    m_heldBefore.insert_or_assign(keycode, since);
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

void X11HotKeyGrabber::pressed(const xcb_key_press_event_t &press, quint32 sequence) {
    if (m_down.empty())
        m_first = press.detail;
    if (!m_down.insert(press.detail).second)
        return;
    // A press that was on its way by then was one.
    const auto before = m_heldBefore.find(press.detail);
    if (before != m_heldBefore.end() && static_cast<qint32>(sequence - before->second) >= 0)
        return;
    // The upper bits say which layout is active, and the lock keys make no difference.
    constexpr quint16 modifiers = 0xFF;
    quint16 locks = XCB_MOD_MASK_LOCK;
    locks |= m_mapping.numLock | m_mapping.scrollLock;
    const auto held = static_cast<quint16>(press.state & modifiers & ~locks);
    for (const auto &[id, combination] : m_combinations) {
        if (combination.keycode == press.detail && m_mapping.mask(combination.modifiers) == held) {
            onPressed(id);
            return;
        }
    }
}

void X11HotKeyGrabber::released(quint8 keycode, quint32 sequence) {
    m_down.erase(keycode);
    m_heldBefore.erase(keycode);
    if (keycode != m_first)
        return;
    // The keyboard is everybody's again: who else is still down is released elsewhere.
    for (const auto other : m_down)
        awaitRelease(other, sequence);
    m_down.clear();
}

void X11HotKeyGrabber::received(const xcb_generic_event_t &event) {
    const quint8 type = event.response_type & 0x7FU;
    if (type == XCB_KEY_PRESS) {
        pressed(reinterpret_cast<const xcb_key_press_event_t &>(event), event.full_sequence);
    } else if (type == XCB_KEY_RELEASE) {
        released(reinterpret_cast<const xcb_key_release_event_t &>(event).detail, event.full_sequence);
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
    m_mapping = mapping;
    std::vector<quint32> refused;
    for (const auto &[id, combination] : m_combinations) {
        if (!take(combination))
            refused.push_back(id);
    }
    for (const auto id : refused)
        m_combinations.erase(id);
    // Combinations of both mappings were held all the while.
    giveRest();
    for (const auto id : refused)
        onRefused(id);
}

} // namespace palomet
