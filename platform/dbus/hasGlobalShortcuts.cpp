#include "platform/dbus/hasGlobalShortcuts.h"

#include <QDBusMessage>

namespace palomet {

using namespace Qt::StringLiterals;

bool hasGlobalShortcuts(const QDBusConnection &bus) {
    if (!bus.isConnected())
        return false;
    auto question =
        QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question.setArguments({u"org.freedesktop.portal.GlobalShortcuts"_s, u"version"_s});
    constexpr int limit = 2000;
    return bus.call(question, QDBus::Block, limit).type() == QDBusMessage::ReplyMessage;
}

} // namespace palomet
