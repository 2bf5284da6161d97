#pragma once

#include "platform/wayland/WaylandHandles.h"
#include "platform/xkb/XkbKeymap.h"
#include "shortcuts/KeyboardLayout.h"

namespace palomet {

/// The layout that the compositor's keyboard has. Which of several layouts is active it tells only while one of our
/// windows has the focus; until then it is taken for the first, later for the last that was told.
class WaylandKeyboardLayout final : public KeyboardLayout {
    Q_OBJECT

public:
    /// Asks on the toolkit's connection, which outlives it, or on one of its own where the toolkit has none; a second
    /// at most. Without an answer, or a keyboard, it types nothing.
    WaylandKeyboardLayout();
    ~WaylandKeyboardLayout() override;

    [[nodiscard]] std::optional<QString> character(quint32 keyCode) const override;

private:
    static void gotCapabilities(void *data, wl_seat *seat, uint32_t capabilities);
    static void gotKeymap(void *data, wl_keyboard *keyboard, uint32_t format, int32_t descriptor, uint32_t size);
    static void gotModifiers(void *data, wl_keyboard *keyboard, uint32_t serial, uint32_t depressed, uint32_t latched,
                             uint32_t locked, uint32_t group);
    void ask(wl_display *display);

    WaylandOwner<wl_display> m_display; ///< Null where it is the toolkit's.
    WaylandOwner<wl_seat> m_seat;
    WaylandOwner<wl_keyboard> m_keyboard;
    XkbKeymap m_keymap;
    quint32 m_group = 0;
    bool m_isSettled = false; ///< There is a keymap, or no keyboard.
};

} // namespace palomet
