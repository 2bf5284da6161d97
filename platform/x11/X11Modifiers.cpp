#include "platform/x11/X11Modifiers.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbReply.h"

#include <xcb/xcb.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <initializer_list>
#include <span>

namespace palomet {

namespace {

constexpr int modifierCount = 8;

/// The symbols that every keycode types, in rows of equal length.
struct KeyboardMapping {
    explicit KeyboardMapping(xcb_connection_t *connection) {
        const auto *setup = xcb_get_setup(connection);
        first = setup->min_keycode;
        const auto count = static_cast<quint8>(setup->max_keycode - setup->min_keycode + 1);
        reply.reset(
            xcb_get_keyboard_mapping_reply(connection, xcb_get_keyboard_mapping(connection, first, count), nullptr));
    }

    [[nodiscard]] bool types(quint8 keycode, std::initializer_list<quint32> keysyms) const {
        if (!reply || keycode < first)
            return false;
        const std::span all(xcb_get_keyboard_mapping_keysyms(reply.get()),
                            static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(reply.get())));
        const std::size_t width = reply->keysyms_per_keycode;
        const auto begin = (keycode - first) * width;
        if (begin + width > all.size())
            return false;
        const auto row = all.subspan(begin, width);
        return std::find_first_of(row.begin(), row.end(), keysyms.begin(), keysyms.end()) != row.end();
    }

    quint8 first;
    XcbReply<xcb_get_keyboard_mapping_reply_t> reply;
};

} // namespace

X11Modifiers X11Modifiers::read(const X11Connection &connection) {
    const KeyboardMapping mapping(connection.get());
    const XcbReply<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(connection.get(), xcb_get_modifier_mapping(connection.get()), nullptr));
    X11Modifiers modifiers;
    if (reply) {
        const std::span keycodes(xcb_get_modifier_mapping_keycodes(reply.get()),
                                 static_cast<std::size_t>(xcb_get_modifier_mapping_keycodes_length(reply.get())));
        const auto find = [&](std::initializer_list<quint32> keysyms) -> quint16 {
            for (int modifier = 3; modifier < modifierCount; ++modifier) { // Shift, Lock and Control are fixed.
                for (std::size_t i = 0; i < reply->keycodes_per_modifier; ++i) {
                    const auto at = static_cast<std::size_t>(modifier) * reply->keycodes_per_modifier + i;
                    if (at < keycodes.size() && keycodes[at] != 0 && mapping.types(keycodes[at], keysyms))
                        return static_cast<quint16>(1U << static_cast<unsigned>(modifier));
                }
            }
            return 0;
        };
        modifiers.option = find({XKB_KEY_Alt_L, XKB_KEY_Alt_R, XKB_KEY_Meta_L, XKB_KEY_Meta_R});
        modifiers.command = find({XKB_KEY_Super_L, XKB_KEY_Super_R});
        modifiers.numLock = find({XKB_KEY_Num_Lock});
        modifiers.scrollLock = find({XKB_KEY_Scroll_Lock});
    }
    if (modifiers.option == 0)
        modifiers.option = XCB_MOD_MASK_1;
    if (modifiers.command == 0)
        modifiers.command = XCB_MOD_MASK_4;
    return modifiers;
}

quint16 X11Modifiers::mask(quint32 modifiers) const {
    quint16 mask = 0;
    if ((modifiers & 0x200U) != 0)
        mask |= XCB_MOD_MASK_SHIFT;
    if ((modifiers & 0x1000U) != 0)
        mask |= XCB_MOD_MASK_CONTROL;
    if ((modifiers & 0x800U) != 0)
        mask |= option;
    if ((modifiers & 0x100U) != 0)
        mask |= command;
    return mask;
}

std::vector<quint16> X11Modifiers::lockVariants() const {
    std::vector<quint16> variants{0};
    for (const quint16 lock : {static_cast<quint16>(XCB_MOD_MASK_LOCK), numLock, scrollLock}) {
        if (lock == 0)
            continue;
        const auto count = variants.size();
        for (std::size_t i = 0; i < count; ++i) {
            const auto variant = static_cast<quint16>(variants[i] | lock);
            if (std::find(variants.begin(), variants.end(), variant) == variants.end())
                variants.push_back(variant);
        }
    }
    return variants;
}

} // namespace palomet
