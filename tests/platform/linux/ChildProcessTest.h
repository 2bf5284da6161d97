#pragma once

#include "platform/linux/GroupGuard.h"
#include "platform/linux/startChildProcess.h"
#include "tests/support/Eventually.h"
#include "tests/support/Processes.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace Qt::StringLiterals;

inline const QString fakeBackend = u"" PALOMET_FAKE_BACKEND ""_s;
inline const QString guardPath = u"" PALOMET_GUARD ""_s;

/// A child process that behaves as $FAKE_BACKEND says.
class ChildProcessTest : public ::testing::Test {
protected:
    ChildProcessTest() {
        m_log.setFileName(folder.filePath(u"log"_s));
        EXPECT_TRUE(m_log.open(QFile::WriteOnly | QFile::Append | QFile::Unbuffered));
    }

    ChildProcess::Launch launch() {
        return {.program = fakeBackend,
                .arguments = {u"src/main.ts"_s},
                .workingDirectory = folder.path(),
                .environment = {},
                .output = m_log.handle()};
    }

    void start(std::function<void()> onExit = [] {}) { start(launch(), std::move(onExit)); }
    void start(
        const ChildProcess::Launch &what, std::function<void()> onExit = [] {}) {
        auto started = startChildProcess(what, std::move(onExit), guard);
        ASSERT_TRUE(started) << qPrintable(started.reason());
        child = std::move(*started);
        EXPECT_TRUE(eventually([this] { return log().contains("pronto "); }));
    }

    QString reasonOf(const ChildProcess::Launch &what) {
        const auto started = startChildProcess(
            what, [] { ADD_FAILURE() << "nothing was started"; }, guard);
        return started ? QString() : started.reason();
    }

    /// Starts a front end of its own, which starts the backend, and gives the backend's process once it is there.
    qint64 startFrontEnd(const QString &itsGuard) {
        QFile::resize(m_log.fileName(), 0);
        frontEnd.start(u"" PALOMET_FRONT_END ""_s, {fakeBackend, m_log.fileName(), itsGuard});
        EXPECT_TRUE(eventually([this] { return log().contains("pronto "); }));
        return test::processesNamed("pronto", log()).value(0, -1);
    }

    QByteArray log() const { return test::contentOf(m_log.fileName()); }
    QList<qint64> children() const { return test::processesNamed("filho", log()); }

    QTemporaryDir folder;
    std::shared_ptr<GroupGuard> guard = std::make_shared<GroupGuard>(guardPath);
    std::unique_ptr<ChildProcess> child;
    QProcess frontEnd;

private:
    QFile m_log;
};

} // namespace palomet::test
