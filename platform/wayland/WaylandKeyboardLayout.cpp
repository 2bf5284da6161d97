#include "platform/wayland/WaylandKeyboardLayout.h"

#include "platform/wayland/WaylandRegistry.h"
#include "platform/wayland/awaitCompositor.h"
#include "platform/wayland/toolkitDisplay.h"

#include <sys/mman.h>
#include <unistd.h>
#include <xkbcommon/xkbcommon.h>

#include <cstring>
#include <utility>

namespace palomet {

namespace {

/// The keymap that the compositor shares in a file.
XkbKeymap read(int descriptor, uint32_t size) {
    return XkbKeymap([=](xkb_context *context) -> xkb_keymap * {
        void *const text = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
        if (text == MAP_FAILED)
            return nullptr;
        // It ends with a zero, or with the file.
        const auto length = strnlen(static_cast<const char *>(text), size);
        auto *const keymap = xkb_keymap_new_from_buffer(context, static_cast<const char *>(text), length,
                                                        XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS);
        munmap(text, size);
        return keymap;
    });
}

} // namespace

WaylandKeyboardLayout::WaylandKeyboardLayout() {
    auto *display = toolkitDisplay();
    if (display == nullptr) {
        m_display.reset(wl_display_connect(nullptr));
        display = m_display.get();
    }
    if (display != nullptr)
        ask(display);
}

WaylandKeyboardLayout::~WaylandKeyboardLayout() = default;

void WaylandKeyboardLayout::ask(wl_display *display) {
    m_seat.reset(reinterpret_cast<wl_seat *>(WaylandRegistry(display).bind(wl_seat_interface, 1)));
    if (!m_seat)
        return;
    // Only its own events are handled while it waits; objects that it makes have the queue of the one they are made of.
    const WaylandOwner<wl_event_queue> queue(wl_display_create_queue(display));
    const auto move = [this](wl_event_queue *to) {
        wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(m_seat.get()), to);
        if (m_keyboard)
            wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(m_keyboard.get()), to);
    };
    move(queue.get());
    static constexpr wl_seat_listener seat{
        .capabilities = &gotCapabilities,
        .name = [](void * /*self*/, wl_seat * /*seat*/, const char * /*name*/) {},
    };
    wl_seat_add_listener(m_seat.get(), &seat, this);
    awaitCompositor(display, queue.get(), [this] { return m_isSettled; });
    move(nullptr);
    wl_display_dispatch_queue_pending(display, queue.get());
}

std::optional<QString> WaylandKeyboardLayout::character(quint32 keyCode) const {
    return m_keymap.character(keyCode, m_group);
}

void WaylandKeyboardLayout::gotCapabilities(void *data, wl_seat *seat, uint32_t capabilities) {
    auto &self = *static_cast<WaylandKeyboardLayout *>(data);
    const bool hasKeyboard = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
    self.m_isSettled = !hasKeyboard;
    // What was typed by a keyboard that is gone is kept: the next will hardly type anything else.
    if (!hasKeyboard)
        self.m_keyboard.reset();
    if (!hasKeyboard || self.m_keyboard)
        return;
    self.m_keyboard.reset(wl_seat_get_keyboard(seat));
    static constexpr wl_keyboard_listener keyboard{
        .keymap = &gotKeymap,
        .enter = [](void * /*self*/, wl_keyboard * /*keyboard*/, uint32_t /*serial*/, wl_surface * /*surface*/,
                    wl_array * /*keys*/) {},
        .leave = [](void * /*self*/, wl_keyboard * /*keyboard*/, uint32_t /*serial*/, wl_surface * /*surface*/) {},
        .key = [](void * /*self*/, wl_keyboard * /*keyboard*/, uint32_t /*serial*/, uint32_t /*time*/, uint32_t /*key*/,
                  uint32_t /*state*/) {},
        .modifiers = &gotModifiers,
        .repeat_info = [](void * /*self*/, wl_keyboard * /*keyboard*/, int32_t /*rate*/, int32_t /*delay*/) {},
    };
    wl_keyboard_add_listener(self.m_keyboard.get(), &keyboard, data);
}

void WaylandKeyboardLayout::gotKeymap(void *data, wl_keyboard * /*keyboard*/, uint32_t format, int32_t descriptor,
                                      uint32_t size) {
    auto &self = *static_cast<WaylandKeyboardLayout *>(data);
    self.m_keymap = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 ? read(descriptor, size) : XkbKeymap();
    close(descriptor);
    self.m_isSettled = true;
    Q_EMIT self.changed();
}

void WaylandKeyboardLayout::gotModifiers(void *data, wl_keyboard * /*keyboard*/, uint32_t /*serial*/,
                                         uint32_t /*depressed*/, uint32_t /*latched*/, uint32_t /*locked*/,
                                         uint32_t group) {
    auto &self = *static_cast<WaylandKeyboardLayout *>(data);
    if (std::exchange(self.m_group, group) != group)
        Q_EMIT self.changed();
}

} // namespace palomet
