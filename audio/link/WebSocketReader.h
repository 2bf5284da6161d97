#pragma once

#include <QByteArrayView>

#include <array>
#include <functional>

namespace palomet {

/// Takes apart what a WebSocket server sends (RFC 6455), in pieces of any size, and hands messages on as they come:
/// however long one is, no more than a control frame of 125 bytes is held. Pure; one thread.
class WebSocketReader {
public:
    /// Called from within `read`. Set before.
    std::function<void(QByteArrayView piece)> onText = [](QByteArrayView) {}; ///< More of a text message.
    std::function<void()> onTextEnd = [] {};                                  ///< The message is complete.
    std::function<void(QByteArrayView payload)> onPing = [](QByteArrayView) {};

    /// The next bytes of the stream. False when the server has closed it, or breaks the protocol: there is nothing
    /// more to read then, and messages that were not complete are void.
    [[nodiscard]] bool read(QByteArrayView bytes);

private:
    enum Opcode : unsigned { Continuation = 0, Text = 1, Binary = 2, Close = 8, Ping = 9, Pong = 10 };
    static constexpr qsizetype maximumControlSize = 125;

    [[nodiscard]] bool readHeader(unsigned char byte);
    [[nodiscard]] bool begin();
    [[nodiscard]] bool end();
    [[nodiscard]] bool isControl() const { return m_opcode >= Close; }

    std::array<unsigned char, 10> m_header{}; ///< Two bytes, and up to eight of the length.
    std::size_t m_headerSize = 0;
    bool m_isInPayload = false;
    bool m_isFinal = false;
    unsigned m_opcode = Continuation;
    unsigned m_message = Continuation; ///< What the message is that is under way, if there is one.
    quint64 m_left = 0;                ///< Of the frame's payload.
    std::array<char, maximumControlSize> m_control{};
    qsizetype m_controlSize = 0;
};

} // namespace palomet
