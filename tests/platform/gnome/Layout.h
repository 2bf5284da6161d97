#pragma once

#include "shortcuts/KeyboardLayout.h"

#include <map>

namespace palomet::test {

/// A keyboard on which these keys type these characters, and the others nothing.
class Layout final : public KeyboardLayout {
public:
    explicit Layout(std::map<quint32, QString> characters = {})
        : m_characters(std::move(characters)) {}

    [[nodiscard]] std::optional<QString> character(quint32 keyCode) const override {
        const auto found = m_characters.find(keyCode);
        return found == m_characters.end() ? std::nullopt : std::optional(found->second);
    }

private:
    const std::map<quint32, QString> m_characters;
};

} // namespace palomet::test
