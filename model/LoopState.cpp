#include "model/LoopState.h"

#include "localization/Localization.h"

namespace palomet {

using namespace Qt::StringLiterals;

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
        return u"waiting"_s;
    case LoopState::Listening:
        return u"listening"_s;
    case LoopState::Hearing:
        return u"hearing"_s;
    case LoopState::Drafting:
        return u"drafting"_s;
    case LoopState::Thinking:
        return u"thinking"_s;
    case LoopState::Speaking:
        return u"speaking"_s;
    case LoopState::Muted:
        return u"muted"_s;
    case LoopState::Offline:
        return u"offline"_s;
    }
    Q_UNREACHABLE();
}

QString word(LoopState state) {
    return L(u"state."_s + rawValue(state));
}

} // namespace palomet
