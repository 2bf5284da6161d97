#pragma once

#include <QByteArray>

namespace palomet::bench {

/// A state document of a conversation of so many rows, some 200 bytes each.
[[nodiscard]] QByteArray stateDocument(int rows);

} // namespace palomet::bench
