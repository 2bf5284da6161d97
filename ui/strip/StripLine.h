#pragma once

#include "model/LoopState.h"
#include "model/Snapshot.h"

#include <QString>

namespace palomet {

/// What the strip says beside the word of the state. `snapshot` may be null; `spokenLine` is what is being said.
[[nodiscard]] QString stripLine(LoopState state, const Snapshot *snapshot, const QString &spokenLine);

/// The phrase that carries out a draft: the first that the backend knows, else the one that the
/// program would suggest.
[[nodiscard]] QString actionPhrase(const Snapshot *snapshot);

} // namespace palomet
