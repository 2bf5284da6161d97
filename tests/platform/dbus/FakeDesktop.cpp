#include "tests/platform/dbus/FakeDesktop.h"

#include <QDBusMetaType>

#include <utility>

namespace palomet::test {

using namespace Qt::StringLiterals;

namespace {

const auto portal = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto store = u"org.freedesktop.impl.portal.PermissionStore"_s;
const auto storePath = u"/org/freedesktop/impl/portal/PermissionStore"_s;

QVariant inVariant(const QVariant &value) {
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

FakeDesktop::FakeDesktop(const QDBusConnection &bus)
    : m_bus(bus) {
    qDBusRegisterMetaType<QMap<QString, QStringList>>();
    m_bus.registerVirtualObject(portalPath, this);
    m_bus.registerVirtualObject(storePath, this);
}

FakeDesktop::~FakeDesktop() {
    vanish();
    m_bus.unregisterObject(portalPath);
    m_bus.unregisterObject(storePath);
}

void FakeDesktop::appear() {
    m_bus.registerService(portal);
    m_bus.registerService(store);
}

void FakeDesktop::vanish() {
    m_bus.unregisterService(portal);
    m_bus.unregisterService(store);
}

void FakeDesktop::changeSetting(const QString &group, const QString &key, const QVariant &value) {
    settings[group][key] = value;
    auto signal = QDBusMessage::createSignal(portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal.setArguments({group, key, inVariant(value)});
    m_bus.send(signal);
}

void FakeDesktop::changePermissions(const QMap<QString, QStringList> &changed, const QString &device) {
    auto signal = QDBusMessage::createSignal(storePath, store, u"Changed"_s);
    signal.setArguments({u"devices"_s, device, false, inVariant(QString()), QVariant::fromValue(changed)});
    m_bus.send(signal);
}

void FakeDesktop::deletePermissions() {
    auto signal = QDBusMessage::createSignal(storePath, store, u"Changed"_s);
    signal.setArguments(
        {u"devices"_s, u"microphone"_s, true, inVariant(QString()), QVariant::fromValue(QMap<QString, QStringList>())});
    m_bus.send(signal);
}

void FakeDesktop::answerNow() {
    for (const auto &call : std::exchange(m_waiting, {}))
        m_bus.send(answer(call));
}

QString FakeDesktop::introspect(const QString &) const {
    return {};
}

bool FakeDesktop::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    calls.append(message.member());
    if (manner == Manner::KeepSilent) {
        message.setDelayedReply(true);
        m_waiting.append(message);
    } else {
        m_bus.send(answer(message));
    }
    return true;
}

QDBusMessage FakeDesktop::answer(const QDBusMessage &call) const {
    if (manner == Manner::Refuse)
        return call.createErrorReply(QDBusError::AccessDenied, u"not for you"_s);
    if (manner == Manner::Nonsense)
        return call.createReply(QVariantList{7, u"no"_s});
    const auto asked = call.arguments();
    if (call.member() == u"Read"_s) {
        const auto value = settings.value(asked.value(0).toString()).value(asked.value(1).toString());
        // In a variant of its own, as the portal has it.
        if (value.isValid())
            return call.createReply(QVariant::fromValue(QDBusVariant(inVariant(value))));
    }
    if (call.member() == u"Lookup"_s && permissions && asked == QVariantList{u"devices"_s, u"microphone"_s})
        return call.createReply({QVariant::fromValue(*permissions), inVariant(QString())});
    return call.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"nothing kept"_s);
}

} // namespace palomet::test
