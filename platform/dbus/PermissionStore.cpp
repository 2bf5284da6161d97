#include "platform/dbus/PermissionStore.h"

#include <QDBusArgument>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.impl.portal.PermissionStore"_s;
const auto path = u"/org/freedesktop/impl/portal/PermissionStore"_s;
const auto &interface = service;
const auto table = u"devices"_s;

QDBusMessage question(const QString &device) {
    auto call = QDBusMessage::createMethodCall(service, path, interface, u"Lookup"_s);
    call.setArguments({table, device});
    return call;
}

} // namespace

PermissionStore::PermissionStore(const QDBusConnection &bus, QString device)
    : m_device(std::move(device))
    , m_question(bus, question(m_device), [this](const QDBusMessage &reply) { answered(reply); }) {
    auto listening = bus;
    listening.connect(service, path, interface, u"Changed"_s, this, SLOT(storeChanged(QDBusMessage)));
    m_question.ask();
}

QString PermissionStore::permission(const QString &application) const {
    return m_permissions.value(application).value(0);
}

void PermissionStore::answered(const QDBusMessage &reply) {
    const bool isAnswer = reply.type() == QDBusMessage::ReplyMessage && reply.signature() == u"a{sas}v"_s;
    settle(isAnswer ? reply.arguments().constFirst() : QVariant());
}

void PermissionStore::storeChanged(const QDBusMessage &signal) {
    const auto arguments = signal.arguments();
    if (signal.signature() != u"ssbva{sas}"_s || arguments[0] != table || arguments[1] != m_device)
        return;
    // Newer than any answer that is still on its way.
    m_question.withdraw();
    const bool isDeleted = arguments[2].toBool();
    settle(isDeleted ? QVariant() : arguments[4]);
}

void PermissionStore::settle(const QVariant &permissions) {
    m_permissions = qdbus_cast<QMap<QString, QStringList>>(permissions);
    m_isSettled = true;
    Q_EMIT changed();
}

} // namespace palomet
