#include "platform/dbus/StatusNotifierHost.h"

#include <QDBusVariant>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.kde.StatusNotifierWatcher"_s;
const auto path = u"/StatusNotifierWatcher"_s;
const auto &interface = service;

QDBusMessage question() {
    auto call = QDBusMessage::createMethodCall(service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call.setArguments({interface, u"IsStatusNotifierHostRegistered"_s});
    return call;
}

} // namespace

StatusNotifierHost::StatusNotifierHost(const QDBusConnection &bus)
    : m_question(bus, question(), [this](const QDBusMessage &reply) { answered(reply); })
    , m_watcher(service, bus) {
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { ask(); });
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        m_question.withdraw();
        settle(Status::Absent);
    });
    auto listening = bus;
    for (const auto &change : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        listening.connect(service, path, interface, change, this, SLOT(ask()));
    ask();
}

void StatusNotifierHost::answered(const QDBusMessage &reply) {
    const auto value = reply.arguments().value(0).value<QDBusVariant>().variant();
    settle(reply.type() == QDBusMessage::ReplyMessage && value.typeId() == QMetaType::Bool && value.toBool()
               ? Status::Present
               : Status::Absent);
}

void StatusNotifierHost::settle(Status status) {
    if (status == m_status)
        return;
    m_status = status;
    onChange();
}

} // namespace palomet
