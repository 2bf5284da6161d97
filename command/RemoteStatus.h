#pragma once

#include <QString>

namespace palomet {

/// The status that a running Palomet tells of itself. No word of a conversation is in it.
struct RemoteStatus {
    QString state;  ///< The loop state's raw word, "waiting".
    QString device; ///< The microphone in use; empty while nothing is known of it.
    bool isMuted = false;
    bool isMicrophoneOn = false;
    QString hotKeyProblem{}; ///< Why the listen key does nothing, in the user's words; empty while all is well.

    bool operator==(const RemoteStatus &) const = default;
};

} // namespace palomet
