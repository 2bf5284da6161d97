#pragma once

#include "platform/xkb/XkbKeymap.h"
#include "shortcuts/KeyboardLayout.h"

#include <xkbcommon/xkbcommon.h>

namespace palomet::test {

/// One layout by its name and variant, as `setxkbmap` takes them; one that does not exist types nothing.
class NamedKeyboardLayout final : public KeyboardLayout {
public:
    explicit NamedKeyboardLayout(const char *layout, const char *variant = "")
        : m_keymap([&](xkb_context *context) {
            const xkb_rule_names names{"evdev", "pc105", layout, variant, ""};
            return xkb_keymap_new_from_names(context, &names, XKB_KEYMAP_COMPILE_NO_FLAGS);
        }) {}

    [[nodiscard]] std::optional<QString> character(quint32 keyCode) const override {
        return m_keymap.character(keyCode, 0);
    }

private:
    XkbKeymap m_keymap;
};

} // namespace palomet::test
