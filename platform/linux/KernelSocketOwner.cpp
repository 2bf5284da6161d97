#include "platform/linux/KernelSocketOwner.h"

#include "platform/linux/Descriptor.h"

#include <QFile>

#include <arpa/inet.h>
#include <linux/inet_diag.h>
#include <linux/netlink.h>
#include <linux/sock_diag.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>
#include <cstring>
#include <optional>
#include <utility>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

struct Question {
    nlmsghdr header{};
    inet_diag_req_v2 request{};
};

/// The socket that gets what is sent from one port of the loopback interface to another.
std::optional<inet_diag_msg> ask(const Descriptor &kernel, quint16 port, quint16 from) {
    Question question;
    question.header.nlmsg_len = sizeof question;
    question.header.nlmsg_type = SOCK_DIAG_BY_FAMILY;
    question.header.nlmsg_flags = NLM_F_REQUEST;
    question.request.sdiag_family = AF_INET;
    question.request.sdiag_protocol = IPPROTO_TCP;
    question.request.idiag_states = ~0U;
    auto &id = question.request.id;
    id.idiag_sport = htons(port);
    id.idiag_dport = htons(from);
    id.idiag_src[0] = id.idiag_dst[0] = htonl(INADDR_LOOPBACK);
    id.idiag_cookie[0] = id.idiag_cookie[1] = INET_DIAG_NOCOOKIE;
    if (send(kernel.get(), &question, sizeof question, 0) != sizeof question)
        return std::nullopt;

    alignas(nlmsghdr) std::array<char, 4096> answer{};
    const auto length = recv(kernel.get(), answer.data(), answer.size(), 0);
    nlmsghdr header{};
    inet_diag_msg found{};
    if (length < static_cast<ssize_t>(NLMSG_HDRLEN + sizeof found))
        return std::nullopt;
    std::memcpy(&header, answer.data(), sizeof header);
    if (header.nlmsg_type != SOCK_DIAG_BY_FAMILY)
        return std::nullopt;
    std::memcpy(&found, answer.data() + NLMSG_HDRLEN, sizeof found);
    return found;
}

SocketOwner ownerOf(uid_t user) {
    return user == geteuid() ? SocketOwner::Ours : SocketOwner::Others;
}

SocketOwner byQuestion(quint16 port, quint16 from) {
    const Descriptor kernel(socket(AF_NETLINK, SOCK_DGRAM | SOCK_CLOEXEC, NETLINK_SOCK_DIAG));
    auto found = ask(kernel, port, from);
    // A connection that nobody has accepted yet is nobody's: it is going to be the listener's.
    if (found && found->idiag_inode == 0)
        found = ask(kernel, port, 0);
    return found && found->idiag_inode != 0 ? ownerOf(found->idiag_uid) : SocketOwner::Unknown;
}

/// Whether the kernel finds a socket that is there.
bool canAsk() {
    const Descriptor listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    return bind(listener.get(), generic, size) == 0 && listen(listener.get(), 1) == 0 &&
           getsockname(listener.get(), generic, &size) == 0 &&
           byQuestion(ntohs(address.sin_port), 0) == SocketOwner::Ours;
}

/// A socket in one of the kernel's tables, whose columns stand in words of their own.
struct Row {
    explicit Row(const QByteArray &line)
        : m_columns(line.simplified().split(' ')) {}

    [[nodiscard]] bool isAt(quint16 port) const { return m_columns.value(1).endsWith(ending(port)); }
    [[nodiscard]] bool isFrom(quint16 port) const { return m_columns.value(2).endsWith(ending(port)); }
    [[nodiscard]] bool isListening() const { return m_columns.value(3) == "0A"; }
    [[nodiscard]] uid_t user() const { return m_columns.value(7).toUInt(); }
    [[nodiscard]] bool isSomebodys() const { return m_columns.value(9, "0") != "0"; }
    /// The loopback interface's first address, or every address, alone or as one of the newer kind.
    [[nodiscard]] bool isLocal() const {
        const auto address = m_columns.value(1).split(':').value(0);
        return address == "0100007F" || address == QByteArray(address.size(), '0') ||
               address == "0000000000000000FFFF00000100007F";
    }

private:
    static QByteArray ending(quint16 port) {
        return ':' + QByteArray::number(port, 16).toUpper().rightJustified(4, '0');
    }

    QByteArrayList m_columns;
};

} // namespace

KernelSocketOwner::KernelSocketOwner()
    : KernelSocketOwner(canAsk() ? Way::Question : Way::Table) {}

KernelSocketOwner::KernelSocketOwner(Way way, QString proc)
    : m_way(way)
    , m_proc(std::move(proc)) {}

SocketOwner KernelSocketOwner::operator()(quint16 port, quint16 from) const {
    return m_way == Way::Question ? byQuestion(port, from) : fromTable(port, from);
}

SocketOwner KernelSocketOwner::fromTable(quint16 port, quint16 from) const {
    auto listener = SocketOwner::Unknown;
    for (const auto &name : {u"/net/tcp"_s, u"/net/tcp6"_s}) {
        QFile table(m_proc + name);
        if (!table.open(QFile::ReadOnly))
            continue;
        for (const auto &line : table.readAll().split('\n')) {
            const Row row(line);
            if (!row.isAt(port) || !row.isLocal() || !row.isSomebodys())
                continue;
            if (row.isListening())
                listener = ownerOf(row.user());
            else if (from != 0 && row.isFrom(from))
                return ownerOf(row.user());
        }
    }
    return listener;
}

} // namespace palomet
