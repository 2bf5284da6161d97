#pragma once

#include "base/SocketOwner.h"

#include <atomic>

namespace palomet {

/// Whether this process may talk to who answers at a port (of 127.0.0.1), to be asked before connecting, `from` being
/// 0, and again once connected from the port `from`.
using AdmitPeer = std::function<bool(quint16 port, quint16 from)>;

/// Keeps what is heard and typed from the programs of other users: whoever holds the backend's port would be handed it.
/// One whose user cannot be told is let in. Any thread.
class PeerCheck {
public:
    /// `onStranger` is called on the asking thread when another user's program was met: once, until one that may be
    /// talked to was there.
    PeerCheck(FindSocketOwner find, std::function<void()> onStranger);

    [[nodiscard]] bool admits(quint16 port, quint16 from);

private:
    const FindSocketOwner m_find;
    const std::function<void()> m_onStranger;
    std::atomic<bool> m_isStranger = false;
};

/// For those who talk to nobody that matters.
inline const AdmitPeer admitEverybody = [](quint16, quint16) { return true; };

} // namespace palomet
