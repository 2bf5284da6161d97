#include "base/PeerCheck.h"

#include <utility>

namespace palomet {

PeerCheck::PeerCheck(FindSocketOwner find, std::function<void()> onStranger)
    : m_find(std::move(find))
    , m_onStranger(std::move(onStranger)) {}

bool PeerCheck::admits(quint16 port, quint16 from) {
    const auto owner = m_find(port, from);
    if (owner == SocketOwner::Ours)
        m_isStranger = false;
    if (owner != SocketOwner::Others)
        return true;
    if (!m_isStranger.exchange(true))
        m_onStranger();
    return false;
}

} // namespace palomet
