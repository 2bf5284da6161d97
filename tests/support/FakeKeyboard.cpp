#include "tests/support/FakeKeyboard.h"

#include "platform/x11/XcbKeyboard.h"
#include "platform/x11/XcbReply.h"

#include <xcb/xtest.h>

#include <vector>

namespace palomet::test {

FakeKeyboard::FakeKeyboard(const QByteArray &display)
    : m_connection(xcb_connect(display.constData(), nullptr)) {
    const XcbReply<xcb_xkb_use_extension_reply_t> used(xcb_xkb_use_extension_reply(
        m_connection, xcb_xkb_use_extension(m_connection, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    if (!used)
        qFatal("no keyboard extension at %s", display.constData());
}

FakeKeyboard::~FakeKeyboard() {
    xcb_disconnect(m_connection);
}

void FakeKeyboard::strike(std::initializer_list<quint8> keycodes) {
    for (const auto keycode : keycodes)
        press(keycode);
    const std::vector<quint8> pressed(keycodes);
    for (auto keycode = pressed.rbegin(); keycode != pressed.rend(); ++keycode)
        release(*keycode);
}

void FakeKeyboard::send(quint8 type, quint8 keycode) {
    xcb_test_fake_input(m_connection, type, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    // On a busy machine the server leaves what it has read for later, and forgets it until more comes from here.
    static_cast<void>(activeGroup());
}

void FakeKeyboard::activateGroup(quint8 group) {
    xcb_xkb_latch_lock_state(m_connection, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    // The answer to a question behind it says that it is done: a connection may end before it is read.
    static_cast<void>(activeGroup());
}

quint8 FakeKeyboard::activeGroup() const {
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(m_connection, xcb_xkb_get_state(m_connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->group : 0;
}

quint8 FakeKeyboard::lockedModifiers() const {
    const XcbReply<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(m_connection, xcb_xkb_get_state(m_connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return state ? state->lockedMods : 0;
}

} // namespace palomet::test
