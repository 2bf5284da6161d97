#pragma once

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace palomet {

/// Why something expected did not work out, in words for the log.
struct Failure {
    QString reason;

    bool operator==(const Failure &) const = default;
};

/// A value, or the reason why there is none. Expected failures travel as values; exceptions never cross a thread or a
/// C callback.
template <typename Value>
class [[nodiscard]] Result {
public:
    Result(Value value)
        : m_content(std::in_place_index<0>, std::move(value)) {}
    Result(Failure failure)
        : m_content(std::in_place_index<1>, std::move(failure)) {}

    [[nodiscard]] bool isOk() const { return m_content.index() == 0; }
    explicit operator bool() const { return isOk(); }

    /// Precondition: `isOk()`.
    Value &operator*() { return std::get<0>(m_content); }
    const Value &operator*() const { return std::get<0>(m_content); }
    Value *operator->() { return &std::get<0>(m_content); }
    const Value *operator->() const { return &std::get<0>(m_content); }

    /// Precondition: not `isOk()`.
    [[nodiscard]] const QString &reason() const { return std::get<1>(m_content).reason; }

private:
    std::variant<Value, Failure> m_content;
};

} // namespace palomet
