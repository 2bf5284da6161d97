#include "platform/dbus/DBusRemoteService.h"

#include "command/RemoteStatusJson.h"
#include "platform/dbus/PlatformData.h"
#include "platform/dbus/RemoteNames.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>

namespace palomet {

using namespace remoteNames;
using namespace Qt::StringLiterals;

namespace {

QDBusMessage answer(const QDBusMessage &message, const QString &action, RemoteOutcome outcome) {
    switch (outcome) {
    case RemoteOutcome::Done:
        return message.createReply();
    case RemoteOutcome::Unknown:
        return message.createErrorReply(QDBusError::InvalidArgs, u"no such action: "_s + action);
    case RemoteOutcome::Busy:
        return message.createErrorReply(QDBusError::LimitsExceeded, u"too many commands are waiting for the backend"_s);
    }
    Q_UNREACHABLE();
}

} // namespace

DBusRemoteService::DBusRemoteService(const QDBusConnection &bus, Reconnect reconnect,
                                     std::chrono::milliseconds retryEvery)
    : m_bus(bus)
    , m_reconnect(std::move(reconnect)) {
    m_retry.setInterval(retryEvery);
    m_retry.callOnTimeout(this, &DBusRemoteService::lookForBus);
}

DBusRemoteService::~DBusRemoteService() {
    leave();
}

void DBusRemoteService::leave() {
    if (!m_bus.isConnected())
        return;
    if (m_isPrimary) {
        // The answer is not waited for: a bus that hangs would not give it, and the name goes with the connection.
        auto release = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                      u"org.freedesktop.DBus"_s, u"ReleaseName"_s);
        release.setArguments({service});
        m_bus.send(release);
    }
    m_bus.unregisterObject(path);
}

RemoteService::Claim DBusRemoteService::claim(const QString &activation) {
    if (!m_bus.isConnected()) {
        busHasEnded();
        return Claim::Absent;
    }
    const auto claim = takeName();
    if (claim != Claim::Taken)
        return claim;
    auto activate = QDBusMessage::createMethodCall(service, path, application, u"Activate"_s);
    activate.setArguments({platformData(activation)});
    m_bus.call(activate, QDBus::Block, 5000);
    return claim;
}

RemoteService::Claim DBusRemoteService::takeName() {
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s, u"Disconnected"_s, this,
                  SLOT(busHasEnded()));
    // The object first: whoever sees the name may call at once.
    m_bus.registerVirtualObject(path, this);
    const auto reply = m_bus.interface()->registerService(service, QDBusConnectionInterface::DontQueueService,
                                                          QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid())
        return Claim::Absent;
    m_isPrimary = reply.value() == QDBusConnectionInterface::ServiceRegistered;
    return m_isPrimary ? Claim::Primary : Claim::Taken;
}

void DBusRemoteService::busHasEnded() {
    m_isPrimary = false;
    if (m_reconnect)
        m_retry.start();
}

void DBusRemoteService::lookForBus() {
    const auto bus = m_reconnect();
    if (!bus)
        return;
    m_retry.stop();
    m_bus = *bus;
    if (takeName() == Claim::Taken)
        onReplaced();
}

void DBusRemoteService::publish(const RemoteStatus &status) {
    if (status == m_status)
        return;
    m_status = status;
    if (!m_bus.isConnected())
        return;
    auto signal = QDBusMessage::createSignal(path, control, u"StatusChanged"_s);
    signal.setArguments({toJson(status)});
    m_bus.send(signal);
}

QString DBusRemoteService::introspect(const QString &) const {
    return uR"(<interface name="org.freedesktop.Application">
  <method name="Activate"><arg type="a{sv}" name="platform_data" direction="in"/></method>
  <method name="Open"><arg type="as" name="uris" direction="in"/><arg type="a{sv}" name="platform_data" direction="in"/></method>
  <method name="ActivateAction"><arg type="s" name="action_name" direction="in"/><arg type="av" name="parameter" direction="in"/><arg type="a{sv}" name="platform_data" direction="in"/></method>
</interface>
<interface name="org.palomet.Palomet.Control">
  <method name="Status"><arg type="s" name="json" direction="out"/></method>
  <signal name="StatusChanged"><arg type="s" name="json"/></signal>
</interface>
)"_s;
}

bool DBusRemoteService::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    if (message.type() != QDBusMessage::MethodCallMessage)
        return false;
    if (message.interface() == application)
        return handleApplication(message);
    if (message.interface() == control && message.member() == u"Status"_s)
        return m_bus.send(message.createReply(toJson(m_status)));
    return false;
}

bool DBusRemoteService::handleApplication(const QDBusMessage &message) {
    // There are no documents to open: whoever asks for one sees the window.
    const auto arguments = message.arguments();
    if (message.member() == u"Activate"_s || message.member() == u"Open"_s) {
        m_bus.send(message.createReply());
        QMetaObject::invokeMethod(
            this, [this, activation = activationIn(arguments.value(arguments.size() - 1))] { onActivate(activation); },
            Qt::QueuedConnection);
        return true;
    }
    if (message.member() != u"ActivateAction"_s)
        return false;
    RemoteCommand command{arguments.value(0).toString(), std::nullopt, activationIn(arguments.value(2))};
    const auto parameters = qdbus_cast<QVariantList>(arguments.value(1));
    if (!parameters.isEmpty()) {
        auto parameter = parameters.front();
        if (parameter.canConvert<QDBusVariant>())
            parameter = parameter.value<QDBusVariant>().variant();
        command.text = parameter.toString();
    }
    answerLater(message, command);
    return true;
}

void DBusRemoteService::answerLater(const QDBusMessage &message, const RemoteCommand &command) {
    // From the event loop: a command may end the program, or open a window that runs the loop itself.
    QMetaObject::invokeMethod(
        this, [this, message, command] { m_bus.send(answer(message, command.action, onCommand(command))); },
        Qt::QueuedConnection);
}

} // namespace palomet
