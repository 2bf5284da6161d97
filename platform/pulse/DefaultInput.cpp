#include "platform/pulse/DefaultInput.h"

#include <algorithm>
#include <utility>

namespace palomet {

void DefaultInput::expect(const QString &id) {
    if (!m_expected)
        m_onTheWay.clear();
    m_onTheWay.push_back(current());
    m_expected = id;
    m_isReached = m_server == id;
}

bool DefaultInput::serverNames(const std::optional<QString> &id) {
    const auto before = std::exchange(m_server, id);
    if (!m_expected)
        return m_server != before;
    if (m_server == m_expected) {
        m_isReached = true;
        return false;
    }
    if (std::find(m_onTheWay.begin(), m_onTheWay.end(), m_server) != m_onTheWay.end())
        return false;
    m_expected.reset();
    return true;
}

bool DefaultInput::settle() {
    const auto expected = std::exchange(m_expected, std::nullopt);
    return expected && m_isReached && m_server != expected;
}

} // namespace palomet
