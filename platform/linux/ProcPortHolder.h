#pragma once

#include "doctor/PortHolder.h"

namespace palomet {

using namespace Qt::StringLiterals;

/// As the kernel's tables tell it, below `proc`.
[[nodiscard]] std::optional<PortHolder> procPortHolder(quint16 port, const QString &proc = u"/proc"_s);

} // namespace palomet
