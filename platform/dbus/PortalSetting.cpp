#include "platform/dbus/PortalSetting.h"

#include "platform/dbus/PortalNames.h"

#include <QDBusVariant>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// Of that one setting: a whole group comes from each of the desktop's backends in turn, and nothing tells which of
/// them is to be believed.
QDBusMessage question(const QString &group, const QString &key) {
    auto call = QDBusMessage::createMethodCall(portal::service, portal::path, portal::settings, u"Read"_s);
    call.setArguments({group, key});
    return call;
}

/// What is in a variant, which may be in another one.
QVariant content(QVariant value) {
    while (value.typeId() == qMetaTypeId<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

} // namespace

PortalSetting::PortalSetting(const QDBusConnection &bus, QString group, QString key)
    : m_group(std::move(group))
    , m_key(std::move(key))
    , m_question(bus, question(m_group, m_key), [this](const QDBusMessage &reply) { answered(reply); })
    , m_watcher(portal::service, bus, QDBusServiceWatcher::WatchForRegistration) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { m_question.ask(); });
    auto listening = bus;
    listening.connect(portal::service, portal::path, portal::settings, u"SettingChanged"_s, this,
                      SLOT(settingChanged(QDBusMessage)));
    m_question.ask();
}

void PortalSetting::answered(const QDBusMessage &reply) {
    if (reply.type() == QDBusMessage::ReplyMessage && reply.signature() == u"v"_s)
        m_value = content(reply.arguments().constFirst());
    else if (reply.errorName() == u"org.freedesktop.portal.Error.NotFound"_s)
        m_value = {};
    // A portal that has been told of and does not answer is no reason to forget what it said.
    m_isSettled = true;
    Q_EMIT changed();
}

void PortalSetting::settingChanged(const QDBusMessage &signal) {
    const auto arguments = signal.arguments();
    if (signal.signature() != u"ssv"_s || arguments[0] != m_group || arguments[1] != m_key)
        return;
    // Newer than any answer that is still on its way.
    m_question.withdraw();
    m_value = content(arguments[2]);
    m_isSettled = true;
    Q_EMIT changed();
}

} // namespace palomet
