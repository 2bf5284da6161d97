#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace palomet {

/// Which device is the default input, when both we and others change it. The server confirms our own change late, by
/// way of the values before it, or never; none of that is news. A value that is neither ours nor on the way to ours was
/// set from outside. Pure.
class DefaultInput {
public:
    /// The device to work with: the one that was asked for, else the one that the server names.
    [[nodiscard]] const std::optional<QString> &current() const { return m_expected ? m_expected : m_server; }

    /// We have asked for `id`, which then holds until `settle`.
    void expect(const QString &id);
    [[nodiscard]] const std::optional<QString> &expected() const { return m_expected; }

    /// The server names `id` its default input. True when that is a change from outside.
    [[nodiscard]] bool serverNames(const std::optional<QString> &id);

    /// Time enough has passed since `expect`: from now on it is as the server says. True when someone had set it back.
    [[nodiscard]] bool settle();

private:
    std::optional<QString> m_server;
    std::optional<QString> m_expected;
    std::vector<std::optional<QString>> m_onTheWay; ///< Before, and what we asked for since.
    bool m_isReached = false;                       ///< The server named what is expected.
};

} // namespace palomet
