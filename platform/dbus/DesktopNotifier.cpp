#include "platform/dbus/DesktopNotifier.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

const auto service = u"org.freedesktop.Notifications"_s;
const auto path = u"/org/freedesktop/Notifications"_s;
const auto &interface = service;
/// What a click on the notice itself is called.
const auto itself = u"default"_s;
const auto button = u"open"_s;

QDBusMessage call(const QString &method, const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

DesktopNotifier::DesktopNotifier(const QDBusConnection &bus, QString desktopFile)
    : m_bus(bus)
    , m_desktopFile(std::move(desktopFile)) {
    m_bus.connect(service, path, interface, u"ActionInvoked"_s, this, SLOT(chosen(uint, QString)));
    m_bus.connect(service, path, interface, u"ActivationToken"_s, this, SLOT(tokenGiven(uint, QString)));
    m_bus.connect(service, path, interface, u"NotificationClosed"_s, this, SLOT(closed(uint, uint)));
}

void DesktopNotifier::show(quint32 id, const Notice &notice) {
    // A call on a connection that does not exist would never be answered.
    if (!m_bus.isConnected())
        return;
    auto &shown = m_shown[id];
    shown.isWithdrawn = false;
    shown.question = ++m_questions;
    const QVariantMap hints{{u"desktop-entry"_s, m_desktopFile}, {u"urgency"_s, QVariant::fromValue(uchar{1})}};
    constexpr int asLongAsUsual = -1;
    const auto message =
        call(u"Notify"_s, {u"Palomet"_s, shown.number, m_desktopFile, notice.title,
                           // It is read as markup.
                           notice.text.toHtmlEscaped(),
                           // A click on the notice needs no name; with one, some show a button for it, too.
                           QStringList{itself, QString(), button, notice.button}, hints, asLongAsUsual});
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, id, question = m_questions] {
        watcher->deleteLater();
        told(id, question, watcher->reply().arguments().value(0).toUInt());
    });
}

void DesktopNotifier::told(quint32 id, int question, uint number) {
    const auto found = m_shown.find(id);
    const bool isLast = found != m_shown.end() && found->second.question == question;
    // Nobody shows it.
    const bool isShown = number != 0;
    if (isLast && isShown && !found->second.isWithdrawn) {
        found->second.number = number;
        return;
    }
    if (isLast)
        m_shown.erase(found);
    if (isShown)
        close(number);
}

void DesktopNotifier::withdraw(quint32 id) {
    const auto found = m_shown.find(id);
    if (found == m_shown.end())
        return;
    const auto number = found->second.number;
    // It can only be closed by its number.
    if (number == 0) {
        found->second.isWithdrawn = true;
        return;
    }
    m_shown.erase(found);
    close(number);
}

void DesktopNotifier::close(uint number) {
    m_bus.asyncCall(call(u"CloseNotification"_s, {number}));
}

void DesktopNotifier::tokenGiven(uint number, const QString &token) {
    if (const auto found = find(number); found != m_shown.end())
        found->second.activation = token;
}

void DesktopNotifier::chosen(uint number, const QString &action) {
    const auto found = find(number);
    if (found == m_shown.end() || (action != itself && action != button))
        return;
    const auto id = found->first;
    const auto activation = found->second.activation;
    // Some leave it there.
    m_shown.erase(found);
    close(number);
    onChosen(id, activation);
}

void DesktopNotifier::closed(uint number, uint /*reason*/) {
    if (const auto found = find(number); found != m_shown.end())
        m_shown.erase(found);
}

std::map<quint32, DesktopNotifier::Shown>::iterator DesktopNotifier::find(uint number) {
    return std::ranges::find_if(m_shown, [&](const auto &one) { return number != 0 && one.second.number == number; });
}

} // namespace palomet
