#pragma once

#include <QString>

#include <memory>
#include <optional>

struct xkb_context;
struct xkb_keymap;

namespace palomet {

class X11Connection;

/// A keyboard's keymap, and what its keys type.
class XkbKeymap {
public:
    /// A keymap by the names of its layout and variant, as `setxkbmap` takes them; empty when there is no such layout.
    static XkbKeymap named(const char *layout, const char *variant = "");
    /// That of the X server's keyboard.
    static XkbKeymap of(const X11Connection &connection);

    [[nodiscard]] bool isEmpty() const { return m_keymap == nullptr; }

    /// The text that a virtual key code types with no modifier in one of the keymap's layouts (groups). A dead key
    /// types its accent, standing alone; a keypad key its digit, whatever Num Lock says.
    [[nodiscard]] std::optional<QString> character(quint32 keyCode, quint32 group) const;

private:
    struct Unref {
        void operator()(xkb_context *context) const;
        void operator()(xkb_keymap *keymap) const;
    };

    std::unique_ptr<xkb_context, Unref> m_context;
    std::unique_ptr<xkb_keymap, Unref> m_keymap;
};

} // namespace palomet
