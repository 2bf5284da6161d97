#pragma once

#include "model/DocumentFields.h"

#include <QString>

#include <type_traits>

namespace palomet {

/// What a setting is called in the state document and in the settings command.
template <typename Value>
[[nodiscard]] QString settingKey(Value Snapshot::Settings::*member) {
    using Member = Value Snapshot::Settings::*;
    QString key;
    const auto look = [&](const auto &field) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field.member)>, Member>) {
            if (field.member == member)
                key = QString::fromLatin1(field.key.data(), static_cast<qsizetype>(field.key.size()));
        }
    };
    std::apply([&](const auto &...field) { (look(field), ...); }, DocumentFields<Snapshot::Settings>::all);
    return key;
}

} // namespace palomet
