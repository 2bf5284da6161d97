#include "app/Backend.h"

#include "localization/Localization.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTimeZone>

#include <utility>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto restartDelay = 2s;
constexpr auto pollPeriod = 50ms;

QByteArray startMarker(std::chrono::system_clock::time_point now) {
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count();
    const auto date = QDateTime::fromMSecsSinceEpoch(milliseconds, QTimeZone::utc());
    return "\n--- " + date.toString(u"yyyy-MM-dd HH:mm:ss"_s).toLatin1() + " +0000 iniciando ---\n";
}

/// A number of seconds with at least one decimal: 2.0, 0.25.
QString decimal(double seconds) {
    const auto shortest = QString::number(seconds, 'f', QLocale::FloatingPointShortest);
    return shortest.contains(u'.') ? shortest : shortest + u".0"_s;
}

bool isExecutableFile(const QString &path) {
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

} // namespace

Backend::Backend(ChildProcessFactory startProcess, Scheduler &scheduler, std::optional<QString> resources, QString home)
    : m_startProcess(std::move(startProcess))
    , m_scheduler(scheduler)
    , m_resources(std::move(resources))
    , m_home(std::move(home))
    , m_log(LogFile::pathBelow(m_home)) {}

Backend::~Backend() = default;

QString Backend::toolPath(const QString &home) {
    return home + u"/.local/bin:"_s + home + u"/.npm-global/bin:"_s + home +
           u"/.bun/bin:/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin:/usr/sbin:/sbin"_s;
}

void Backend::start() {
    if (!m_resources)
        return;
    const QString runtime = *m_resources + u"/bun"_s;
    if (!isExecutableFile(runtime)) {
        m_problem = u"incomplete bundle: bun is missing"_s;
        return;
    }
    const auto log = m_log.open();
    if (!log)
        return;
    log->write(startMarker(m_scheduler.now()));
    auto process = m_startProcess(launch(runtime, log->handle()), [this] { exited(); });
    if (!process) {
        log->write(u"não consegui iniciar o assistente: %1\n"_s.arg(process.reason()).toUtf8());
        return;
    }
    m_process = std::move(*process);
}

ChildProcess::Launch Backend::launch(const QString &program, int output) const {
    const auto languages = QStringList{localization::language()} + localization::preferredLanguages();
    return {
        .program = program,
        .arguments = {u"src/main.ts"_s},
        .workingDirectory = *m_resources + u"/engine"_s,
        .environment = {{u"PATH"_s, toolPath(m_home)},
                        {u"PALOMET_APP_AUDIO"_s, u"1"_s},
                        {u"PALOMET_LANGUAGES"_s, languages.join(u',')}},
        .output = output,
    };
}

void Backend::exited() {
    // While it is being stopped the waiter still looks at it.
    if (m_isQuitting)
        return;
    m_process.reset();
    m_restart = m_scheduler.after(restartDelay, [this] { start(); });
}

void Backend::stop(std::chrono::duration<double> within, std::function<void()> done) {
    m_isQuitting = true;
    m_restart.reset();
    if (!m_process || !m_process->isRunning()) {
        done();
        return;
    }
    note(u"saindo: parando o processo de voz (pid %1)"_s.arg(m_process->processId()));
    m_process->terminate();
    m_waiter =
        std::jthread([this, within, done = std::move(done), &process = *m_process](const std::stop_token &isAbandoned) {
            endWithin(within, process, isAbandoned);
            const auto finish = [this, done] {
                m_process.reset();
                done();
            };
            QMetaObject::invokeMethod(this, finish, Qt::QueuedConnection);
        });
}

void Backend::awaitStop() {
    if (m_waiter.joinable())
        m_waiter.join();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

void Backend::endWithin(std::chrono::duration<double> within, ChildProcess &process,
                        const std::stop_token &isAbandoned) const {
    const auto deadline = std::chrono::steady_clock::now() + within;
    while (process.isRunning() && std::chrono::steady_clock::now() < deadline) {
        if (isAbandoned.stop_requested())
            return;
        std::this_thread::sleep_for(pollPeriod);
    }
    if (!process.isRunning())
        return;
    note(u"saindo: o processo de voz não parou em %1 s; encerrando à força"_s.arg(decimal(within.count())));
    process.killWithChildren();
}

} // namespace palomet
