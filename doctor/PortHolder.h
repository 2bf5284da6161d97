#pragma once

#include <QStringList>
#include <QtGlobal>

#include <functional>
#include <optional>

namespace palomet {

/// The process that listens on a port of this machine.
struct PortHolder {
    qint64 processId = 0; ///< 0 when it is not for us to know: the process of another user.
    QStringList lineage;  ///< Names of the process, of its parent, and so on.
};

/// Port: finds who listens on a TCP port; nothing when nobody does.
using FindPortHolder = std::function<std::optional<PortHolder>(quint16 port)>;

} // namespace palomet
