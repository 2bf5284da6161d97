#pragma once

#include <QString>
#include <QVariantMap>

namespace palomet {

/// The `platform_data` of a call to `org.freedesktop.Application`: under both of its names what lets a window of the
/// called program come to the front; empty without it.
[[nodiscard]] QVariantMap platformData(const QString &activation);

/// What such an argument says of it, be it from a launcher or from another start of the program; empty when it says
/// nothing, or nonsense.
[[nodiscard]] QString activationIn(const QVariant &platformData);

} // namespace palomet
