#include "platform/sway/SwayWindowManagement.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>

#include <array>
#include <cstring>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// What a message begins with, both ways: this, the length of what follows, and its kind, in the machine's byte order.
constexpr QByteArrayView magic("i3-ipc");
using Numbers = std::array<quint32, 2>;
constexpr qsizetype headerSize = magic.size() + static_cast<qsizetype>(sizeof(Numbers));
constexpr quint32 runCommand = 0;
/// An answer to one command is a line.
constexpr quint32 longestAnswer = 64 * 1024;

QByteArray command(const QByteArray &text) {
    const Numbers numbers{static_cast<quint32>(text.size()), runCommand};
    return magic.toByteArray() + QByteArray(reinterpret_cast<const char *>(numbers.data()), sizeof numbers) + text;
}

/// The length of the answer that begins so; larger than any where it is none.
quint32 lengthIn(const QByteArray &header) {
    Numbers numbers{};
    std::memcpy(numbers.data(), header.constData() + magic.size(), sizeof numbers);
    return header.startsWith(magic) && numbers[1] == runCommand ? numbers[0] : longestAnswer + 1;
}

bool isSuccess(const QByteArray &answer) {
    return QJsonDocument::fromJson(answer)[0]["success"_L1].toBool();
}

} // namespace

SwayWindowManagement::SwayWindowManagement(QString socket, Kind kind, std::unique_ptr<WindowManagement> otherwise)
    : m_path(std::move(socket))
    , m_kind(kind)
    , m_otherwise(std::move(otherwise)) {}

SwayWindowManagement::~SwayWindowManagement() {
    delete std::exchange(m_socket, nullptr);
}

void SwayWindowManagement::introduce(quintptr window) {
    m_otherwise->introduce(window);
}

bool SwayWindowManagement::activate(quintptr window) {
    // The last one counts.
    if (m_socket)
        settle(window, true);
    ask(window);
    return true;
}

QByteArray SwayWindowManagement::criteria(quintptr window) const {
    if (m_kind == Kind::XWayland)
        return "[id=" + QByteArray::number(window) + ']';
    // Such a window has no number that both know. Its title is the program's name, and no dialog's.
    return "[pid=" + QByteArray::number(QCoreApplication::applicationPid()) + " title=\"^Palomet$\"]";
}

void SwayWindowManagement::ask(quintptr window) {
    m_socket = new QLocalSocket(this);
    connect(m_socket, &QLocalSocket::connected, this,
            [this, window] { m_socket->write(command(criteria(window) + " focus")); });
    connect(m_socket, &QLocalSocket::readyRead, this, [this, window] { read(window); });
    // Its end is an error too.
    connect(m_socket, &QLocalSocket::errorOccurred, this, [this, window] { settle(window, false); });
    m_socket->connectToServer(m_path);
}

void SwayWindowManagement::read(quintptr window) {
    const auto header = m_socket->peek(headerSize);
    if (header.size() < headerSize)
        return;
    const auto length = lengthIn(header);
    if (length > longestAnswer)
        return settle(window, false);
    if (m_socket->bytesAvailable() >= headerSize + length)
        settle(window, isSuccess(m_socket->readAll().mid(headerSize)));
}

void SwayWindowManagement::settle(quintptr window, bool isDone) {
    auto *socket = std::exchange(m_socket, nullptr);
    socket->disconnect(this);
    socket->deleteLater();
    if (!isDone)
        // Without a window manager that can be asked nothing is left.
        static_cast<void>(m_otherwise->activate(window));
}

} // namespace palomet
