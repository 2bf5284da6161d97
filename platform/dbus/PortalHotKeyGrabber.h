#pragma once

#include "platform/dbus/PortalRequest.h"
#include "platform/dbus/PortalShortcut.h"
#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/KeyboardLayout.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <map>
#include <optional>
#include <set>

class QDBusServiceWatcher;

namespace palomet {

/// Hot keys through the desktop portal's GlobalShortcuts, where the user decides. All offered hot keys share one
/// session, whose name is the same in every run: by that a desktop knows them again. They are bound only where the
/// desktop does not know all of them, or the user has just chosen one; registering one only lets its activations
/// through. Nothing here waits for an answer. A portal that restarts is asked again.
class PortalHotKeyGrabber final : public QObject, public HotKeyGrabber {
    Q_OBJECT

public:
    /// `applicationId` is the desktop file's name without its ending; `layout` names keys for the proposed triggers and
    /// outlives this.
    PortalHotKeyGrabber(const QDBusConnection &bus, QString applicationId, const KeyboardLayout &layout);
    ~PortalHotKeyGrabber() override;

    void offer(const std::vector<HotKeyOffer> &offers, Occasion occasion) override;
    [[nodiscard]] bool isPossible() const override { return m_isPossible; }
    [[nodiscard]] bool grab(quint32 id, quint32 keyCode, quint32 modifiers) override;
    [[nodiscard]] QString trigger(quint32 id) const override;
    [[nodiscard]] bool isKnown(quint32 id) const override { return !trigger(id).isEmpty(); }
    void release(quint32 id) override;

private:
    enum class State {
        Closing,  ///< An earlier session is to end first, for its name is the next one's.
        Creating, ///< The session.
        Asking,   ///< What is known of the keys, then perhaps the desktop's user.
        Bound,
        Refused,
    };
    using Results = std::optional<QVariantMap>;

    [[nodiscard]] bool isPending() const { return m_state != State::Bound && m_state != State::Refused; }
    void begin();
    void beginAgain();
    void createSession();
    void sessionCreated(const Results &results);
    void listShortcuts(void (PortalHotKeyGrabber::*listed)(const Results &));
    void bindWhereMissing(const Results &listed);
    void bindShortcuts();
    void bound(const Results &results);
    [[nodiscard]] bool knowsAll(const QVariant &shortcuts) const;
    void refuse(const std::set<quint32> &ids);
    void refuseAll();
    /// Whatever is awaited counts no more; the state is `Closing` where a session has to end.
    void closeSession();
    void serviceOwnerChanged(const QString &service, const QString &oldOwner, const QString &newOwner);
    /// Keeps what the desktop's user has decided, and tells of what is gone and what has come.
    void keepTriggers(const QVariant &shortcuts);
    [[nodiscard]] std::optional<quint32> offeredId(const QString &text) const;
    [[nodiscard]] QList<PortalShortcut> shortcuts() const;

private Q_SLOTS:
    void activated(const QDBusMessage &message);
    void shortcutsChanged(const QDBusMessage &message);
    void sessionClosed(const QDBusMessage &message);

private:
    QDBusConnection m_bus;
    QString m_applicationId;
    const KeyboardLayout &m_layout;
    QDBusServiceWatcher *m_watcher;
    State m_state = State::Refused;
    std::vector<HotKeyOffer> m_offers;
    std::set<quint32> m_held;              ///< Registered ids, whose activations are let through.
    std::map<quint32, QString> m_triggers; ///< Bound ids, with the desktop's words for their keys.
    QString m_session;                     ///< The session's object path; empty without one.
    PortalRequest m_request;
    bool m_isRegistered = false; ///< The portal knows who we are; once a connection and portal.
    bool m_isChosen = false;     ///< The user has just chosen: bind, whatever the desktop knows.
    bool m_isOfferNewer = false; ///< Something else was offered while the session was being made.
    bool m_isToldAgain = false;  ///< The portal has told of the keys once more.
    bool m_isPossible = true;
};

} // namespace palomet
