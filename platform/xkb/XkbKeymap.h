#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <optional>

struct xkb_context;
struct xkb_keymap;

namespace palomet {

/// A keyboard's keymap, and what its keys type.
class XkbKeymap {
public:
    /// Types nothing.
    XkbKeymap() = default;
    /// The keymap that `make` makes in the context that it is given; null will do, and types nothing.
    explicit XkbKeymap(const std::function<xkb_keymap *(xkb_context *)> &make);

    /// The text that a virtual key code types with no modifier in one of the keymap's layouts (groups). A dead key
    /// types its accent, standing alone; a keypad key its digit, whatever Num Lock says.
    [[nodiscard]] std::optional<QString> character(quint32 keyCode, quint32 group) const;

private:
    struct Unref {
        void operator()(xkb_context *context) const;
        void operator()(xkb_keymap *keymap) const;
    };

    std::unique_ptr<xkb_keymap, Unref> m_keymap;
};

} // namespace palomet
