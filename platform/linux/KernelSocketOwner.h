#pragma once

#include "base/SocketOwner.h"

#include <QString>

namespace palomet {

/// A `FindSocketOwner`: asks the kernel who would get a packet for the port, and whose that socket is. A kernel that
/// cannot be asked has a table of all sockets, which takes it milliseconds to write.
class KernelSocketOwner {
public:
    enum class Way { Question, Table };

    /// By a question, if that can be asked here.
    KernelSocketOwner();
    /// `proc` has the tables.
    explicit KernelSocketOwner(Way way, QString proc = QStringLiteral("/proc"));

    [[nodiscard]] SocketOwner operator()(quint16 port, quint16 from) const;

private:
    [[nodiscard]] SocketOwner fromTable(quint16 port, quint16 from) const;

    Way m_way;
    QString m_proc;
};

} // namespace palomet
