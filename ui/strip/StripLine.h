#pragma once

#include "model/PalometModel.h"

#include <QString>

namespace palomet {

/// What the strip says beside the word of the state.
[[nodiscard]] QString stripLine(const PalometModel &model);

/// The phrase that carries out a draft: the first that the backend knows, else the one that the program would suggest.
/// `snapshot` may be null.
[[nodiscard]] QString actionPhrase(const Snapshot *snapshot);

} // namespace palomet
