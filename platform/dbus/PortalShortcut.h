#pragma once

#include <QDBusArgument>
#include <QString>
#include <QVariantMap>

namespace palomet {

/// One shortcut as the portal speaks of it, a(sa{sv}) in a list.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};
QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut);
const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut);

} // namespace palomet

Q_DECLARE_METATYPE(palomet::PortalShortcut)
