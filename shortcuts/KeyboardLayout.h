#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace palomet {

/// Port: what the keys type under the keyboard layout that is active now. Main thread only.
class KeyboardLayout {
public:
    KeyboardLayout() = default;
    KeyboardLayout(const KeyboardLayout &) = delete;
    KeyboardLayout &operator=(const KeyboardLayout &) = delete;
    virtual ~KeyboardLayout() = default;

    /// The character that a virtual key code types with no modifier held; none when it types none, or only blanks.
    [[nodiscard]] virtual std::optional<QString> character(quint32 keyCode) const = 0;

    /// Another layout became active, or the keyboard was mapped anew.
    std::function<void()> onChange;
};

/// Where there is no keyboard to ask: keys are named by their codes.
class NoKeyboardLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::optional<QString> character(quint32) const override { return std::nullopt; }
};

} // namespace palomet
