#include "platform/gnome/Accelerator.h"

#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/Keys.h"

#include <QHash>

#include <xkbcommon/xkbcommon.h>

#include <array>
#include <string_view>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const QHash<QString, quint32> &modifierNames() {
    static const QHash<QString, quint32> names{
        {u"shift"_s, HotKeyGrabber::Shift}, {u"control"_s, HotKeyGrabber::Control}, {u"ctrl"_s, HotKeyGrabber::Control},
        {u"ctl"_s, HotKeyGrabber::Control}, {u"primary"_s, HotKeyGrabber::Control}, {u"alt"_s, HotKeyGrabber::Option},
        {u"mod1"_s, HotKeyGrabber::Option}, {u"super"_s, HotKeyGrabber::Command},   {u"mod4"_s, HotKeyGrabber::Command},
    };
    return names;
}

/// What a letter's or a digit's key types under the US layout; 0 for any other key.
char32_t usCharacter(const Key &key) {
    struct Row {
        int firstEvdev;
        std::string_view characters;
    };
    constexpr std::array rows{Row{2, "1234567890"}, Row{16, "qwertyuiop"}, Row{30, "asdfghjkl"}, Row{44, "zxcvbnm"}};
    for (const auto &[first, characters] : rows) {
        const auto at = static_cast<std::size_t>(key.evdev - first);
        if (key.evdev >= first && at < characters.size())
            return static_cast<char32_t>(characters[at]);
    }
    return 0;
}

bool isKeypad(const Key &key) {
    constexpr std::array keypad{Key::KeypadDecimal, Key::KeypadMultiply, Key::KeypadPlus,  Key::KeypadClear,
                                Key::KeypadDivide,  Key::KeypadEnter,    Key::KeypadMinus, Key::KeypadEquals,
                                Key::Keypad0,       Key::Keypad1,        Key::Keypad2,     Key::Keypad3,
                                Key::Keypad4,       Key::Keypad5,        Key::Keypad6,     Key::Keypad7,
                                Key::Keypad8,       Key::Keypad9,        Key::KeypadComma};
    return std::ranges::find(keypad, key.code) != keypad.end();
}

bool types(const Key &key, const KeyboardLayout &layout, xkb_keysym_t keysym) {
    const auto typed = layout.character(key.code).value_or(QString()).toUcs4();
    const char32_t character = typed.size() == 1 ? typed.front() : U'\0';
    if (character != U'\0' && xkb_keysym_to_lower(xkb_utf32_to_keysym(character)) == keysym)
        return true;
    const auto us = usCharacter(key);
    const bool isLetter = us >= U'a';
    constexpr char32_t lastLatin = 0x24F;
    const bool isLatin = character != U'\0' && character <= lastLatin;
    return us != U'\0' && !(isLetter && isLatin) && xkb_utf32_to_keysym(us) == keysym;
}

} // namespace

Accelerator::Accelerator(const QString &text) {
    auto rest = QStringView(text);
    while (rest.startsWith(u'<')) {
        const auto end = rest.indexOf(u'>');
        const auto modifier = end < 0 ? 0 : modifierNames().value(rest.mid(1, end - 1).toString().toLower());
        if (modifier == 0)
            return;
        m_modifiers |= modifier;
        rest = rest.mid(end + 1);
    }
    m_isAboveTab = rest == u"Above_Tab"_s;
    m_keysym = xkb_keysym_to_lower(xkb_keysym_from_name(rest.toLatin1().constData(), XKB_KEYSYM_CASE_INSENSITIVE));
}

bool Accelerator::is(quint32 keyCode, quint32 modifiers, const KeyboardLayout &layout) const {
    const auto *key = findKey(keyCode);
    if (key == nullptr || modifiers != m_modifiers)
        return false;
    if (m_isAboveTab)
        return key->code == Key::Grave;
    if (m_keysym == XKB_KEY_NoSymbol)
        return false;
    if (key->xName != nullptr)
        return xkb_keysym_to_lower(xkb_keysym_from_name(key->xName, XKB_KEYSYM_NO_FLAGS)) == m_keysym;
    // The keypad's signs are not those of the other keys.
    return !isKeypad(*key) && types(*key, layout, m_keysym);
}

} // namespace palomet
