#pragma once

#include "command/RemoteClient.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

namespace palomet {

/// Knocks at the running instance's door on the session bus.
class DBusRemoteClient final : public QObject, public RemoteClient {
    Q_OBJECT

public:
    explicit DBusRemoteClient(const QDBusConnection &bus);

    [[nodiscard]] std::optional<Failure> send(const RemoteCommand &command) override;
    [[nodiscard]] Result<RemoteStatus> status() override;
    [[nodiscard]] std::optional<Failure> follow(std::function<void(const RemoteStatus &)> changed,
                                                std::function<void()> gone) override;
    [[nodiscard]] bool waitUntilGone(std::chrono::milliseconds limit) override;

private Q_SLOTS:
    void statusChanged(const QString &json);

private:
    /// The answer to a call, or why there is none; the running instance is never started by it.
    [[nodiscard]] Result<QVariantList> call(const QString &interface, const QString &member,
                                            const QVariantList &arguments);

    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    std::function<void(const RemoteStatus &)> m_changed;
    std::function<void()> m_gone;
};

} // namespace palomet
