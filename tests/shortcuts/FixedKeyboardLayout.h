#pragma once

#include "shortcuts/KeyboardLayout.h"

#include <map>

namespace palomet::test {

/// A layout that types what the test says.
class FixedKeyboardLayout final : public KeyboardLayout {
public:
    explicit FixedKeyboardLayout(std::map<quint32, QString> characters = {})
        : m_characters(std::move(characters)) {}

    [[nodiscard]] std::optional<QString> character(quint32 keyCode) const override {
        const auto found = m_characters.find(keyCode);
        return found == m_characters.end() ? std::nullopt : std::optional(found->second);
    }

    /// Another layout becomes the active one.
    void become(std::map<quint32, QString> characters) {
        m_characters = std::move(characters);
        Q_EMIT changed();
    }

private:
    std::map<quint32, QString> m_characters;
};

} // namespace palomet::test
