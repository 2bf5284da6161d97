#pragma once

#include "shortcuts/KeyboardLayout.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <optional>

namespace palomet {

/// One key combination: a position on the keyboard and the modifiers held with it. A value; what it is called depends
/// on the keyboard layout, which is handed to the functions that say so.
struct Shortcut {
    // Modifier bits of `flags`; nothing else is kept when a shortcut is recorded.
    static constexpr quint64 shift = 0x20000;
    static constexpr quint64 control = 0x40000;
    static constexpr quint64 option = 0x80000;
    static constexpr quint64 command = 0x100000;
    static constexpr quint64 relevant = shift | control | option | command;

    quint32 keyCode = 0; ///< Virtual key code: the position, not the character.
    quint64 flags = 0;   ///< Modifier bits.

    Shortcut() = default;
    /// Keeps only the relevant modifiers: Caps Lock and Fn make no difference.
    Shortcut(quint32 code, quint64 modifiers)
        : keyCode(code)
        , flags(modifiers & relevant) {}

    /// With control and option, or with option. A key code outside 32 bits ends the process: it is never user input.
    static Shortcut ctrlOpt(qint64 code);
    static Shortcut opt(qint64 code);

    /// The modifiers as bits of `HotKeyGrabber::Modifier`.
    [[nodiscard]] quint32 carbonModifiers() const;

    /// Whether it may be a global hot key by itself: control, option or command is held, or it is a function key.
    [[nodiscard]] bool isUsable() const;

    /// The key alone: a sign, "F5", the character that it types, or "#" and its code.
    [[nodiscard]] QString keyName(const KeyboardLayout &layout) const;

    /// Modifier signs, then the key: "⌃⌥K".
    [[nodiscard]] QString text(const KeyboardLayout &layout) const;

    /// The key caps to draw; one that begins with "icon:" names an icon.
    [[nodiscard]] QStringList caps(const KeyboardLayout &layout) const;

    /// The character that stands for the key in a menu item; empty when there is none.
    [[nodiscard]] QString menuKey(const KeyboardLayout &layout) const;

    /// The number of a function key, 1 to 20.
    [[nodiscard]] std::optional<int> functionKey() const;

    /// As it is stored: {"keyCode":49,"flags":524288}.
    [[nodiscard]] QByteArray toJson() const;
    /// None unless both keys are there and hold whole numbers that fit. The flags are kept as they are.
    static std::optional<Shortcut> fromJson(const QByteArray &json);

    bool operator==(const Shortcut &) const = default;
};

size_t qHash(const Shortcut &shortcut, size_t seed = 0) noexcept;

} // namespace palomet
