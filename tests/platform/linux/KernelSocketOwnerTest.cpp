#include "platform/linux/KernelSocketOwner.h"

#include "tests/support/OtherUsersListener.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using Way = KernelSocketOwner::Way;

namespace {

/// A socket of this process's own.
class Socket {
public:
    explicit Socket(int family = AF_INET)
        : m_socket(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0)) {}
    explicit Socket(const Socket *listener)
        : m_socket(accept(listener->m_socket, nullptr, nullptr)) {}
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;
    ~Socket() { close(m_socket); }

    /// At every address of both kinds.
    bool listenEverywhere() {
        sockaddr_in6 address{};
        address.sin6_family = AF_INET6;
        return bind(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0 && listen(m_socket, 8) == 0;
    }
    bool listenHere() {
        auto address = loopback(0);
        return bind(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0 && listen(m_socket, 8) == 0;
    }
    bool connectTo(quint16 port) {
        auto address = loopback(port);
        return connect(m_socket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
    }
    [[nodiscard]] quint16 port() const {
        sockaddr_in6 address{};
        socklen_t size = sizeof address;
        getsockname(m_socket, reinterpret_cast<sockaddr *>(&address), &size);
        return ntohs(address.sin6_port);
    }

private:
    static sockaddr_in loopback(quint16 port) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return address;
    }

    int m_socket;
};

/// Whichever way the kernel is asked.
class KernelSocketOwnerTest : public testing::TestWithParam<Way> {
protected:
    const KernelSocketOwner ownerOf{GetParam()};
};

} // namespace

TEST_P(KernelSocketOwnerTest, KnowsOnesOwnListener) {
    Socket listener;
    ASSERT_TRUE(listener.listenHere());
    EXPECT_EQ(ownerOf(listener.port(), 0), SocketOwner::Ours);
}

TEST_P(KernelSocketOwnerTest, KnowsAListenerAtEveryAddress) {
    Socket listener(AF_INET6);
    if (!listener.listenEverywhere())
        GTEST_SKIP() << "this system has no addresses of the newer kind";
    EXPECT_EQ(ownerOf(listener.port(), 0), SocketOwner::Ours);
}

TEST_P(KernelSocketOwnerTest, KnowsTheOtherEndOfAConnectionAlsoBeforeItWasAccepted) {
    Socket listener;
    Socket client;
    ASSERT_TRUE(listener.listenHere() && client.connectTo(listener.port()));
    EXPECT_EQ(ownerOf(listener.port(), client.port()), SocketOwner::Ours);
    const Socket accepted(&listener);
    EXPECT_EQ(ownerOf(listener.port(), client.port()), SocketOwner::Ours);
}

TEST_P(KernelSocketOwnerTest, DoesNotKnowWhoeverIsNotThere) {
    quint16 port = 0;
    {
        Socket listener;
        ASSERT_TRUE(listener.listenHere());
        port = listener.port();
    }
    EXPECT_EQ(ownerOf(port, 0), SocketOwner::Unknown);
    EXPECT_EQ(ownerOf(port, 1), SocketOwner::Unknown);
}

TEST_P(KernelSocketOwnerTest, KnowsAnotherUsersListenerAndConnections) {
    if (!test::OtherUsersListener::isPossible())
        GTEST_SKIP() << "only the administrator can be somebody else";
    const test::OtherUsersListener stranger;
    ASSERT_NE(stranger.port(), 0);
    EXPECT_EQ(ownerOf(stranger.port(), 0), SocketOwner::Others);
    Socket client;
    ASSERT_TRUE(client.connectTo(stranger.port()));
    EXPECT_EQ(ownerOf(stranger.port(), client.port()), SocketOwner::Others);
}

INSTANTIATE_TEST_SUITE_P(By, KernelSocketOwnerTest, testing::Values(Way::Question, Way::Table),
                         [](const auto &tested) { return tested.param == Way::Question ? "Question" : "Table"; });

TEST(KernelSocketTable, IsReadAsTheKernelWritesIt) {
    const QTemporaryDir proc;
    QDir(proc.path()).mkpath(QStringLiteral("net"));
    const auto write = [&](const QString &name, const QByteArrayList &lines) {
        QFile file(proc.filePath(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(
            "  sl  local_address rem_address   st tx_queue rx_queue tr tm->when retrnsmt   uid  timeout inode\n" +
            lines.join('\n') + '\n');
    };
    const auto row = [](const QByteArray &from, const QByteArray &to, const QByteArray &state, uid_t user,
                        const QByteArray &inode) {
        return "   0: " + from + ' ' + to + ' ' + state + " 00000000:00000000 00:00000000 00000000 " +
               QByteArray::number(user) + " 0 " + inode + " 1 0000000000000000 100 0 0 10 0";
    };
    const KernelSocketOwner ownerOf(Way::Table, proc.path());
    EXPECT_EQ(ownerOf(4780, 0), SocketOwner::Unknown);
    const uid_t stranger = geteuid() + 1;
    // Another machine's address, another port, one that is left over of a connection that has ended.
    write(QStringLiteral("net/tcp"), {row("0101A8C0:12AC", "00000000:0000", "0A", stranger, "1"),
                                      row("0100007F:12AD", "00000000:0000", "0A", stranger, "2"),
                                      row("0100007F:12AC", "0100007F:C350", "06", 0, "0"), "", ":12AC", "x"});
    EXPECT_EQ(ownerOf(4780, 0), SocketOwner::Unknown);
    EXPECT_EQ(ownerOf(4780, 50000), SocketOwner::Unknown);
    // The listener is ours, the connection was taken by somebody else.
    write(QStringLiteral("net/tcp6"),
          {row("00000000000000000000000000000000:12AC", "00000000000000000000000000000000:0000", "0A", geteuid(), "3"),
           row("0000000000000000FFFF00000100007F:12AC", "0000000000000000FFFF00000100007F:C350", "01", stranger, "4")});
    EXPECT_EQ(ownerOf(4780, 0), SocketOwner::Ours);
    EXPECT_EQ(ownerOf(4780, 50000), SocketOwner::Others);
    EXPECT_EQ(ownerOf(4780, 50001), SocketOwner::Ours);
}

TEST(KernelSocketOwner, FindsAWayByItself) {
    Socket listener;
    ASSERT_TRUE(listener.listenHere());
    EXPECT_EQ(KernelSocketOwner()(listener.port(), 0), SocketOwner::Ours);
}
