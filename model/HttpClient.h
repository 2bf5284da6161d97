#pragma once

#include "base/PeerCheck.h"
#include "model/HttpExchange.h"

#include <QNetworkAccessManager>
#include <QUrl>

#include <map>
#include <memory>

namespace palomet {

/// Plain HTTP to one base address: no proxy, no redirect, no cookie, no compression. Main thread only; answers come
/// from the event loop.
class HttpClient {
public:
    /// `scheduler` outlives this. Who answers at the base address without being admitted counts as a connection that
    /// was refused: before a request, before the body of a command, and before what is answered.
    HttpClient(QUrl base, Scheduler &scheduler, AdmitPeer admit = admitEverybody);

    /// Fetches a document. All of it must have come `timeout` from now. Requests of one path wait for each other only,
    /// when there are more than six.
    [[nodiscard]] std::unique_ptr<HttpExchange> get(const QString &path, std::chrono::milliseconds timeout,
                                                    HttpExchange::Answer answer);

    /// Opens a document without an end, to be read as it comes, with at most `bufferSize` bytes held.
    [[nodiscard]] ReplyOwner stream(const QString &path, qint64 bufferSize);

    /// Sends a command, at once and at most once: on a connection of its own, behind nothing that hangs, and never
    /// again when the connection breaks. Without a body it carries no content type; an empty body is JSON that could
    /// not be written. `done` is called once, when the reply has ended or failed, unless this client is destroyed
    /// before. Whether it was sent: not while it is busy, and `done` is then never called.
    bool post(const QString &path, const std::optional<QByteArray> &json, std::chrono::milliseconds timeout,
              std::function<void()> done);

    /// As many commands are on their way as there may be.
    [[nodiscard]] bool isBusy() const { return m_commands.size() >= maximumCommands; }

    /// Many more than a user can give while a backend hangs, and few enough connections.
    static constexpr std::size_t maximumCommands = 64;

private:
    /// A command on its way.
    struct Command {
        QNetworkAccessManager *manager = nullptr;
        std::unique_ptr<HttpExchange> exchange;
    };

    [[nodiscard]] QNetworkAccessManager *commandManager();
    void end(quint64 command);
    [[nodiscard]] QNetworkRequest request(const QString &path, const QString &pool) const;
    [[nodiscard]] bool isAdmitted() const;
    /// The request that `send` begins, if it may begin; abandoned when another user's program would answer it.
    template <typename Send>
    [[nodiscard]] ReplyOwner guarded(Send send) const;

    QUrl m_base;
    Scheduler &m_scheduler;
    const AdmitPeer m_admit;
    QNetworkAccessManager m_manager;
    QObject m_commandManagers; ///< Their parent.
    QNetworkAccessManager *m_commandManager = nullptr;
    quint64 m_commandCount = 0;
    std::map<quint64, Command> m_commands;
};

} // namespace palomet
