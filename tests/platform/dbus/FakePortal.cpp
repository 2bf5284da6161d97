#include "tests/platform/dbus/FakePortal.h"

#include <QDBusArgument>
#include <QDBusMessage>

namespace palomet::test {

namespace {

const auto service = QStringLiteral("org.freedesktop.portal.Desktop");
const auto path = QStringLiteral("/org/freedesktop/portal/desktop");
const auto interface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

QString requestPath(const QDBusMessage &message, const QVariantMap &options) {
    const auto sender = message.service().mid(1).replace(u'.', u'_');
    return path + QStringLiteral("/request/") + sender + u'/' + options[QStringLiteral("handle_token")].toString();
}

} // namespace

FakePortal::FakePortal(const QDBusConnection &bus)
    : m_bus(bus) {
    m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
}

FakePortal::~FakePortal() {
    m_bus.unregisterObject(path, QDBusConnection::UnregisterTree);
}

void FakePortal::appear() {
    m_bus.registerService(service);
}

void FakePortal::vanish() {
    m_bus.unregisterService(service);
}

QString FakePortal::introspect(const QString &) const {
    return {};
}

bool FakePortal::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    const auto arguments = message.arguments();
    calls += message.member();
    if (message.member() == QStringLiteral("CreateSession")) {
        if (answer == Answer::Error) {
            m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such interface")));
            return true;
        }
        const auto options = qdbus_cast<QVariantMap>(arguments.value(0));
        created = qdbus_cast<QList<PortalShortcut>>(options[QStringLiteral("shortcuts")]);
        const auto request = requestPath(message, options);
        session = path + QStringLiteral("/session/x/") + options[QStringLiteral("session_handle_token")].toString();
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        const QVariantMap results{{QStringLiteral("session_handle"), session}};
        if (answer == Answer::Nothing)
            pending = {request, results};
        else
            respond(request, answer == Answer::RefuseSession ? 1 : 0, results);
        return true;
    }
    if (message.member() == QStringLiteral("BindShortcuts")) {
        bound = qdbus_cast<QList<PortalShortcut>>(arguments.value(1));
        const auto request = requestPath(message, qdbus_cast<QVariantMap>(arguments.value(3)));
        m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
        QList<PortalShortcut> granted;
        for (const auto &shortcut : bound) {
            granted.append(
                {shortcut.id, {{QStringLiteral("trigger_description"), QStringLiteral("Meta+") + shortcut.id}}});
            if (answer == Answer::BindFirstOnly)
                break;
        }
        respond(request, answer == Answer::RefuseBinding ? 1 : 0,
                {{QStringLiteral("shortcuts"), QVariant::fromValue(granted)}});
        return true;
    }
    if (message.member() == QStringLiteral("Register")) {
        m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("too old to know")));
        return true;
    }
    return message.member() == QStringLiteral("Close") && m_bus.send(message.createReply());
}

void FakePortal::respond(const QString &request, uint code, const QVariantMap &results) {
    auto signal = QDBusMessage::createSignal(request, QStringLiteral("org.freedesktop.portal.Request"),
                                             QStringLiteral("Response"));
    signal.setArguments({code, results});
    m_bus.send(signal);
}

void FakePortal::activate(const QString &id, const QString &inSession) {
    auto signal = QDBusMessage::createSignal(path, interface, QStringLiteral("Activated"));
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(inSession.isEmpty() ? session : inSession)), id,
                         qulonglong{1}, QVariantMap()});
    m_bus.send(signal);
}

void FakePortal::change(const QMap<QString, QString> &triggers) {
    QList<PortalShortcut> shortcuts;
    for (auto trigger = triggers.begin(); trigger != triggers.end(); ++trigger)
        shortcuts.append({trigger.key(), {{QStringLiteral("trigger_description"), trigger.value()}}});
    auto signal = QDBusMessage::createSignal(path, interface, QStringLiteral("ShortcutsChanged"));
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(session)), QVariant::fromValue(shortcuts)});
    m_bus.send(signal);
}

void FakePortal::closeSession() {
    m_bus.send(QDBusMessage::createSignal(session, QStringLiteral("org.freedesktop.portal.Session"),
                                          QStringLiteral("Closed")));
}

} // namespace palomet::test
