#pragma once

#include "platform/dbus/PortalHotKeyGrabber.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusVirtualObject>

#include <functional>
#include <optional>

namespace palomet::test {

/// A portal that the test plays: it owns the portal's name on the private bus and answers GlobalShortcuts as told.
class FakePortal final : public QDBusVirtualObject {
    Q_OBJECT

public:
    enum class Answer {
        Bind,
        BindFirstOnly,
        BindWithoutResults,
        ListNothing,
        RefuseSession,
        RefuseBinding,
        Error,
        Nothing,
    };

    explicit FakePortal(const QDBusConnection &bus);
    ~FakePortal() override;

    /// Takes the portal's name, or gives it back, as a portal that starts and ends.
    void appear();
    void vanish();

    Answer answer = Answer::Bind;
    QStringList calls;             ///< Members called, in order.
    QList<PortalShortcut> created; ///< What CreateSession was given.
    QList<PortalShortcut> bound;   ///< What BindShortcuts was given.
    QMap<QString, QString> known;  ///< Triggers that the desktop knows, by their ids.
    /// Of a portal that binds by the session alone: what becomes of the keys. It says so to every session but the
    /// first.
    std::optional<QMap<QString, QString>> truth;
    QString session;                                        ///< The last session's path.
    QStringList sessionTokens;                              ///< Those of all sessions, in order.
    int collisions = 0;                                     ///< Sessions made beside one of the same name.
    std::optional<std::pair<QString, QVariantMap>> pending; ///< With `Nothing`: the request to answer later.

    void activate(const QString &id, const QString &inSession = {});
    /// The user has changed the session's shortcuts: now these ids have these triggers.
    void change(const QMap<QString, QString> &triggers);
    void closeSession();
    void respond(const QString &request, uint code, const QVariantMap &results);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    bool answerCreation(const QDBusMessage &message);
    bool answerBinding(const QDBusMessage &message);
    bool answerListing(const QDBusMessage &message);

    QDBusConnection m_bus;
    bool m_isSessionOpen = false;
};

} // namespace palomet::test
