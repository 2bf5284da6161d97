#pragma once

#include "audio/AudioIO.h"
#include "audio/link/LinkSocket.h"
#include "base/BackendPort.h"

#include <QThread>

namespace palomet {

/// Joins the front end's sound to the voice backend: the microphone goes up, speech and orders come down, and what was
/// heard is answered for. Lives on the main thread; its connection lives on a thread of its own, which frames of the
/// microphone and reports of played clips reach without passing the main one.
class AudioLink {
public:
    static QUrl defaultUrl() { return QUrl(QStringLiteral("ws://127.0.0.1:%1/audio").arg(backendPort)); }

    struct Parts {
        std::unique_ptr<AudioIO> io;
        Scheduler &scheduler; ///< Outlives the link.
        WakeupFactory makeWakeup;
        std::function<void(const QString &line)> note; ///< Writes a line to the log. Called on the main thread.
        QUrl url = defaultUrl();
        LinkSocket::Timing timing = {};
        qsizetype maximumFile = LinkMessageReader::maximumFileBytes;
        AdmitPeer admit = admitEverybody; ///< Called on the link's thread.
    };

    explicit AudioLink(Parts parts);
    AudioLink(const AudioLink &) = delete;
    AudioLink &operator=(const AudioLink &) = delete;
    ~AudioLink();

    /// Opens the microphone and, when that has worked or failed, but a second later at most, the connection. Once; a
    /// second call does nothing.
    void start();

    void restoreDefaultInput() { m_io->restoreDefaultInput(); }

    [[nodiscard]] AudioIO &io() { return *m_io; }

private:
    void connectOnce();
    void handle(link::Message message, quint64 connection);

    template <typename Action>
    void onLinkThread(Action action, Qt::ConnectionType type = Qt::AutoConnection) {
        QMetaObject::invokeMethod(&m_socket, std::move(action), type);
    }

    std::unique_ptr<AudioIO> m_io;
    Scheduler &m_scheduler;
    const WakeupFactory m_makeWakeup;
    bool m_isRunning = false;
    bool m_hasConnected = false;
    Scheduler::Handle m_connectDeadline;
    LinkSocket m_socket;
    QThread m_thread;
    QObject m_mainThread; ///< Receives what the link's thread asks of this one.
};

} // namespace palomet
