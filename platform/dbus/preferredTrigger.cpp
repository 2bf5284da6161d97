#include "platform/dbus/preferredTrigger.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace palomet {

namespace {

struct NamedKey {
    quint32 keyCode;
    xkb_keysym_t keysym;
};

// Keys that type no character, and F1 to F20.
constexpr std::array namedKeys{
    NamedKey{49, XKB_KEY_space},    NamedKey{36, XKB_KEY_Return},     NamedKey{76, XKB_KEY_KP_Enter},
    NamedKey{48, XKB_KEY_Tab},      NamedKey{51, XKB_KEY_BackSpace},  NamedKey{117, XKB_KEY_Delete},
    NamedKey{53, XKB_KEY_Escape},   NamedKey{115, XKB_KEY_Home},      NamedKey{119, XKB_KEY_End},
    NamedKey{116, XKB_KEY_Page_Up}, NamedKey{121, XKB_KEY_Page_Down}, NamedKey{123, XKB_KEY_Left},
    NamedKey{124, XKB_KEY_Right},   NamedKey{126, XKB_KEY_Up},        NamedKey{125, XKB_KEY_Down},
    NamedKey{114, XKB_KEY_Insert},  NamedKey{110, XKB_KEY_Menu},      NamedKey{122, XKB_KEY_F1},
    NamedKey{120, XKB_KEY_F2},      NamedKey{99, XKB_KEY_F3},         NamedKey{118, XKB_KEY_F4},
    NamedKey{96, XKB_KEY_F5},       NamedKey{97, XKB_KEY_F6},         NamedKey{98, XKB_KEY_F7},
    NamedKey{100, XKB_KEY_F8},      NamedKey{101, XKB_KEY_F9},        NamedKey{109, XKB_KEY_F10},
    NamedKey{103, XKB_KEY_F11},     NamedKey{111, XKB_KEY_F12},       NamedKey{105, XKB_KEY_F13},
    NamedKey{107, XKB_KEY_F14},     NamedKey{113, XKB_KEY_F15},       NamedKey{106, XKB_KEY_F16},
    NamedKey{64, XKB_KEY_F17},      NamedKey{79, XKB_KEY_F18},        NamedKey{80, XKB_KEY_F19},
    NamedKey{90, XKB_KEY_F20},
};

QString keysymName(quint32 keyCode, const KeyboardLayout &layout) {
    const auto *named =
        std::find_if(namedKeys.begin(), namedKeys.end(), [=](auto key) { return key.keyCode == keyCode; });
    auto keysym = named == namedKeys.end() ? static_cast<xkb_keysym_t>(XKB_KEY_NoSymbol) : named->keysym;
    if (keysym == XKB_KEY_NoSymbol) {
        const auto character = layout.character(keyCode).value_or(QString()).toUcs4();
        if (character.size() != 1)
            return {};
        keysym = xkb_utf32_to_keysym(character.front());
    }
    std::array<char, 64> name{};
    const auto length = xkb_keysym_get_name(keysym, name.data(), name.size());
    return length > 0 ? QString::fromLatin1(name.data(), std::min<qsizetype>(length, name.size() - 1)) : QString();
}

} // namespace

QString preferredTrigger(const HotKeyOffer &offer, const KeyboardLayout &layout) {
    const auto key = keysymName(offer.keyCode, layout);
    QString trigger;
    if ((offer.modifiers & 0x1000U) != 0)
        trigger += QStringLiteral("CTRL+");
    if ((offer.modifiers & 0x800U) != 0)
        trigger += QStringLiteral("ALT+");
    if ((offer.modifiers & 0x200U) != 0)
        trigger += QStringLiteral("SHIFT+");
    if ((offer.modifiers & 0x100U) != 0)
        trigger += QStringLiteral("LOGO+");
    return key.isEmpty() || trigger.isEmpty() ? QString() : trigger + key;
}

} // namespace palomet
