#pragma once

#include "audio/capture/CaptureChain.h"
#include "audio/link/LinkMessageReader.h"
#include "audio/link/WebSocket.h"
#include "audio/speech/ClipId.h"
#include "base/PeerCheck.h"
#include "base/SpscRing.h"
#include "base/Wakeup.h"

#include <QJsonObject>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <array>
#include <chrono>
#include <functional>
#include <memory>

namespace palomet {

/// The link's connection to the backend, on a thread of its own, so that a busy window never delays a frame of the
/// microphone. Kept up for ever: what fails is tried again a second later. What is sent while there is no connection
/// is lost; every connection begins with a "hello" that names the input device.
///
/// Everything runs on the thread that the object was moved to, except `offer`.
class LinkSocket : public QObject {
public:
    struct Timing {
        std::chrono::milliseconds reconnectAfter{1000};
        /// A peer that takes the connection and then says nothing has failed.
        std::chrono::milliseconds handshakeWithin{5000};
    };

    /// While more than this waits to be sent, one second of sound, the microphone's frames are dropped.
    static constexpr qint64 maximumWaitingBytes = 32000;

    /// `maximumFile` as `LinkMessageReader` has it. `admit` is asked on the thread of the object; who is not admitted
    /// counts as one who refuses the connection.
    LinkSocket(QUrl url, Timing timing, qsizetype maximumFile = LinkMessageReader::maximumFileBytes,
               AdmitPeer admit = admitEverybody);

    /// Set before `prepare`. Called on the object's thread; `connection` is never the same for two of them.
    std::function<void(link::Message, quint64 connection)> onMessage;

    /// The real-time thread, from `prepare` until `close`: one chunk of the microphone.
    void offer(PcmSamples samples) noexcept;

    void prepare(const WakeupFactory &makeWakeup);
    void connectToBackend();
    /// Nobody offers any more.
    void close();

    void setDeviceName(const QString &name) { m_deviceName = name; }
    void sendDevice();
    /// Nothing is sent when the clip came by an earlier connection: its number may be another one's by now.
    void sendPlayed(ClipId id);

    [[nodiscard]] bool isConnected() const { return m_isGreeted; }
    /// Of the connection that there is, or was last.
    [[nodiscard]] quint64 connection() const { return m_connection; }
    /// Bytes that were sent and that the system has not taken yet, because the backend does not read.
    [[nodiscard]] qint64 waitingBytes() const { return m_socket ? m_socket->waitingBytes() : 0; }

private:
    struct Chunk {
        std::size_t size = 0;
        std::array<std::int16_t, 384> samples{};
    };

    void greet();
    void fail();
    void receive();
    void send(const QJsonObject &event);
    void sendChunks();

    const QUrl m_url;
    const Timing m_timing;
    QString m_deviceName;
    std::unique_ptr<WebSocket> m_socket;
    const qsizetype m_maximumFile;
    const AdmitPeer m_admit;
    LinkMessageReader m_reader;
    quint64 m_connection = 0;
    bool m_isGreeted = false; ///< Connected, and "hello" was sent.
    QTimer m_reconnect{this};
    QTimer m_handshake{this};

    SpscRing<Chunk> m_chunks{128}; ///< Three seconds: longer than any message keeps this thread busy.
    std::unique_ptr<Wakeup> m_bell;
};

} // namespace palomet
