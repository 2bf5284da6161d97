#include "platform/dbus/PortalRequest.h"

#include "platform/dbus/PortalNames.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

enum Code : uint { Success, Cancelled };

/// No two requests on a connection may have one token.
QString nextToken() {
    static quint64 count = 0;
    return u"palomet%1"_s.arg(++count);
}

} // namespace

PortalRequest::PortalRequest(const QDBusConnection &bus, QString interface)
    : m_bus(bus)
    , m_interface(std::move(interface)) {}

void PortalRequest::make(const QString &method, const Arguments &arguments, Answered answered) {
    withdraw();
    m_answered = std::move(answered);
    const auto token = nextToken();
    const auto sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_path = u"%1/request/%2/%3"_s.arg(portal::path, sender, token);
    // Before the call: the answer may come with the call's return.
    m_bus.connect({}, m_path, portal::request, u"Response"_s, this, SLOT(responded(uint, QVariantMap, QDBusMessage)));
    auto call = QDBusMessage::createMethodCall(portal::service, portal::path, m_interface, method);
    call.setArguments(arguments(token));
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, path = m_path] {
        watcher->deleteLater();
        // The answer proper comes by the signal; here only that there will be none.
        if (watcher->isError() && path == m_path && isPending())
            answer({});
    });
}

void PortalRequest::withdraw() {
    if (isPending())
        m_bus.disconnect({}, m_path, portal::request, u"Response"_s, this,
                         SLOT(responded(uint, QVariantMap, QDBusMessage)));
    m_answered = nullptr;
}

void PortalRequest::close() {
    if (isPending())
        m_bus.send(QDBusMessage::createMethodCall(portal::service, m_path, portal::request, u"Close"_s));
    withdraw();
}

void PortalRequest::responded(uint code, const QVariantMap &results, const QDBusMessage &message) {
    if (isPending() && message.path() == m_path)
        answer({.results = code == Success ? std::optional(results) : std::nullopt, .isCancelled = code == Cancelled});
}

void PortalRequest::answer(const PortalResponse &response) {
    const auto answered = m_answered;
    withdraw();
    answered(response);
}

} // namespace palomet
