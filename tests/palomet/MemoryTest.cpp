#include "platform/dbus/RemoteNames.h"
#include "tests/palomet/FollowingTest.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <algorithm>
#include <array>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

/// The memory that the program keeps of a backend's messages.
class MemoryTest : public test::FollowingTest {
protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the sanitizer keeps what was freed";
#endif
        startAndFollow();
        ASSERT_TRUE(eventually([this] { return backend.audio.isConnected(); }));
    }

    qint64 resident() const {
        return test::residentBytes(program.processId());
    }

    /// Whether so little is held after a while: the report of a clip overtakes the end of its bytes.
    testing::AssertionResult fallsBelow(qint64 limit) const {
        if (eventually([&] { return resident() < limit; }, 30s))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << resident() << " bytes are held, not fewer than " << limit;
    }

    /// Sends a clip that is none, which the program throws away as it reports it.
    bool sendNonsense(int id) {
        // The allocator treats it by its size, before and after it was decoded.
        constexpr std::array sizes{40, 30, 12};
        const auto &mebibytes = sizes[static_cast<std::size_t>(id) % sizes.size()];
        const QString letters(mebibytes * test::mebibyte, u'A');
        backend.audio.send(u"{\"type\":\"play\",\"id\":%1,\"data\":\"%2\"}"_s.arg(id).arg(letters));
        return eventually([&] { return backend.audio.played().size() == static_cast<std::size_t>(id); }, 60s);
    }

    bool isShown(const QByteArray &state) {
        backend.tell("turn");
        return eventually([&] { return command({u"--status"_s}).output.startsWith(state); }, 60s);
    }
};

} // namespace

TEST_F(MemoryTest, ThirtyHugeMessagesLeaveNoMoreBehindThanThree) {
    const auto atFirst = resident();
    int id = 0;
    while (id < 3)
        ASSERT_TRUE(sendNonsense(++id));
    EXPECT_TRUE(fallsBelow(atFirst + 12 * test::mebibyte));
    const auto afterThree = resident();
    while (id < 30)
        ASSERT_TRUE(sendNonsense(++id));
    EXPECT_TRUE(fallsBelow(afterThree + 8 * test::mebibyte));
}

TEST_F(MemoryTest, AHugeStateIsForgottenWhenItIsGone) {
    const auto document = test::endlessState();
    const auto atFirst = resident();
    for (int round = 0; round < 3; ++round) {
        backend.http.serve("/state", document);
        ASSERT_TRUE(isShown("thinking"));
        const auto held = resident();
        EXPECT_GT(held, atFirst + document.size());
        EXPECT_LT(held, atFirst + 8 * document.size());
        backend.enter(u"waiting"_s);
        ASSERT_TRUE(isShown("waiting"));
        EXPECT_TRUE(fallsBelow(atFirst + 40 * test::mebibyte));
    }
}

TEST_F(MemoryTest, TenThousandCommandsAtOnceAreRefusedBeyondALimitAndLeaveLittleBehind) {
    const auto atFirst = resident();
    const auto bus = desktop.bus.connect();
    int done = 0;
    int refused = 0;
    auto action = QDBusMessage::createMethodCall(remoteNames::service, remoteNames::path, remoteNames::application,
                                                 u"ActivateAction"_s);
    action.setArguments({u"listen"_s, QVariantList(), QVariantMap()});
    QObject calls;
    for (int call = 0; call < 10'000; ++call) {
        auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(action), &calls);
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &calls, [&done, &refused, watcher] {
            if (!watcher->isError())
                ++done;
            else if (watcher->error().type() == QDBusError::LimitsExceeded)
                ++refused;
        });
    }
    qsizetype most = 0;
    EXPECT_TRUE(eventually(
        [&] {
            most = std::max(most, test::descriptorsOf(program.processId()).size());
            return done + refused == 10'000;
        },
        60s))
        << done << " done, " << refused << " refused";
    EXPECT_GT(refused, 0);
    EXPECT_TRUE(eventually([&] { return backend.http.count("/listen") == done; })) << done;
    EXPECT_LT(most, 200);
    EXPECT_TRUE(fallsBelow(atFirst + 12 * test::mebibyte));
}
