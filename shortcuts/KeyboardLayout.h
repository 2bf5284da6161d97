#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace palomet {

/// Port: what the keys type under the keyboard layout that is active now. Main thread only.
class KeyboardLayout : public QObject {
    Q_OBJECT

public:
    /// The character that a virtual key code types with no modifier held; none when it types none, or only blanks.
    [[nodiscard]] virtual std::optional<QString> character(quint32 keyCode) const = 0;

Q_SIGNALS:
    /// Another layout became active, or the keyboard was mapped anew: keys have other names. They are still the same
    /// keys, for a shortcut is a position on the keyboard.
    void changed();
};

/// Where there is no keyboard to ask: keys are named by their codes.
class NoKeyboardLayout final : public KeyboardLayout {
public:
    [[nodiscard]] std::optional<QString> character(quint32) const override { return std::nullopt; }
};

} // namespace palomet
