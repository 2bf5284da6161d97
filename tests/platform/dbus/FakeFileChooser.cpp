#include "tests/platform/dbus/FakeFileChooser.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.portal.Desktop"_s;
const auto path = u"/org/freedesktop/portal/desktop"_s;

} // namespace

FakeFileChooser::FakeFileChooser(const QDBusConnection &bus)
    : m_bus(bus) {
    m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
}

FakeFileChooser::~FakeFileChooser() {
    m_bus.unregisterObject(path, QDBusConnection::UnregisterTree);
}

void FakeFileChooser::appear() {
    m_bus.registerService(service);
}

void FakeFileChooser::vanish() {
    m_bus.unregisterService(service);
}

QString FakeFileChooser::introspect(const QString & /*path*/) const {
    return {};
}

bool FakeFileChooser::handleMessage(const QDBusMessage &message, const QDBusConnection & /*connection*/) {
    if (message.member() == u"Get" && version > 0)
        return m_bus.send(message.createReply(QVariant::fromValue(QDBusVariant(version))));
    if (message.member() == u"Get" || isRefusing)
        return m_bus.send(message.createErrorReply(QDBusError::UnknownInterface, u"no such interface"_s));
    if (message.member() == u"Close") {
        ++closed;
        return m_bus.send(message.createReply());
    }
    if (message.member() != u"OpenFile")
        return false;
    const auto arguments = message.arguments();
    parentWindow = arguments.value(0).toString();
    title = arguments.value(1).toString();
    options = qdbus_cast<QVariantMap>(arguments.value(2));
    const auto sender = message.service().mid(1).replace(u'.', u'_');
    m_request = path + u"/request/"_s + sender + u'/' + options[u"handle_token"_s].toString();
    ++opened;
    return m_bus.send(message.createReply(QVariant::fromValue(QDBusObjectPath(m_request))));
}

void FakeFileChooser::respond(uint code, const QStringList &uris) {
    auto signal = QDBusMessage::createSignal(m_request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
    signal.setArguments({code, QVariantMap{{u"uris"_s, uris}}});
    m_bus.send(signal);
}

} // namespace palomet::test
