#include "platform/dbus/PortalRequest.h"

#include "platform/dbus/PortalNames.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

PortalRequest::PortalRequest(const QDBusConnection &bus, QString interface)
    : m_bus(bus)
    , m_interface(std::move(interface)) {}

void PortalRequest::make(const QString &method, const Arguments &arguments, Answered answered) {
    withdraw();
    m_answered = std::move(answered);
    const auto token = u"palomet%1"_s.arg(++m_count);
    const auto sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_path = u"%1/request/%2/%3"_s.arg(portal::path, sender, token);
    // Before the call: the answer may come with the call's return.
    m_bus.connect({}, m_path, portal::request, u"Response"_s, this, SLOT(responded(uint, QVariantMap, QDBusMessage)));
    auto call = QDBusMessage::createMethodCall(portal::service, portal::path, m_interface, method);
    call.setArguments(arguments(token));
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, count = m_count] {
        watcher->deleteLater();
        // The answer proper comes by the signal; here only that there will be none.
        if (watcher->isError() && count == m_count && isPending())
            answer(std::nullopt);
    });
}

void PortalRequest::withdraw() {
    if (isPending())
        m_bus.disconnect({}, m_path, portal::request, u"Response"_s, this,
                         SLOT(responded(uint, QVariantMap, QDBusMessage)));
    m_answered = nullptr;
}

void PortalRequest::responded(uint code, const QVariantMap &results, const QDBusMessage &message) {
    if (isPending() && message.path() == m_path)
        answer(code == 0 ? std::optional(results) : std::nullopt);
}

void PortalRequest::answer(const std::optional<QVariantMap> &results) {
    const auto answered = m_answered;
    withdraw();
    answered(results);
}

} // namespace palomet
