#include "shortcuts/Shortcut.h"

#include "base/JsonNumber.h"
#include "base/JsonReader.h"
#include "localization/Localization.h"
#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/Keys.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <limits>

namespace palomet {

namespace {

struct ModifierKey {
    quint64 flag;
    HotKeyGrabber::Modifier bit;
    char16_t glyph;
    const char *cap;
};

// In the order in which they are written: control, option, shift, command.
constexpr std::array modifiers{
    ModifierKey{Shortcut::control, HotKeyGrabber::Control, u'\u2303', "icon:chevron-up"},
    ModifierKey{Shortcut::option, HotKeyGrabber::Option, u'\u2325', "icon:option"},
    ModifierKey{Shortcut::shift, HotKeyGrabber::Shift, u'\u21E7', "icon:arrow-big-up"},
    ModifierKey{Shortcut::command, HotKeyGrabber::Command, u'\u2318', "icon:command"},
};

quint32 checkedKeyCode(qint64 code) {
    if (code < 0 || code > std::numeric_limits<quint32>::max())
        qFatal("a key code must fit in 32 bits: %lld", static_cast<long long>(code));
    return static_cast<quint32>(code);
}

} // namespace

Shortcut Shortcut::ctrlOpt(qint64 code) {
    return {checkedKeyCode(code), control | option};
}

Shortcut Shortcut::opt(qint64 code) {
    return {checkedKeyCode(code), option};
}

quint32 Shortcut::carbonModifiers() const {
    quint32 bits = 0;
    for (const auto &modifier : modifiers) {
        if ((flags & modifier.flag) != 0)
            bits |= modifier.bit;
    }
    return bits;
}

bool Shortcut::isUsable() const {
    return (flags & (control | option | command)) != 0 || functionKey();
}

std::optional<int> Shortcut::functionKey() const {
    const auto *key = findKey(keyCode);
    const auto *first = findKey(Key::F1);
    const auto *last = findKey(Key::F20);
    return key == nullptr || key < first || key > last ? std::nullopt
                                                       : std::optional(static_cast<int>(key - first) + 1);
}

QString Shortcut::keyName(const KeyboardLayout &layout) const {
    if (const auto *key = findKey(keyCode); key != nullptr && key->glyph != 0)
        return QChar(key->glyph);
    if (keyCode == Key::Space)
        return L("key.space");
    if (const auto number = functionKey())
        return u'F' + QString::number(*number);
    if (const auto character = layout.character(keyCode))
        return character->toUpper();
    return u'#' + QString::number(keyCode);
}

QString Shortcut::text(const KeyboardLayout &layout) const {
    QString text;
    for (const auto &modifier : modifiers) {
        if ((flags & modifier.flag) != 0)
            text += QChar(modifier.glyph);
    }
    return text + keyName(layout);
}

QStringList Shortcut::caps(const KeyboardLayout &layout) const {
    QStringList caps;
    for (const auto &modifier : modifiers) {
        if ((flags & modifier.flag) != 0)
            caps += QLatin1StringView(modifier.cap);
    }
    const auto *key = findKey(keyCode);
    caps += key != nullptr && key->icon != nullptr ? QStringLiteral("icon:") + QLatin1StringView(key->icon)
                                                   : keyName(layout);
    return caps;
}

QString Shortcut::menuKey(const KeyboardLayout &layout) const {
    if (const auto *key = findKey(keyCode); key != nullptr && key->menuKey != 0)
        return QChar(key->menuKey);
    if (const auto number = functionKey())
        return QChar(static_cast<char16_t>(u'\uF703' + *number));
    return layout.character(keyCode).value_or(QString()).toLower();
}

QByteArray Shortcut::toJson() const {
    return R"({"keyCode":)" + QByteArray::number(keyCode) + R"(,"flags":)" + QByteArray::number(flags) + '}';
}

std::optional<Shortcut> Shortcut::fromJson(const QByteArray &json) {
    // Qt's own parser rounds what is beyond 63 bits.
    JsonReader reader;
    std::optional<quint32> keyCode;
    std::optional<quint64> flags;
    // Of a key that is there twice, the last counts.
    const auto readField = [&](std::string_view key, JsonReader::Value value) {
        if (key == "keyCode")
            keyCode = wholeNumber<quint32>(JsonReader::tokenOf(value));
        else if (key == "flags")
            flags = wholeNumber<quint64>(JsonReader::tokenOf(value));
        return reader.skip(value);
    };
    if (!reader.readObject(json, readField) || !keyCode || !flags)
        return std::nullopt;
    Shortcut shortcut;
    shortcut.keyCode = *keyCode;
    shortcut.flags = *flags;
    return shortcut;
}

size_t qHash(const Shortcut &shortcut, size_t seed) noexcept {
    return qHashMulti(seed, shortcut.keyCode, shortcut.flags);
}

} // namespace palomet
