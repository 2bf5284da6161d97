#include "platform/dbus/preferredTrigger.h"

#include "shortcuts/Keys.h"

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

namespace palomet {

namespace {

QString keysymName(quint32 keyCode, const KeyboardLayout &layout) {
    if (const auto *key = findKey(keyCode); key != nullptr && key->xName != nullptr)
        return QString::fromLatin1(key->xName);
    const auto character = layout.character(keyCode).value_or(QString()).toUcs4();
    if (character.size() != 1)
        return {};
    std::array<char, 64> name{};
    const auto length = xkb_keysym_get_name(xkb_utf32_to_keysym(character.front()), name.data(), name.size());
    return length > 0 ? QString::fromLatin1(name.data(), std::min<qsizetype>(length, name.size() - 1)) : QString();
}

} // namespace

QString preferredTrigger(const HotKeyOffer &offer, const KeyboardLayout &layout) {
    const auto key = keysymName(offer.keyCode, layout);
    QString trigger;
    if ((offer.modifiers & HotKeyGrabber::Control) != 0)
        trigger += QStringLiteral("CTRL+");
    if ((offer.modifiers & HotKeyGrabber::Option) != 0)
        trigger += QStringLiteral("ALT+");
    if ((offer.modifiers & HotKeyGrabber::Shift) != 0)
        trigger += QStringLiteral("SHIFT+");
    if ((offer.modifiers & HotKeyGrabber::Command) != 0)
        trigger += QStringLiteral("LOGO+");
    return key.isEmpty() || trigger.isEmpty() ? QString() : trigger + key;
}

} // namespace palomet
