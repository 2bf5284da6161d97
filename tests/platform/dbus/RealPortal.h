#pragma once

#include "platform/dbus/PortalHotKeyGrabber.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTemporaryDir>

namespace palomet::test {

/// The desktop's own portal on a private bus, with the part behind it that shows dialogs and holds keys played by the
/// test: it owns the name of a desktop's backend for GlobalShortcuts and answers as told. Main thread.
class RealPortal final : public QDBusVirtualObject {
    Q_OBJECT

public:
    [[nodiscard]] static bool isInstalled();

    /// The user's decision.
    enum class Answer { Bind, BindFirstOnly, RefuseSession, RefuseBinding };
    /// Whether this desktop has somebody for GlobalShortcuts at all.
    enum class Desktop { HoldsKeys, HoldsNone };

    /// `bus` is this object's own connection to the bus at `address`.
    RealPortal(const QDBusConnection &bus, const QString &address);
    ~RealPortal() override;

    /// Another one behind the portal, of that name on the bus, who knows settings. To be told before the start.
    void addSettings(const QString &service) { m_settings.append(service); }

    /// Returns when the portal has its name; false when it does not come up.
    [[nodiscard]] bool start(Desktop desktop = Desktop::HoldsKeys);
    void kill();

    Answer answer = Answer::Bind;
    QStringList calls;            ///< Members that the portal has called, in order.
    QList<PortalShortcut> bound;  ///< What the last BindShortcuts was given.
    QMap<QString, QString> known; ///< Triggers that the desktop knows, by their ids.

    /// The user presses the keys of a shortcut.
    void activate(const QString &id);
    /// The user takes the keys away, in the desktop's settings.
    void closeSession();

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    [[nodiscard]] bool describe(const QString &file, const QString &name, const QString &interfaces) const;
    [[nodiscard]] QVariantMap bind(const QVariant &shortcuts);

    QDBusConnection m_bus;
    QString m_address;
    QString m_session;
    QStringList m_settings;
    QTemporaryDir m_folder;
    QProcess m_portal;
};

} // namespace palomet::test
