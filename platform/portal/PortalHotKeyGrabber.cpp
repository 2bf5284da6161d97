#include "platform/portal/PortalHotKeyGrabber.h"

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>

#include <xkbcommon/xkbcommon.h>

#include <algorithm>
#include <array>

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

namespace {

const auto portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const auto requestInterface = QStringLiteral("org.freedesktop.portal.Request");
const auto sessionInterface = QStringLiteral("org.freedesktop.portal.Session");

struct NamedKey {
    quint32 keyCode;
    xkb_keysym_t keysym;
};

// Keys that type no character, and F1 to F20.
constexpr std::array namedKeys{
    NamedKey{49, XKB_KEY_space},    NamedKey{36, XKB_KEY_Return},     NamedKey{76, XKB_KEY_KP_Enter},
    NamedKey{48, XKB_KEY_Tab},      NamedKey{51, XKB_KEY_BackSpace},  NamedKey{117, XKB_KEY_Delete},
    NamedKey{53, XKB_KEY_Escape},   NamedKey{115, XKB_KEY_Home},      NamedKey{119, XKB_KEY_End},
    NamedKey{116, XKB_KEY_Page_Up}, NamedKey{121, XKB_KEY_Page_Down}, NamedKey{123, XKB_KEY_Left},
    NamedKey{124, XKB_KEY_Right},   NamedKey{126, XKB_KEY_Up},        NamedKey{125, XKB_KEY_Down},
    NamedKey{114, XKB_KEY_Insert},  NamedKey{110, XKB_KEY_Menu},      NamedKey{122, XKB_KEY_F1},
    NamedKey{120, XKB_KEY_F2},      NamedKey{99, XKB_KEY_F3},         NamedKey{118, XKB_KEY_F4},
    NamedKey{96, XKB_KEY_F5},       NamedKey{97, XKB_KEY_F6},         NamedKey{98, XKB_KEY_F7},
    NamedKey{100, XKB_KEY_F8},      NamedKey{101, XKB_KEY_F9},        NamedKey{109, XKB_KEY_F10},
    NamedKey{103, XKB_KEY_F11},     NamedKey{111, XKB_KEY_F12},       NamedKey{105, XKB_KEY_F13},
    NamedKey{107, XKB_KEY_F14},     NamedKey{113, XKB_KEY_F15},       NamedKey{106, XKB_KEY_F16},
    NamedKey{64, XKB_KEY_F17},      NamedKey{79, XKB_KEY_F18},        NamedKey{80, XKB_KEY_F19},
    NamedKey{90, XKB_KEY_F20},
};

QString keysymName(quint32 keyCode, const KeyboardLayout &layout) {
    const auto *named =
        std::find_if(namedKeys.begin(), namedKeys.end(), [=](auto key) { return key.keyCode == keyCode; });
    auto keysym = named == namedKeys.end() ? static_cast<xkb_keysym_t>(XKB_KEY_NoSymbol) : named->keysym;
    if (keysym == XKB_KEY_NoSymbol) {
        const auto character = layout.character(keyCode).value_or(QString()).toUcs4();
        if (character.size() != 1)
            return {};
        keysym = xkb_utf32_to_keysym(character.front());
    }
    std::array<char, 64> name{};
    const auto length = xkb_keysym_get_name(keysym, name.data(), name.size());
    return length > 0 ? QString::fromLatin1(name.data(), std::min<qsizetype>(length, name.size() - 1)) : QString();
}

} // namespace

PortalHotKeyGrabber::PortalHotKeyGrabber(const QDBusConnection &bus, QString applicationId,
                                         const KeyboardLayout &layout)
    : m_bus(bus)
    , m_applicationId(std::move(applicationId))
    , m_layout(layout)
    , m_watcher(new QDBusServiceWatcher(portalService, bus, QDBusServiceWatcher::WatchForOwnerChange, this)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &PortalHotKeyGrabber::serviceOwnerChanged);
    // No sender is named: that would ask the bus who it is, and wait for the answer.
    m_bus.connect({}, portalPath, shortcutsInterface, QStringLiteral("Activated"), this, SLOT(activated(QDBusMessage)));
    m_bus.connect({}, portalPath, shortcutsInterface, QStringLiteral("ShortcutsChanged"), this,
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

QString PortalHotKeyGrabber::preferredTrigger(const HotKeyOffer &offer, const KeyboardLayout &layout) {
    const auto key = keysymName(offer.keyCode, layout);
    QString trigger;
    if ((offer.modifiers & 0x1000U) != 0)
        trigger += QStringLiteral("CTRL+");
    if ((offer.modifiers & 0x800U) != 0)
        trigger += QStringLiteral("ALT+");
    if ((offer.modifiers & 0x200U) != 0)
        trigger += QStringLiteral("SHIFT+");
    if ((offer.modifiers & 0x100U) != 0)
        trigger += QStringLiteral("LOGO+");
    return key.isEmpty() || trigger.isEmpty() ? QString() : trigger + key;
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
        auto message = QDBusMessage::createMethodCall(portalService, portalPath,
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
                      // Where binding is done by this call alone.
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
        m_bus.disconnect({}, m_request, requestInterface, QStringLiteral("Response"), this,
                         SLOT(responded(uint, QVariantMap, QDBusMessage)));
    auto token = QStringLiteral("palomet%1").arg(++m_tokens);
    const auto sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    m_request = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
    m_bus.connect({}, m_request, requestInterface, QStringLiteral("Response"), this,
                  SLOT(responded(uint, QVariantMap, QDBusMessage)));
    return token;
}

void PortalHotKeyGrabber::call(const QString &method, const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(portalService, portalPath, shortcutsInterface, method);
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
        m_bus.connect({}, m_session, sessionInterface, QStringLiteral("Closed"), this,
                      SLOT(sessionClosed(QDBusMessage)));
        bindShortcuts();
    } else if (m_state == State::Binding) {
        m_state = State::Bound;
        keepTriggers(results[QStringLiteral("shortcuts")]);
        std::set<quint32> missing;
        for (const auto id : m_held) {
            if (!m_triggers.contains(id))
                missing.insert(id);
        }
        refuse(missing);
    }
}

void PortalHotKeyGrabber::keepTriggers(const QVariant &shortcuts) {
    m_triggers.clear();
    const auto list = qdbus_cast<QList<PortalShortcut>>(shortcuts);
    for (const auto &shortcut : list) {
        bool isNumber = false;
        const auto id = shortcut.id.toUInt(&isNumber);
        const bool isOffered =
            std::any_of(m_offers.begin(), m_offers.end(), [=](const auto &offer) { return offer.id == id; });
        if (isNumber && isOffered)
            m_triggers[id] = shortcut.properties[QStringLiteral("trigger_description")].toString();
    }
}

void PortalHotKeyGrabber::activated(const QDBusMessage &message) {
    const auto arguments = message.arguments();
    if (m_session.isEmpty() || arguments.size() < 2 || arguments[0].value<QDBusObjectPath>().path() != m_session)
        return;
    bool isNumber = false;
    const auto id = arguments[1].toString().toUInt(&isNumber);
    if (isNumber && m_held.contains(id))
        onPressed(id);
}

void PortalHotKeyGrabber::shortcutsChanged(const QDBusMessage &message) {
    const auto arguments = message.arguments();
    if (m_state == State::Bound && arguments.size() >= 2 && arguments[0].value<QDBusObjectPath>().path() == m_session)
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
    m_bus.disconnect({}, m_session, sessionInterface, QStringLiteral("Closed"), this,
                     SLOT(sessionClosed(QDBusMessage)));
    m_bus.send(QDBusMessage::createMethodCall(portalService, m_session, sessionInterface, QStringLiteral("Close")));
    m_session.clear();
}

void PortalHotKeyGrabber::serviceOwnerChanged(const QString &, const QString &oldOwner, const QString &newOwner) {
    if (!oldOwner.isEmpty()) {
        // What was bound is gone with the portal; what is registered stays so, and is bound anew when it returns.
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
