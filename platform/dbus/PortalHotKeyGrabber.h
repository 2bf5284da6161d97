#pragma once

#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/KeyboardLayout.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <map>
#include <optional>
#include <set>

class QDBusServiceWatcher;

namespace palomet {

/// One shortcut as the portal speaks of it, a(sa{sv}) in a list.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};
QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut);
const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut);

/// Hot keys through the desktop portal's GlobalShortcuts, where the user decides. All offered hot keys are bound once,
/// in one session; registering one only lets its activations through. Nothing here waits for an answer. A portal that
/// restarts is asked again.
class PortalHotKeyGrabber final : public QObject, public HotKeyGrabber {
    Q_OBJECT

public:
    /// `applicationId` is the desktop file's name without its ending; `layout` names keys for the proposed triggers and
    /// outlives this.
    PortalHotKeyGrabber(const QDBusConnection &bus, QString applicationId, const KeyboardLayout &layout);
    ~PortalHotKeyGrabber() override;

    void offer(const std::vector<HotKeyOffer> &offers) override;
    [[nodiscard]] bool grab(quint32 id, quint32 keyCode, quint32 modifiers) override;
    [[nodiscard]] QString trigger(quint32 id) const override;
    void release(quint32 id) override;

private:
    enum class State { Idle, Creating, Binding, Bound, Refused };

    void begin();
    void createSession();
    void bindShortcuts();
    void refuse(const std::set<quint32> &ids);
    void refuseAll();
    void closeSession();
    void serviceOwnerChanged(const QString &service, const QString &oldOwner, const QString &newOwner);
    /// Subscribes to the answer of a request before it is made, and gives the token to make it with.
    QString expectResponse();
    void call(const QString &method, const QVariantList &arguments);
    /// Keeps what the desktop's user has decided, and tells of what is gone and what has come.
    void keepTriggers(const QVariant &shortcuts);
    [[nodiscard]] std::optional<quint32> offeredId(const QString &text) const;
    [[nodiscard]] QList<PortalShortcut> shortcuts() const;

private Q_SLOTS:
    void responded(uint code, const QVariantMap &results, const QDBusMessage &message);
    void activated(const QDBusMessage &message);
    void shortcutsChanged(const QDBusMessage &message);
    void sessionClosed(const QDBusMessage &message);

private:
    QDBusConnection m_bus;
    QString m_applicationId;
    const KeyboardLayout &m_layout;
    QDBusServiceWatcher *m_watcher;
    State m_state = State::Idle;
    std::vector<HotKeyOffer> m_offers;
    std::set<quint32> m_held;              ///< Registered ids, whose activations are let through.
    std::map<quint32, QString> m_triggers; ///< Bound ids, with the desktop's words for their keys.
    QString m_session;                     ///< The session's object path; empty without one.
    QString m_request;                     ///< The path of the request whose answer is awaited.
    quint64 m_tokens = 0;
    quint64 m_attempt = 0;       ///< Answers to calls of an earlier attempt are ignored.
    bool m_isRegistered = false; ///< The portal knows who we are; once a connection and portal.
};

} // namespace palomet

Q_DECLARE_METATYPE(palomet::PortalShortcut)
