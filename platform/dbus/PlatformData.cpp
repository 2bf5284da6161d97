#include "platform/dbus/PlatformData.h"

#include <QDBusArgument>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto token = u"activation-token"_s;
const auto startupId = u"desktop-startup-id"_s;

} // namespace

QVariantMap platformData(const QString &activation) {
    return activation.isEmpty() ? QVariantMap() : QVariantMap{{token, activation}, {startupId, activation}};
}

QString activationIn(const QVariant &platformData) {
    const auto data = qdbus_cast<QVariantMap>(platformData);
    const auto given = data.value(token, data.value(startupId));
    // Those that desktops give are no longer than a hundred letters.
    constexpr qsizetype most = 1024;
    const bool isOne = given.typeId() == QMetaType::QString && given.toString().size() <= most;
    return isOne ? given.toString() : QString();
}

} // namespace palomet
