#include "platform/linux/ProcPortHolder.h"

#include <QDir>
#include <QFile>

#include <set>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString &path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// The inodes of the sockets that listen on a port, by a table of TCP sockets.
void collectListeners(const QByteArray &table, quint16 port, std::set<QByteArray> &inodes) {
    constexpr qsizetype addressColumn = 1;
    constexpr qsizetype stateColumn = 3;
    constexpr qsizetype inodeColumn = 9;
    const auto ending = ':' + QByteArray::number(port, 16).toUpper().rightJustified(4, '0');
    for (const auto &line : table.split('\n')) {
        const auto columns = line.simplified().split(' ');
        if (columns.size() > inodeColumn && columns[addressColumn].endsWith(ending) && columns[stateColumn] == "0A")
            inodes.insert(columns[inodeColumn]);
    }
}

bool holds(const QString &process, const std::set<QByteArray> &inodes) {
    const QDir descriptors(process + u"/fd"_s);
    for (const auto &name : descriptors.entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot)) {
        const auto target = QFile::symLinkTarget(descriptors.filePath(name)).section(u'/', -1).toLatin1();
        if (target.startsWith("socket:[") && inodes.contains(target.mid(8).chopped(1)))
            return true;
    }
    return false;
}

/// The name and the parent of a process. The name may hold anything but its own closing bracket's last place.
std::pair<QString, qint64> nameAndParent(const QString &process) {
    const auto stat = contentOf(process + u"/stat"_s);
    const auto begin = stat.indexOf('(');
    const auto end = stat.lastIndexOf(')');
    if (begin < 0 || end < begin)
        return {};
    return {QString::fromUtf8(stat.mid(begin + 1, end - begin - 1)),
            stat.mid(end + 2).split(' ').value(1).toLongLong()};
}

} // namespace

std::optional<PortHolder> procPortHolder(quint16 port, const QString &proc) {
    std::set<QByteArray> inodes;
    collectListeners(contentOf(proc + u"/net/tcp"_s), port, inodes);
    collectListeners(contentOf(proc + u"/net/tcp6"_s), port, inodes);
    if (inodes.empty())
        return std::nullopt;
    PortHolder holder;
    for (const auto &name : QDir(proc).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const auto process = name.toLongLong();
        if (process <= 0 || !holds(proc + u'/' + name, inodes))
            continue;
        holder.processId = process;
        for (auto next = process; next > 0;) {
            const auto [called, parent] = nameAndParent(proc + u'/' + QString::number(next));
            holder.lineage.append(called);
            next = parent;
        }
        break;
    }
    return holder;
}

} // namespace palomet
