#include "model/LoopState.h"

#include "localization/Localization.h"

namespace palomet {

std::optional<LoopState> loopStateFrom(QStringView raw) {
    for (const auto state : allLoopStates) {
        if (rawValue(state) == raw)
            return state;
    }
    return std::nullopt;
}

QString rawValue(LoopState state) {
    switch (state) {
    case LoopState::Waiting:
        return QStringLiteral("waiting");
    case LoopState::Listening:
        return QStringLiteral("listening");
    case LoopState::Hearing:
        return QStringLiteral("hearing");
    case LoopState::Drafting:
        return QStringLiteral("drafting");
    case LoopState::Thinking:
        return QStringLiteral("thinking");
    case LoopState::Speaking:
        return QStringLiteral("speaking");
    case LoopState::Muted:
        return QStringLiteral("muted");
    case LoopState::Offline:
        return QStringLiteral("offline");
    }
    Q_UNREACHABLE();
}

QString word(LoopState state) {
    return L(QStringLiteral("state.") + rawValue(state));
}

} // namespace palomet
