#pragma once

#include "doctor/PortHolder.h"

namespace palomet {

/// As the kernel's tables tell it, below `proc`.
[[nodiscard]] std::optional<PortHolder> procPortHolder(quint16 port, const QString &proc = QStringLiteral("/proc"));

} // namespace palomet
