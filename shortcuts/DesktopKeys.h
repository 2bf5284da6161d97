#pragma once

#include <QString>

namespace palomet {

/// Port: the keys that the desktop has for itself, where it can be asked for them without taking one. Main thread only.
class DesktopKeys {
public:
    DesktopKeys() = default;
    DesktopKeys(const DesktopKeys &) = delete;
    DesktopKeys &operator=(const DesktopKeys &) = delete;
    virtual ~DesktopKeys() = default;

    /// What the desktop does on a combination, a virtual key code and bits of `HotKeyGrabber::Modifier`, in its own
    /// words; empty when nothing.
    [[nodiscard]] virtual QString actionOn(quint32 keyCode, quint32 modifiers) = 0;
};

} // namespace palomet
