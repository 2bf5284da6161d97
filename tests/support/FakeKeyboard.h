#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <initializer_list>

namespace palomet::test {

/// A keyboard at an X server, played by the test: its keys are pressed by keycode and nothing else is touched.
/// (`xdotool` makes the first layout the active one for as long as it presses.)
class FakeKeyboard {
public:
    static constexpr quint8 alt = 64;
    static constexpr quint8 space = 65;
    static constexpr quint8 escape = 9;

    explicit FakeKeyboard(const QByteArray &display);
    ~FakeKeyboard();
    FakeKeyboard(const FakeKeyboard &) = delete;
    FakeKeyboard &operator=(const FakeKeyboard &) = delete;

    void press(quint8 keycode) { send(XCB_KEY_PRESS, keycode); }
    void release(quint8 keycode) { send(XCB_KEY_RELEASE, keycode); }
    /// Presses the keys in their order, then releases them in the reverse one.
    void strike(std::initializer_list<quint8> keycodes);

    /// Makes one of the keyboard's layouts the active one, as a layout switcher does.
    void activateGroup(quint8 group);
    [[nodiscard]] quint8 activeGroup() const;
    /// The modifiers that lock keys hold.
    [[nodiscard]] quint8 lockedModifiers() const;

private:
    void send(quint8 type, quint8 keycode);

    xcb_connection_t *m_connection;
};

} // namespace palomet::test
