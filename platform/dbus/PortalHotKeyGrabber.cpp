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

using namespace Qt::StringLiterals;

PortalHotKeyGrabber::PortalHotKeyGrabber(const QDBusConnection &bus, QString applicationId,
                                         const KeyboardLayout &layout)
    : m_bus(bus)
    , m_applicationId(std::move(applicationId))
    , m_layout(layout)
    , m_watcher(new QDBusServiceWatcher(portal::service, bus, QDBusServiceWatcher::WatchForOwnerChange, this))
    , m_request(bus, portal::globalShortcuts) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalHotKeyGrabber::serviceOwnerChanged);
    // No sender is named: that would ask the bus who it is, and wait for the answer.
    m_bus.connect({}, portal::path, portal::globalShortcuts, u"Activated"_s, this, SLOT(activated(QDBusMessage)));
    m_bus.connect({}, portal::path, portal::globalShortcuts, u"ShortcutsChanged"_s, this,
                  SLOT(shortcutsChanged(QDBusMessage)));
}

PortalHotKeyGrabber::~PortalHotKeyGrabber() {
    closeSession();
}

void PortalHotKeyGrabber::offer(const std::vector<HotKeyOffer> &offers, Occasion occasion) {
    if (offers == m_offers && occasion == Occasion::Known)
        return;
    m_offers = offers;
    m_isChosen = m_isChosen || occasion == Occasion::Chosen;
    beginAgain();
}

bool PortalHotKeyGrabber::grab(quint32 id, quint32 keyCode, quint32 modifiers) {
    static_cast<void>(keyCode);
    static_cast<void>(modifiers);
    if (!isPending() && !m_triggers.contains(id))
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
        QVariantMap properties{{u"description"_s, offer.description}};
        if (const auto trigger = preferredTrigger(offer, m_layout); !trigger.isEmpty())
            properties[u"preferred_trigger"_s] = trigger;
        list.append({QString::number(offer.id), properties});
    }
    return list;
}

void PortalHotKeyGrabber::beginAgain() {
    // The portal would not take a second session of the same name beside one that is being made, or is not closed yet.
    m_isOfferNewer = m_state == State::Creating;
    if (m_isOfferNewer || m_state == State::Closing)
        return;
    m_isToldAgain = false;
    closeSession();
    if (m_state != State::Closing)
        begin();
}

void PortalHotKeyGrabber::begin() {
    m_isOfferNewer = false;
    m_isPossible = m_bus.isConnected();
    if (m_offers.empty() || !m_isPossible) {
        m_state = State::Refused;
        return;
    }
    if (!m_isRegistered) {
        // Newer portals want to be told who asks, before anything else is asked; older ones do not know the question.
        m_isRegistered = true;
        auto message = QDBusMessage::createMethodCall(portal::service, portal::path,
                                                      u"org.freedesktop.host.portal.Registry"_s, u"Register"_s);
        message.setArguments({m_applicationId, QVariantMap()});
        m_bus.send(message);
    }
    createSession();
}

void PortalHotKeyGrabber::createSession() {
    m_state = State::Creating;
    const auto arguments = [this](const QString &token) {
        return QVariantList{QVariantMap{{u"handle_token"_s, token},
                                        {u"session_handle_token"_s, u"palomet"_s},
                                        // Some portals bind by this call alone.
                                        {u"shortcuts"_s, QVariant::fromValue(shortcuts())}}};
    };
    m_request.make(u"CreateSession"_s, arguments, [this](const auto &response) { sessionCreated(response.results); });
}

void PortalHotKeyGrabber::sessionCreated(const Results &results) {
    const auto handle = results.value_or(QVariantMap())[u"session_handle"_s];
    const auto path =
        handle.typeId() == qMetaTypeId<QDBusObjectPath>() ? handle.value<QDBusObjectPath>().path() : handle.toString();
    if (!path.startsWith(u'/')) {
        if (m_isOfferNewer)
            return begin();
        m_isPossible = false;
        return refuseAll();
    }
    m_session = path;
    m_bus.connect({}, m_session, portal::session, u"Closed"_s, this, SLOT(sessionClosed(QDBusMessage)));
    m_state = State::Asking;
    // A portal that binds by the session alone tells the wished keys of those that are new to it, whatever became of
    // them; to the next session it tells what is.
    const bool isWishedOnly = results->contains(u"shortcuts"_s) && !std::exchange(m_isToldAgain, true);
    if (m_isOfferNewer || isWishedOnly)
        closeSession();
    else if (m_isChosen)
        bindShortcuts();
    else
        listShortcuts(&PortalHotKeyGrabber::bindWhereMissing);
}

void PortalHotKeyGrabber::listShortcuts(void (PortalHotKeyGrabber::*listed)(const Results &)) {
    const auto arguments = [this](const QString &token) {
        return QVariantList{QVariant::fromValue(QDBusObjectPath(m_session)), QVariantMap{{u"handle_token"_s, token}}};
    };
    m_request.make(u"ListShortcuts"_s, arguments,
                   [this, listed](const auto &response) { (this->*listed)(response.results); });
}

void PortalHotKeyGrabber::bindWhereMissing(const Results &listed) {
    if (listed && knowsAll(listed->value(u"shortcuts"_s)))
        bound(listed);
    else
        bindShortcuts();
}

void PortalHotKeyGrabber::bindShortcuts() {
    m_isChosen = false;
    const auto arguments = [this](const QString &token) {
        return QVariantList{QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts()),
                            QString(), QVariantMap{{u"handle_token"_s, token}}};
    };
    m_request.make(u"BindShortcuts"_s, arguments, [this](const auto &response) {
        const auto &results = response.results;
        // Some portals do not say in the answer what was granted.
        if (results && !results->contains(u"shortcuts"_s))
            listShortcuts(&PortalHotKeyGrabber::bound);
        else
            bound(results);
    });
}

void PortalHotKeyGrabber::bound(const Results &results) {
    if (!results)
        return refuseAll();
    m_state = State::Bound;
    keepTriggers(results->value(u"shortcuts"_s));
}

bool PortalHotKeyGrabber::knowsAll(const QVariant &shortcuts) const {
    std::set<quint32> known;
    for (const auto &shortcut : qdbus_cast<QList<PortalShortcut>>(shortcuts)) {
        if (const auto id = offeredId(shortcut.id))
            known.insert(*id);
    }
    return known.size() == m_offers.size();
}

void PortalHotKeyGrabber::keepTriggers(const QVariant &shortcuts) {
    const auto before = std::exchange(m_triggers, {});
    const auto list = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    for (const auto &shortcut : list) {
        const auto id = offeredId(shortcut.id);
        const auto trigger = shortcut.properties.value(u"trigger_description"_s);
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
    if (m_triggers != before)
        onTriggersChanged();
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
    m_request.withdraw();
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
    onTriggersChanged();
}

void PortalHotKeyGrabber::closeSession() {
    m_request.withdraw();
    m_triggers.clear();
    m_state = State::Refused;
    if (m_session.isEmpty())
        return;
    m_state = State::Closing;
    m_bus.disconnect({}, m_session, portal::session, u"Closed"_s, this, SLOT(sessionClosed(QDBusMessage)));
    const auto close = QDBusMessage::createMethodCall(portal::service, m_session, portal::session, u"Close"_s);
    m_session.clear();
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(close), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (m_state == State::Closing)
            begin();
    });
}

void PortalHotKeyGrabber::serviceOwnerChanged(const QString &, const QString &oldOwner, const QString &newOwner) {
    if (!oldOwner.isEmpty()) {
        // Bindings are gone with the portal; the registered keys stay so, and are bound anew when it returns.
        m_request.withdraw();
        m_session.clear();
        m_triggers.clear();
        m_isRegistered = false;
        m_isToldAgain = false;
        m_state = State::Creating;
        onTriggersChanged();
    }
    // The first owner may be the answer to our own first call, which is under way then.
    const bool isUnderWay = oldOwner.isEmpty() && m_request.isPending() && m_isRegistered;
    if (!newOwner.isEmpty() && !isUnderWay && !m_offers.empty())
        begin();
}

} // namespace palomet
