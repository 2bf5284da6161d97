#pragma once

#include <QtGlobal>

#include <vector>

namespace palomet {

class X11Connection;

/// Which bits of an X event's state stand for which modifiers, as the keyboard is mapped now.
struct X11Modifiers {
    quint16 option = 0;  ///< Alt.
    quint16 command = 0; ///< Super.
    quint16 numLock = 0; ///< 0 when no modifier stands for Num Lock.
    quint16 scrollLock = 0;

    static X11Modifiers read(const X11Connection &connection);

    /// The X modifiers of a combination given in bits of `HotKeyGrabber::Modifier`.
    [[nodiscard]] quint16 mask(quint32 modifiers) const;

    /// Every combination of the lock keys, none first, each once: a grab is exact, and these must make no difference.
    [[nodiscard]] std::vector<quint16> lockVariants() const;

    bool operator==(const X11Modifiers &) const = default;
};

} // namespace palomet
