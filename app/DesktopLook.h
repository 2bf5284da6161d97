#pragma once

#include "base/Callback.h"

namespace palomet {

/// Port: how the user wants programs to look on this desktop. What is told is as last known, and cheap; while nothing
/// is known, panels are light, or of either scheme where that is as likely, things move, and contrast is the usual one.
/// Main thread only.
class DesktopLook {
public:
    enum class Scheme { Unknown, Light, Dark };

    DesktopLook() = default;
    DesktopLook(const DesktopLook &) = delete;
    DesktopLook &operator=(const DesktopLook &) = delete;
    virtual ~DesktopLook() = default;

    [[nodiscard]] virtual Scheme panelScheme() const = 0;
    [[nodiscard]] virtual bool isMotionReduced() const = 0;
    [[nodiscard]] virtual bool isContrastRaised() const = 0;

    /// Any of it is otherwise now. From the event loop.
    Callback<void()> onChange;
};

} // namespace palomet
