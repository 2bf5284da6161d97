#include "platform/xkb/XkbKeymap.h"

#include "shortcuts/Keys.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace palomet {

namespace {

struct DeadKey {
    xkb_keysym_t keysym;
    char16_t accent;
};

constexpr std::array deadKeys{
    DeadKey{XKB_KEY_dead_grave, u'`'},          DeadKey{XKB_KEY_dead_acute, u'\u00B4'},
    DeadKey{XKB_KEY_dead_circumflex, u'^'},     DeadKey{XKB_KEY_dead_tilde, u'~'},
    DeadKey{XKB_KEY_dead_macron, u'\u00AF'},    DeadKey{XKB_KEY_dead_breve, u'\u02D8'},
    DeadKey{XKB_KEY_dead_abovedot, u'\u02D9'},  DeadKey{XKB_KEY_dead_diaeresis, u'\u00A8'},
    DeadKey{XKB_KEY_dead_abovering, u'\u02DA'}, DeadKey{XKB_KEY_dead_doubleacute, u'\u02DD'},
    DeadKey{XKB_KEY_dead_caron, u'\u02C7'},     DeadKey{XKB_KEY_dead_cedilla, u'\u00B8'},
    DeadKey{XKB_KEY_dead_ogonek, u'\u02DB'},
};

QString text(xkb_keysym_t keysym) {
    const auto *dead = std::find_if(deadKeys.begin(), deadKeys.end(), [=](auto key) { return key.keysym == keysym; });
    if (dead != deadKeys.end())
        return QChar(dead->accent);
    const auto character = static_cast<char32_t>(xkb_keysym_to_utf32(keysym));
    // Control characters are what Return, Escape and their like type: no text.
    return character < U' ' || character == U'\x7F' ? QString() : QString::fromUcs4(&character, 1);
}

} // namespace

void XkbKeymap::Unref::operator()(xkb_context *context) const {
    xkb_context_unref(context);
}

void XkbKeymap::Unref::operator()(xkb_keymap *keymap) const {
    xkb_keymap_unref(keymap);
}

XkbKeymap::XkbKeymap(const std::function<xkb_keymap *(xkb_context *)> &make) {
    const std::unique_ptr<xkb_context, Unref> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (!context)
        return;
    xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    m_keymap.reset(make(context.get()));
}

std::optional<QString> XkbKeymap::character(quint32 keyCode, quint32 group) const {
    const auto *key = findKey(keyCode);
    if (!m_keymap || key == nullptr)
        return std::nullopt;
    const xkb_keycode_t keycode = toXKeycode(*key);
    const auto groups = xkb_keymap_num_layouts_for_key(m_keymap.get(), keycode);
    if (groups == 0)
        return std::nullopt;
    const auto at = [&](xkb_level_index_t level) -> xkb_keysym_t {
        const xkb_keysym_t *keysyms = nullptr;
        const auto count =
            xkb_keymap_key_get_syms_by_level(m_keymap.get(), keycode, std::min(group, groups - 1), level, &keysyms);
        return count == 1 ? keysyms[0] : XKB_KEY_NoSymbol;
    };
    auto keysym = at(0);
    if (keysym >= XKB_KEY_KP_Home && keysym <= XKB_KEY_KP_Delete)
        keysym = at(1);
    const auto typed = text(keysym);
    return typed.trimmed().isEmpty() ? std::nullopt : std::optional(typed);
}

} // namespace palomet
