#pragma once

#include "model/PalometModel.h"

#include <QString>

namespace palomet {

/// The strip's line, beside the word of the state.
[[nodiscard]] QString stripLine(const PalometModel &model);

/// The phrase that carries out a draft: the backend's first, else the one that the program suggests.
/// `snapshot` may be null.
[[nodiscard]] QString actionPhrase(const Snapshot *snapshot);

} // namespace palomet
