#pragma once

#include "app/Backend.h"
#include "platform/linux/startChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/Processes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/types.h>

namespace palomet::test {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

inline constexpr uid_t nobody = 65534;
inline const QByteArray marker = "\n--- 2026-01-05 09:30:00 +0000 iniciando ---\n";

/// The real child process, a program that behaves as $FAKE_BACKEND says.
class BackendTest : public ::testing::Test {
protected:
    BackendTest() {
        scheduler.setNow(std::chrono::sys_days{std::chrono::year{2026} / 1 / 5} + 9h + 30min);
        QDir(folder.path()).mkpath(u"resources/engine"_s);
        EXPECT_TRUE(QFile::link(u"" PALOMET_FAKE_BACKEND ""_s, runtime()));
        makeBackend();
    }

    void makeBackend() {
        backend.emplace(
            [this](const ChildProcess::Launch &launch, std::function<void()> onExit) {
                ++launches;
                return startChildProcess(launch, [this, onExit = std::move(onExit)] {
                    ++exits;
                    onExit();
                });
            },
            scheduler, resources, home());
    }

    QString home() const { return folder.path(); }
    QString runtime() const { return *resources + u"/bun"_s; }
    QString logPath() const { return LogFile::pathBelow(home()); }
    QByteArray log() const { return test::contentOf(logPath()); }
    QList<qint64> backends() const { return test::processesNamed("pronto", log()); }

    /// Starts it and gives its process, once it runs.
    qint64 start() {
        const auto before = backends().size();
        backend->start();
        return awaitNext(before);
    }
    qint64 awaitNext(qsizetype before) {
        if (!eventually([&] { return backends().size() > before; }))
            ADD_FAILURE() << "no backend: " << log().constData();
        return backends().value(before, -1);
    }

    bool stopWithin(std::chrono::duration<double> within) {
        bool isDone = false;
        backend->stop(within, [&] { isDone = true; });
        return eventually([&] { return isDone; });
    }

    QByteArray variable(qint64 process, const QByteArray &name) const {
        for (const auto &entry : test::processFile(process, u"environ"_s).split('\0')) {
            if (entry.startsWith(name + '='))
                return entry.mid(name.size() + 1);
        }
        return "(not set)";
    }

    QTemporaryDir folder;
    std::optional<QString> resources = folder.filePath(u"resources"_s);
    test::ManualScheduler scheduler;
    int launches = 0;
    int exits = 0;
    std::optional<Backend> backend;
};

} // namespace palomet::test
