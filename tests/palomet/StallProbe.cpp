#include "tests/palomet/StallProbe.h"

#include "tests/support/Processes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QUuid>

#include <algorithm>

namespace palomet::test {

namespace {

using namespace std::chrono_literals;

/// How long the main thread was ready to run, and others ran.
std::chrono::nanoseconds waited(qint64 process) {
    const auto path = QStringLiteral("task/%1/schedstat").arg(process);
    return std::chrono::nanoseconds(processFile(process, path).split(' ').value(1).toLongLong());
}

} // namespace

StallProbe::StallProbe(const QString &bus, qint64 process)
    : m_thread([this, bus, process] { ask(bus, process); }) {}

std::chrono::milliseconds StallProbe::end() {
    m_isEnding = true;
    if (m_thread.joinable())
        m_thread.join();
    return std::chrono::duration_cast<std::chrono::milliseconds>(m_longest.load());
}

void StallProbe::ask(const QString &bus, qint64 process) {
    const auto name = QUuid::createUuid().toString();
    {
        const auto connection = QDBusConnection::connectToBus(bus, name);
        const auto question = QDBusMessage::createMethodCall(
            QStringLiteral("org.palomet.Palomet"), QStringLiteral("/org/palomet/Palomet"),
            QStringLiteral("org.palomet.Palomet.Control"), QStringLiteral("Status"));
        while (!m_isEnding) {
            const auto waitedBefore = waited(process);
            const auto begin = std::chrono::steady_clock::now();
            if (connection.call(question).type() == QDBusMessage::ReplyMessage)
                ++m_answers;
            const auto taken = std::chrono::steady_clock::now() - begin;
            m_longest = std::max(m_longest.load(), taken - (waited(process) - waitedBefore));
            std::this_thread::sleep_for(2ms);
        }
    }
    QDBusConnection::disconnectFromBus(name);
}

} // namespace palomet::test
