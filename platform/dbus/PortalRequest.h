#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace palomet {

struct PortalResponse {
    /// None when the portal or the desktop's user refuses, or the portal does not know the call.
    std::optional<QVariantMap> results;
    bool isCancelled = false; ///< It was the user who refused.
};

/// A request to one interface of the desktop's portal, whose answer comes later, as a signal of the request's own. The
/// newest request alone counts. Nothing waits for it. Main thread.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    using Arguments = std::function<QVariantList(const QString &token)>;
    using Answered = std::function<void(const PortalResponse &response)>;

    PortalRequest(const QDBusConnection &bus, QString interface);

    /// `arguments` gives those of the call for a token, its `handle_token`. `answered` is called from the event loop,
    /// at most once.
    void make(const QString &method, const Arguments &arguments, Answered answered);

    /// An answer that is still to come does not count any more.
    void withdraw();
    /// The same, and the portal takes away what it shows for it.
    void close();
    [[nodiscard]] bool isPending() const { return m_answered != nullptr; }

private Q_SLOTS:
    void responded(uint code, const QVariantMap &results, const QDBusMessage &message);

private:
    void answer(const PortalResponse &response);

    QDBusConnection m_bus;
    const QString m_interface;
    QString m_path;      ///< Of the request whose answer is awaited.
    Answered m_answered; ///< Empty while none is.
};

} // namespace palomet
