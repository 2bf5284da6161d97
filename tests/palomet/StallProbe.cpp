#include "tests/palomet/StallProbe.h"

#include "tests/support/Processes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QUuid>

#include <algorithm>

namespace palomet::test {

namespace {

using namespace std::chrono_literals;

/// How long threads were ready to run while others ran, in all; each by its folder below /proc.
std::chrono::nanoseconds waited(const QStringList &threads) {
    std::chrono::nanoseconds sum{};
    for (const auto &thread : threads) {
        const auto times = contentOf(QStringLiteral("/proc/%1/schedstat").arg(thread)).split(' ');
        sum += std::chrono::nanoseconds(times.value(1).toLongLong());
    }
    return sum;
}

QString mainThread(qint64 process) {
    return QStringLiteral("%1/task/%1").arg(process);
}

/// The threads of a process that carry its messages to and from the bus.
QStringList busThreads(const QString &process) {
    QStringList found;
    const QDir tasks(QStringLiteral("/proc/%1/task").arg(process));
    for (const auto &thread : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (contentOf(tasks.filePath(thread + QStringLiteral("/comm"))).startsWith("QDBus"))
            found.append(process + QStringLiteral("/task/") + thread);
    }
    return found;
}

/// Everybody who takes part in an answer: the main thread, the bus, the asking thread, and who carries between them.
QStringList participants(const PrivateBus &bus, qint64 process) {
    return QStringList{mainThread(process), mainThread(bus.processId()), QStringLiteral("thread-self")} +
           busThreads(QString::number(process)) + busThreads(QStringLiteral("self"));
}

} // namespace

StallProbe::StallProbe(const PrivateBus &bus, qint64 process)
    : m_thread([this, address = bus.address(), threads = participants(bus, process)] { ask(address, threads); }) {}

std::chrono::milliseconds StallProbe::end() {
    m_isEnding = true;
    if (m_thread.joinable())
        m_thread.join();
    return std::chrono::duration_cast<std::chrono::milliseconds>(m_longest.load());
}

void StallProbe::ask(const QString &address, const QStringList &threads) {
    const auto name = QUuid::createUuid().toString();
    {
        const auto connection = QDBusConnection::connectToBus(address, name);
        const auto question = QDBusMessage::createMethodCall(
            QStringLiteral("org.palomet.Palomet"), QStringLiteral("/org/palomet/Palomet"),
            QStringLiteral("org.palomet.Palomet.Control"), QStringLiteral("Status"));
        while (!m_isEnding) {
            const auto waitedBefore = waited(threads);
            const auto begin = std::chrono::steady_clock::now();
            if (connection.call(question).type() == QDBusMessage::ReplyMessage)
                ++m_answers;
            const auto taken = std::chrono::steady_clock::now() - begin;
            m_longest = std::max(m_longest.load(), taken - (waited(threads) - waitedBefore));
            std::this_thread::sleep_for(2ms);
        }
    }
    QDBusConnection::disconnectFromBus(name);
}

} // namespace palomet::test
