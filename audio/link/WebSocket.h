#pragma once

#include "audio/link/WebSocketReader.h"

#include <QByteArray>
#include <QObject>
#include <QTcpSocket>
#include <QUrl>

#include <functional>

namespace palomet {

/// One connection to a WebSocket server, from the attempt to its end; not used again then. What comes is handed on
/// piece by piece, and what waits to be sent is bounded, so that it holds little whatever the server does. No proxy, no
/// redirect, no origin, no extension. Everything runs on the thread where it was made.
class WebSocket : public QObject {
public:
    /// The server's answer to the request may be this large.
    static constexpr qsizetype maximumAnswerBytes = qsizetype{16} * 1024;
    /// A server that lets more than this wait, since it does not read, has failed.
    static constexpr qint64 maximumWaitingBytes = qint64{4} * 1024 * 1024;

    /// Set before `open`. None is called from within `open`.
    std::function<void()> onOpen;
    std::function<void(QByteArrayView piece)> onText; ///< More of a text message; binary ones are passed over.
    std::function<void()> onTextEnd;                  ///< The message is complete.
    /// Refused, closed or broken; called once. It may be this object that calls: delete it later.
    std::function<void()> onEnd;

    WebSocket();
    ~WebSocket() override;

    void open(const QUrl &url);

    /// Takes leave of the server without waiting for its answer. Nothing is called any more.
    void end();

    // Once `onOpen` was called, until `onEnd` is; otherwise nothing is sent.
    void sendText(const QByteArray &utf8);
    void sendBinary(const QByteArray &bytes);

    /// The two ends of the connection, for whoever wants to know who is at the other one.
    [[nodiscard]] quint16 localPort() const { return m_socket.localPort(); }
    [[nodiscard]] quint16 peerPort() const { return m_socket.peerPort(); }

    /// Bytes that were sent and that the system has not taken yet.
    [[nodiscard]] qint64 waitingBytes() const { return m_socket.bytesToWrite(); }

private:
    enum class State { Closed, Asking, Open };

    void ask(const QUrl &url);
    void receive();
    [[nodiscard]] bool readAnswer(QByteArray &bytes);
    [[nodiscard]] bool isAgreement(QByteArrayView answer) const;
    void send(unsigned opcode, QByteArrayView payload);
    void write(unsigned opcode, QByteArrayView payload);
    void fail();

    QTcpSocket m_socket;
    State m_state = State::Closed;
    QByteArray m_key;
    QByteArray m_answer;
    WebSocketReader m_reader;
};

} // namespace palomet
