#include "platform/dbus/PortalSetting.h"

#include "platform/dbus/PortalNames.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QMap>
#include <QVariantMap>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

QDBusMessage question(const QString &group) {
    auto call = QDBusMessage::createMethodCall(portal::service, portal::path, portal::settings, u"ReadAll"_s);
    call.setArguments({QStringList{group}});
    return call;
}

} // namespace

PortalSetting::PortalSetting(const QDBusConnection &bus, QString group, QString key)
    : m_group(std::move(group))
    , m_key(std::move(key))
    , m_question(bus, question(m_group), [this](const QDBusMessage &reply) { answered(reply); })
    , m_watcher(portal::service, bus, QDBusServiceWatcher::WatchForRegistration) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { m_question.ask(); });
    auto listening = bus;
    listening.connect(portal::service, portal::path, portal::settings, u"SettingChanged"_s, this,
                      SLOT(settingChanged(QDBusMessage)));
    m_question.ask();
}

void PortalSetting::answered(const QDBusMessage &reply) {
    const bool isAnswer = reply.type() == QDBusMessage::ReplyMessage && reply.signature() == u"a{sa{sv}}"_s;
    if (isAnswer) {
        const auto groups = qdbus_cast<QMap<QString, QVariantMap>>(reply.arguments().constFirst());
        m_value = groups.value(m_group).value(m_key);
    }
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
    m_value = arguments[2].value<QDBusVariant>().variant();
    m_isSettled = true;
    Q_EMIT changed();
}

} // namespace palomet
