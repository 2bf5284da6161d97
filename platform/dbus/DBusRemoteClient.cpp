#include "platform/dbus/DBusRemoteClient.h"

#include "command/RemoteStatusJson.h"
#include "platform/dbus/PlatformData.h"
#include "platform/dbus/RemoteNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QEventLoop>
#include <QTimer>

namespace palomet {

using namespace remoteNames;
using namespace Qt::StringLiterals;

DBusRemoteClient::DBusRemoteClient(const QDBusConnection &bus)
    : m_bus(bus)
    , m_watcher(service, bus, QDBusServiceWatcher::WatchForUnregistration) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        if (m_gone)
            m_gone();
    });
}

Result<QVariantList> DBusRemoteClient::call(const QString &interface, const QString &member,
                                            const QVariantList &arguments) {
    if (!m_bus.isConnected())
        return Failure{u"there is no session bus"_s};
    auto message = QDBusMessage::createMethodCall(service, path, interface, member);
    message.setAutoStartService(false);
    message.setArguments(arguments);
    constexpr int limit = 5000;
    const auto reply = m_bus.call(message, QDBus::Block, limit);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return reply.arguments();
    const bool isAbsent = reply.errorName() == u"org.freedesktop.DBus.Error.ServiceUnknown"_s ||
                          reply.errorName() == u"org.freedesktop.DBus.Error.NameHasNoOwner"_s;
    return Failure{isAbsent ? u"Palomet is not running"_s : reply.errorMessage()};
}

std::optional<Failure> DBusRemoteClient::send(const RemoteCommand &command) {
    QVariantList parameters;
    if (command.text)
        parameters.append(*command.text);
    const auto reply =
        call(application, u"ActivateAction"_s, {command.action, parameters, platformData(command.activation)});
    return reply ? std::nullopt : std::optional(Failure{reply.reason()});
}

Result<RemoteStatus> DBusRemoteClient::status() {
    const auto reply = call(control, u"Status"_s, {});
    if (!reply)
        return Failure{reply.reason()};
    return statusFromJson(reply->value(0).toString());
}

std::optional<Failure> DBusRemoteClient::follow(std::function<void(const RemoteStatus &)> changed,
                                                std::function<void()> gone) {
    // Listen first, ask after: no change falls between the two.
    m_changed = std::move(changed);
    m_gone = std::move(gone);
    if (m_bus.isConnected())
        m_bus.connect(service, path, control, u"StatusChanged"_s, this, SLOT(statusChanged(QString)));
    const auto now = status();
    if (!now)
        return Failure{now.reason()};
    m_changed(*now);
    return std::nullopt;
}

void DBusRemoteClient::statusChanged(const QString &json) {
    m_changed(statusFromJson(json));
}

bool DBusRemoteClient::waitUntilGone(std::chrono::milliseconds limit) {
    if (!m_bus.isConnected())
        return true;
    QEventLoop loop;
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, &loop, &QEventLoop::quit);
    QTimer::singleShot(limit, &loop, [&] { loop.exit(1); });
    if (!m_bus.interface()->isServiceRegistered(service))
        return true;
    return loop.exec() == 0;
}

} // namespace palomet
