#include "tests/platform/linux/ChildProcessTest.h"

#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

/// Makes this process the parent of all below it who have lost theirs, which a guard has from the start.
class Foster {
public:
    Foster() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    Foster(const Foster &) = delete;
    Foster &operator=(const Foster &) = delete;
    ~Foster() {
        prctl(PR_SET_CHILD_SUBREAPER, 0);
        EXPECT_TRUE(eventually([] {
            while (waitpid(-1, nullptr, WNOHANG) > 0) {
            }
            return processFile(getpid(), u"task/%1/children"_s.arg(getpid())).isEmpty();
        }));
    }

    /// The guard that has come to this process, or 0.
    [[nodiscard]] qint64 guard() const {
        for (const auto &word : processFile(getpid(), u"task/%1/children"_s.arg(getpid())).split(' ')) {
            const auto process = word.toLongLong();
            if (processFile(process, u"comm"_s) == "group-guard\n" && !hasEnded(process))
                return process;
        }
        return 0;
    }
};

} // namespace

TEST_F(ChildProcessTest, NeverOutlivesAFrontEndThatWasKilledAlsoWithoutAGuard) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "stubborn");
    const auto backend = startFrontEnd({});
    EXPECT_FALSE(hasEnded(backend));
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend); }));
}

TEST_F(ChildProcessTest, EndsWithAllThatItHasStartedHoweverTheFrontEndEnds) {
    for (const auto *behaviour : {"family", "parent"}) {
        const EnvironmentVariable variable("FAKE_BACKEND", behaviour);
        for (const int number : {SIGKILL, SIGSEGV, SIGABRT}) {
            const auto backend = startFrontEnd(guardPath);
            ASSERT_EQ(children().size(), 2);
            kill(static_cast<pid_t>(frontEnd.processId()), number);
            frontEnd.waitForFinished();
            EXPECT_TRUE(eventually([&] { return hasEnded(children()[0]) && hasEnded(children()[1]); })) << behaviour;
            EXPECT_TRUE(eventually([&] { return hasEnded(backend); })) << behaviour;
        }
    }
}

TEST_F(ChildProcessTest, IsAskedToEndBeforeItIsEndedWhenTheFrontEndHasEnded) {
    const EnvironmentVariable behaviour("FAKE_BACKEND", "farewell");
    const auto backend = startFrontEnd(guardPath);
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend); }));
    EXPECT_TRUE(log().contains("adeus\n"));
}

TEST_F(ChildProcessTest, IsGuardedAlsoWhenItsGuardWasKilled) {
    guard.reset();
    const Foster foster;
    const EnvironmentVariable behaviour("FAKE_BACKEND", "family");
    const auto backend = startFrontEnd(guardPath);
    const auto first = foster.guard();
    ASSERT_GT(first, 0);
    kill(static_cast<pid_t>(first), SIGKILL);
    qint64 next = 0;
    ASSERT_TRUE(eventually([&] {
        next = foster.guard();
        return next > 0 && next != first;
    }));
    frontEnd.kill();
    frontEnd.waitForFinished();
    EXPECT_TRUE(eventually([&] { return hasEnded(backend) && hasEnded(children()[0]) && hasEnded(children()[1]); }));
}

TEST_F(ChildProcessTest, HasAGuardThatKeepsNothingOfTheFrontEndsAndEndsWithItOnly) {
    guard.reset();
    const Foster foster;
    guard = std::make_shared<GroupGuard>(guardPath);
    const auto process = foster.guard();
    ASSERT_GT(process, 0);
    EXPECT_EQ(processFile(process, u"cmdline"_s), QByteArray("group-guard\0", 12));
    EXPECT_EQ(processFile(process, u"environ"_s), "");
    EXPECT_EQ(QFile::symLinkTarget(u"/proc/%1/cwd"_s.arg(process)), u"/"_s);
    const auto descriptors = test::descriptorsOf(process);
    ASSERT_EQ(descriptors.size(), 3);
    EXPECT_TRUE(descriptors[0].startsWith(u"0 -> "_s) && descriptors[0].contains(u"socket:"_s));
    EXPECT_EQ(descriptors.mid(1), (QStringList{u"1 -> /dev/null"_s, u"2 -> /dev/null"_s}));
    EXPECT_NE(getsid(static_cast<pid_t>(process)), getsid(0));
    for (const int number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT})
        kill(static_cast<pid_t>(process), number);
    start();
    child.reset();
    EXPECT_FALSE(hasEnded(process));
    guard.reset();
    EXPECT_TRUE(eventually([&] { return hasEnded(process); }));
}
