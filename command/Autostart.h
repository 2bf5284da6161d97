#pragma once

#include "base/Result.h"

#include <optional>

namespace palomet {

/// Port: whether the program starts with this user's session.
class Autostart {
public:
    Autostart() = default;
    Autostart(const Autostart &) = delete;
    Autostart &operator=(const Autostart &) = delete;
    virtual ~Autostart() = default;

    [[nodiscard]] virtual Result<bool> isOn() const = 0;

    /// Nothing, or the reason why it stays as it is. Asking for what holds already is no failure.
    [[nodiscard]] virtual std::optional<Failure> turnOn() = 0;
    [[nodiscard]] virtual std::optional<Failure> turnOff() = 0;
};

} // namespace palomet
