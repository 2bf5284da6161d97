#include "platform/dbus/hasGlobalShortcuts.h"

#include "platform/dbus/PortalNames.h"

#include <QDBusMessage>

namespace palomet {

using namespace Qt::StringLiterals;

bool hasGlobalShortcuts(const QDBusConnection &bus) {
    if (!bus.isConnected())
        return false;
    auto question =
        QDBusMessage::createMethodCall(portal::service, portal::path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({portal::globalShortcuts, u"version"_s});
    constexpr int limit = 2000;
    return bus.call(question, QDBus::Block, limit).type() == QDBusMessage::ReplyMessage;
}

} // namespace palomet
