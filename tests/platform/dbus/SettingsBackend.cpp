#include "tests/platform/dbus/SettingsBackend.h"

#include <QDBusMetaType>

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

const auto path = u"/org/freedesktop/portal/desktop"_s;

QVariant inVariant(const QVariant &value) {
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

SettingsBackend::SettingsBackend(const QDBusConnection &bus, const QString &name)
    : m_bus(bus)
    , m_name(u"org.freedesktop.impl.portal.desktop."_s + name) {
    qDBusRegisterMetaType<QMap<QString, QVariantMap>>();
    m_bus.registerVirtualObject(path, this);
    m_bus.registerService(m_name);
}

SettingsBackend::~SettingsBackend() {
    m_bus.unregisterObject(path);
}

QString SettingsBackend::introspect(const QString &) const {
    return {};
}

bool SettingsBackend::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    const auto arguments = message.arguments();
    if (message.member() == u"Get"_s)
        return m_bus.send(message.createReply(inVariant(1U)));
    if (message.member() == u"GetAll"_s)
        return m_bus.send(message.createReply(QVariant(QVariantMap{{u"version"_s, 1U}})));
    if (message.member() == u"ReadAll"_s)
        return m_bus.send(message.createReply(QVariant::fromValue(settings)));
    if (message.member() != u"Read"_s)
        return false;
    const auto value = settings.value(arguments.value(0).toString()).value(arguments.value(1).toString());
    return m_bus.send(value.isValid() ? message.createReply(inVariant(value))
                                      : message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, {}));
}

} // namespace palomet::test
