#pragma once

#include <QString>

#include <array>
#include <optional>

namespace palomet {

/// The phase that the backend's voice loop is in. The backend sends a phase as its raw value; `Offline` is also what
/// the program shows when it cannot reach or understand the backend. Phases have no order.
enum class LoopState { Waiting, Listening, Hearing, Drafting, Thinking, Speaking, Muted, Offline };

inline constexpr std::array allLoopStates{LoopState::Waiting,  LoopState::Listening, LoopState::Hearing,
                                          LoopState::Drafting, LoopState::Thinking,  LoopState::Speaking,
                                          LoopState::Muted,    LoopState::Offline};

/// The phase of exactly that raw value; none for any other word.
[[nodiscard]] std::optional<LoopState> loopStateFrom(QStringView rawValue);

/// The phase as it goes over the wire, "waiting".
[[nodiscard]] QString rawValue(LoopState state);

/// The phase in the user's words.
[[nodiscard]] QString word(LoopState state);

} // namespace palomet
