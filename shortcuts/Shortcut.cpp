#include "shortcuts/Shortcut.h"

#include "localization/Localization.h"

#include <QHash>

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace palomet {

namespace {

struct Modifier {
    quint64 flag;
    quint32 carbon;
    char16_t glyph;
    const char *cap;
};

// In the order in which they are written: control, option, shift, command.
constexpr std::array modifiers{
    Modifier{Shortcut::control, 0x1000, u'\u2303', "icon:chevron-up"},
    Modifier{Shortcut::option, 0x800, u'\u2325', "icon:option"},
    Modifier{Shortcut::shift, 0x200, u'\u21E7', "icon:arrow-big-up"},
    Modifier{Shortcut::command, 0x100, u'\u2318', "icon:command"},
};

struct SpecialKey {
    quint32 keyCode;
    char16_t glyph;   ///< 0: the word for the Space bar.
    const char *icon; ///< Null: the cap shows the glyph.
    char16_t menuKey;
};

constexpr std::array specialKeys{
    SpecialKey{123, u'\u2190', "arrow-left", u'\uF702'},
    SpecialKey{124, u'\u2192', "arrow-right", u'\uF703'},
    SpecialKey{126, u'\u2191', "arrow-up", u'\uF700'},
    SpecialKey{125, u'\u2193', "arrow-down", u'\uF701'},
    SpecialKey{36, u'\u21A9', "corner-down-left", u'\u000D'},
    SpecialKey{76, u'\u2324', "corner-down-left", u'\u0003'},
    SpecialKey{51, u'\u232B', "backspace", u'\u0008'},
    SpecialKey{117, u'\u2326', nullptr, u'\uF728'},
    SpecialKey{48, u'\u21E5', nullptr, u'\u0009'},
    SpecialKey{49, 0, nullptr, u'\u0020'},
    SpecialKey{53, u'\u238B', nullptr, u'\u001B'},
    SpecialKey{115, u'\u2196', nullptr, u'\uF729'},
    SpecialKey{119, u'\u2198', nullptr, u'\uF72B'},
    SpecialKey{116, u'\u21DE', nullptr, u'\uF72C'},
    SpecialKey{121, u'\u21DF', nullptr, u'\uF72D'},
};

// The key codes of F1 to F20, in order.
constexpr std::array<quint32, 20> functionKeys{122, 120, 99,  118, 96,  97,  98, 100, 101, 109,
                                               103, 111, 105, 107, 113, 106, 64, 79,  80,  90};

const SpecialKey *special(quint32 keyCode) {
    const auto *found =
        std::find_if(specialKeys.begin(), specialKeys.end(), [=](auto &key) { return key.keyCode == keyCode; });
    return found == specialKeys.end() ? nullptr : found;
}

QString glyph(const SpecialKey &key) {
    return key.glyph == 0 ? L("key.space") : QString(QChar(key.glyph));
}

quint32 checkedKeyCode(qint64 code) {
    if (code < 0 || code > std::numeric_limits<quint32>::max())
        qFatal("a key code must fit in 32 bits: %lld", static_cast<long long>(code));
    return static_cast<quint32>(code);
}

/// A whole number from 0 to `limit`; a number written with a fraction of nothing is one.
std::optional<quint64> wholeNumber(simdjson::dom::element value, quint64 limit) {
    std::uint64_t whole = 0;
    if (value.get(whole) != simdjson::SUCCESS) {
        double number = -1;
        if (value.get(number) != simdjson::SUCCESS || !(number >= 0) || number != std::floor(number) ||
            number >= 18446744073709551616.0)
            return std::nullopt;
        whole = static_cast<std::uint64_t>(number);
    }
    return whole <= limit ? std::optional<quint64>(whole) : std::nullopt;
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
    for (const auto &modifier : modifiers)
        bits |= (flags & modifier.flag) != 0 ? modifier.carbon : 0;
    return bits;
}

bool Shortcut::isUsable() const {
    return (flags & (control | option | command)) != 0 || functionKey();
}

std::optional<int> Shortcut::functionKey() const {
    const auto *found = std::find(functionKeys.begin(), functionKeys.end(), keyCode);
    return found == functionKeys.end() ? std::nullopt
                                       : std::optional(static_cast<int>(found - functionKeys.begin()) + 1);
}

QString Shortcut::keyName(const KeyboardLayout &layout) const {
    if (const auto *key = special(keyCode))
        return glyph(*key);
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
    const auto *key = special(keyCode);
    caps += key != nullptr && key->icon != nullptr ? QStringLiteral("icon:") + QLatin1StringView(key->icon)
                                                   : keyName(layout);
    return caps;
}

QString Shortcut::menuKey(const KeyboardLayout &layout) const {
    if (const auto *key = special(keyCode))
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
    simdjson::dom::parser parser;
    simdjson::dom::object object;
    if (parser.parse(json.constData(), static_cast<std::size_t>(json.size())).get(object) != simdjson::SUCCESS)
        return std::nullopt;
    std::optional<quint64> keyCode;
    std::optional<quint64> flags;
    // Of a key that is there twice, the last counts.
    for (const auto [key, value] : object) {
        if (key == "keyCode")
            keyCode = wholeNumber(value, std::numeric_limits<quint32>::max());
        else if (key == "flags")
            flags = wholeNumber(value, std::numeric_limits<quint64>::max());
    }
    if (!keyCode || !flags)
        return std::nullopt;
    Shortcut shortcut;
    shortcut.keyCode = static_cast<quint32>(*keyCode);
    shortcut.flags = *flags;
    return shortcut;
}

size_t qHash(const Shortcut &shortcut, size_t seed) noexcept {
    return qHashMulti(seed, shortcut.keyCode, shortcut.flags);
}

} // namespace palomet
