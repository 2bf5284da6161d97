#include "platform/dbus/PortalHotKeyGrabber.h"

#include "platform/dbus/PortalNames.h"
#include "platform/dbus/preferredTrigger.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <iterator>
#include <utility>

namespace palomet {

QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

PortalHotKeyGrabber::PortalHotKeyGrabber(const QDBusConnection &bus, QString applicationId,
                                         const KeyboardLayout &layout)
    : m_bus(bus)
    , m_applicationId(std::move(applicationId))
    , m_layout(layout)
    , m_watcher(new QDBusServiceWatcher(portal::service, bus, QDBusServiceWatcher::WatchForOwnerChange, this)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalHotKeyGrabber::serviceOwnerChanged);
    // No sender is named: that would ask the bus who it is, and wait for the answer.
    m_bus.connect({}, portal::path, portal::globalShortcuts, QStringLiteral("Activated"), this,
                  SLOT(activated(QDBusMessage)));
    m_bus.connect({}, portal::path, portal::globalShortcuts, QStringLiteral("ShortcutsChanged"), this,
                  SLOT(shortcutsChanged(QDBusMessage)));
}

PortalHotKeyGrabber::~PortalHotKeyGrabber() {
    closeSession();
}

void PortalHotKeyGrabber::offer(const std::vector<HotKeyOffer> &offers) {
    if (offers == m_offers)
        return;
    m_offers = offers;
    closeSession();
    begin();
}

bool PortalHotKeyGrabber::grab(quint32 id, quint32 keyCode, quint32 modifiers) {
    static_cast<void>(keyCode);
    static_cast<void>(modifiers);
    const bool isPending = m_state == State::Creating || m_state == State::Binding;
    if (!isPending && !m_triggers.contains(id))
        return false;
    m_held.insert(id);
    return true;
}

void PortalHotKeyGrabber::release(quint32 id) {
    m_held.erase(id);
}

QString PortalHotKeyGrabber::trigger(quint32 id) const {
    const auto found = m_triggers.find(id);
    return found == m_triggers.end() ? QString() : found->second;
}

QList<PortalShortcut> PortalHotKeyGrabber::shortcuts() const {
    QList<PortalShortcut> list;
    for (const auto &offer : m_offers) {
        QVariantMap properties{{QStringLiteral("description"), offer.description}};
        if (const auto trigger = preferredTrigger(offer, m_layout); !trigger.isEmpty())
            properties[QStringLiteral("preferred_trigger")] = trigger;
        list.append({QString::number(offer.id), properties});
    }
    return list;
}

void PortalHotKeyGrabber::begin() {
    if (m_offers.empty() || !m_bus.isConnected()) {
        m_state = State::Refused;
        return;
    }
    if (!m_isRegistered) {
        // Newer portals want to be told who asks, before anything else is asked; older ones do not know the question.
        m_isRegistered = true;
        auto message = QDBusMessage::createMethodCall(portal::service, portal::path,
                                                      QStringLiteral("org.freedesktop.host.portal.Registry"),
                                                      QStringLiteral("Register"));
        message.setArguments({m_applicationId, QVariantMap()});
        m_bus.send(message);
    }
    createSession();
}

void PortalHotKeyGrabber::createSession() {
    m_state = State::Creating;
    const auto token = expectResponse();
    call(QStringLiteral("CreateSession"),
         {QVariantMap{{QStringLiteral("handle_token"), token},
                      {QStringLiteral("session_handle_token"), token},
                      // Some portals bind by this call alone.
                      {QStringLiteral("shortcuts"), QVariant::fromValue(shortcuts())}}});
}

void PortalHotKeyGrabber::bindShortcuts() {
    m_state = State::Binding;
    const auto token = expectResponse();
    call(QStringLiteral("BindShortcuts"),
         {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts()), QString(),
          QVariantMap{{QStringLiteral("handle_token"), token}}});
}

QString PortalHotKeyGrabber::expectResponse() {
    if (!m_request.isEmpty())
        m_bus.disconnect({}, m_request, portal::request, QStringLiteral("Response"), this,
                         SLOT(responded(uint, QVariantMap, QDBusMessage)));
    auto token = QStringLiteral("palomet%1").arg(++m_tokens);
    const auto sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_request = QStringLiteral("%1/request/%2/%3").arg(portal::path, sender, token);
    m_bus.connect({}, m_request, portal::request, QStringLiteral("Response"), this,
                  SLOT(responded(uint, QVariantMap, QDBusMessage)));
    return token;
}

void PortalHotKeyGrabber::call(const QString &method, const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(portal::service, portal::path, portal::globalShortcuts, method);
    message.setArguments(arguments);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, attempt = ++m_attempt] {
        watcher->deleteLater();
        // The answer proper comes by the request's signal; here only that there will be none.
        if (watcher->isError() && attempt == m_attempt)
            refuseAll();
    });
}

void PortalHotKeyGrabber::responded(uint code, const QVariantMap &results, const QDBusMessage &message) {
    if (message.path() != m_request)
        return;
    if (code != 0) {
        refuseAll();
        return;
    }
    if (m_state == State::Creating) {
        const auto handle = results[QStringLiteral("session_handle")];
        m_session = handle.canConvert<QDBusObjectPath>() && handle.typeId() != QMetaType::QString
                        ? handle.value<QDBusObjectPath>().path()
                        : handle.toString();
        if (!m_session.startsWith(u'/')) {
            m_session.clear();
            refuseAll();
            return;
        }
        m_bus.connect({}, m_session, portal::session, QStringLiteral("Closed"), this,
                      SLOT(sessionClosed(QDBusMessage)));
        bindShortcuts();
    } else if (m_state == State::Binding) {
        m_state = State::Bound;
        keepTriggers(results[QStringLiteral("shortcuts")]);
    }
}

void PortalHotKeyGrabber::keepTriggers(const QVariant &shortcuts) {
    const auto before = std::exchange(m_triggers, {});
    const auto list = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    for (const auto &shortcut : list) {
        const auto id = offeredId(shortcut.id);
        const auto trigger = shortcut.properties.value(QStringLiteral("trigger_description"));
        // One that has no keys is in the list all the same.
        const bool hasNoKeys = trigger.isValid() && trigger.toString().isEmpty();
        if (id && !hasNoKeys)
            m_triggers[*id] = trigger.toString();
    }
    std::set<quint32> missing;
    std::copy_if(m_held.begin(), m_held.end(), std::inserter(missing, missing.end()),
                 [this](auto id) { return !m_triggers.contains(id); });
    refuse(missing);
    for (const auto &[id, trigger] : std::map(m_triggers)) {
        if (!before.contains(id) && !m_held.contains(id))
            onGranted(id);
    }
}

std::optional<quint32> PortalHotKeyGrabber::offeredId(const QString &text) const {
    bool isNumber = false;
    const auto id = text.toUInt(&isNumber);
    const bool isOffered =
        std::any_of(m_offers.begin(), m_offers.end(), [=](const auto &offer) { return offer.id == id; });
    return isNumber && isOffered ? std::optional(id) : std::nullopt;
}

void PortalHotKeyGrabber::activated(const QDBusMessage &message) {
    const auto arguments = message.arguments();
    if (m_session.isEmpty() || arguments.size() < 2 || arguments[0].value<QDBusObjectPath>().path() != m_session)
        return;
    const auto id = offeredId(arguments[1].toString());
    if (!id)
        return;
    // A shortcut that was pressed has keys, whatever the portal said of it.
    if (m_state == State::Bound && m_triggers.try_emplace(*id).second)
        onGranted(*id);
    if (m_held.contains(*id))
        onPressed(*id);
}

void PortalHotKeyGrabber::shortcutsChanged(const QDBusMessage &message) {
    const auto arguments = message.arguments();
    if (m_session.isEmpty() || arguments.size() < 2 || arguments[0].value<QDBusObjectPath>().path() != m_session)
        return;
    // Before the answer to our own question this is no news. After it, keys can also come to a session that has none.
    if (m_state != State::Bound && m_state != State::Refused)
        return;
    m_state = State::Bound;
    keepTriggers(arguments[1]);
}

void PortalHotKeyGrabber::sessionClosed(const QDBusMessage &message) {
    if (message.path() != m_session)
        return;
    m_session.clear();
    refuseAll();
}

void PortalHotKeyGrabber::refuse(const std::set<quint32> &ids) {
    for (const auto id : ids) {
        m_held.erase(id);
        onRefused(id);
    }
}

void PortalHotKeyGrabber::refuseAll() {
    m_state = State::Refused;
    m_triggers.clear();
    refuse(std::set<quint32>(m_held));
}

void PortalHotKeyGrabber::closeSession() {
    ++m_attempt;
    m_triggers.clear();
    m_state = State::Idle;
    if (m_session.isEmpty())
        return;
    m_bus.disconnect({}, m_session, portal::session, QStringLiteral("Closed"), this, SLOT(sessionClosed(QDBusMessage)));
    m_bus.send(QDBusMessage::createMethodCall(portal::service, m_session, portal::session, QStringLiteral("Close")));
    m_session.clear();
}

void PortalHotKeyGrabber::serviceOwnerChanged(const QString &, const QString &oldOwner, const QString &newOwner) {
    if (!oldOwner.isEmpty()) {
        // Bindings are gone with the portal; the registered keys stay so, and are bound anew when it returns.
        ++m_attempt;
        m_session.clear();
        m_triggers.clear();
        m_isRegistered = false;
        m_state = State::Creating;
    }
    // The first owner may be the answer to our own first call, which is under way then.
    const bool isUnderWay = oldOwner.isEmpty() && (m_state == State::Creating || m_state == State::Binding) &&
                            !m_request.isEmpty() && m_isRegistered;
    if (!newOwner.isEmpty() && !isUnderWay && !m_offers.empty())
        begin();
}

} // namespace palomet
