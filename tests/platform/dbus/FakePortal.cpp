#include "tests/platform/dbus/FakePortal.h"

#include <QDBusArgument>
#include <QDBusMessage>

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;
const auto interface = u"org.freedesktop.portal.GlobalShortcuts"_s;

QString requestPath(const QDBusMessage &message, const QVariantMap &options) {
    const auto sender = message.service().mid(1).replace(u'.', u'_');
    return path + u"/request/"_s + sender + u'/' + options[u"handle_token"_s].toString();
}

QList<PortalShortcut> list(const QMap<QString, QString> &triggers) {
    QList<PortalShortcut> shortcuts;
    for (auto trigger = triggers.begin(); trigger != triggers.end(); ++trigger)
        shortcuts.append({trigger.key(), {{u"trigger_description"_s, trigger.value()}}});
    return shortcuts;
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
    m_isSessionOpen = false;
    m_bus.unregisterService(service);
}

QString FakePortal::introspect(const QString &) const {
    return {};
}

bool FakePortal::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    calls += message.member();
    if (message.member() == u"CreateSession"_s)
        return answerCreation(message);
    if (message.member() == u"BindShortcuts"_s)
        return answerBinding(message);
    if (message.member() == u"ListShortcuts"_s)
        return answerListing(message);
    if (message.member() == u"Register"_s) {
        m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"too old to know"_s));
        return true;
    }
    if (message.member() != u"Close"_s)
        return false;
    m_isSessionOpen = false;
    return m_bus.send(message.createReply());
}

bool FakePortal::answerCreation(const QDBusMessage &message) {
    if (answer == Answer::Error)
        return m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"no such interface"_s));
    const auto options = qdbus_cast<QVariantMap>(message.arguments().value(0));
    created = qdbus_cast<QList<PortalShortcut>>(options[u"shortcuts"_s]);
    const auto request = requestPath(message, options);
    sessionTokens += options[u"session_handle_token"_s].toString();
    session = path + u"/session/x/"_s + sessionTokens.last();
    collisions += m_isSessionOpen ? 1 : 0;
    m_isSessionOpen = answer != Answer::RefuseSession;
    m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    QVariantMap results{{u"session_handle"_s, session}};
    if (truth) {
        for (const auto &shortcut : created)
            known[shortcut.id] = shortcut.properties[u"preferred_trigger"_s].toString();
        if (sessionTokens.size() > 1)
            known = *truth;
        results[u"shortcuts"_s] = QVariant::fromValue(list(known));
    }
    if (answer == Answer::Nothing)
        pending = {request, results};
    else
        respond(request, answer == Answer::RefuseSession ? 1 : 0, results);
    return true;
}

bool FakePortal::answerBinding(const QDBusMessage &message) {
    bound = qdbus_cast<QList<PortalShortcut>>(message.arguments().value(1));
    const auto request = requestPath(message, qdbus_cast<QVariantMap>(message.arguments().value(3)));
    m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    known.clear();
    for (const auto &shortcut : bound) {
        known[shortcut.id] = u"Meta+"_s + shortcut.id;
        if (answer == Answer::BindFirstOnly)
            break;
    }
    QVariantMap results;
    if (answer != Answer::BindWithoutResults)
        results[u"shortcuts"_s] = QVariant::fromValue(list(known));
    respond(request, answer == Answer::RefuseBinding ? 1 : 0, results);
    return true;
}

bool FakePortal::answerListing(const QDBusMessage &message) {
    if (answer == Answer::ListNothing)
        return m_bus.send(message.createErrorReply(QDBusError::UnknownMethod, u"no such method"_s));
    const auto request = requestPath(message, qdbus_cast<QVariantMap>(message.arguments().value(1)));
    m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(request))));
    respond(request, 0, {{u"shortcuts"_s, QVariant::fromValue(list(known))}});
    return true;
}

void FakePortal::respond(const QString &request, uint code, const QVariantMap &results) {
    auto signal = QDBusMessage::createSignal(request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
    signal.setArguments({code, results});
    m_bus.send(signal);
}

void FakePortal::activate(const QString &id, const QString &inSession) {
    auto signal = QDBusMessage::createSignal(path, interface, u"Activated"_s);
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(inSession.isEmpty() ? session : inSession)), id,
                         qulonglong{1}, QVariantMap()});
    m_bus.send(signal);
}

void FakePortal::change(const QMap<QString, QString> &triggers) {
    auto signal = QDBusMessage::createSignal(path, interface, u"ShortcutsChanged"_s);
    signal.setArguments({QVariant::fromValue(QDBusObjectPath(session)), QVariant::fromValue(list(triggers))});
    m_bus.send(signal);
}

void FakePortal::closeSession() {
    m_isSessionOpen = false;
    m_bus.send(QDBusMessage::createSignal(session, u"org.freedesktop.portal.Session"_s, u"Closed"_s));
}

} // namespace palomet::test
