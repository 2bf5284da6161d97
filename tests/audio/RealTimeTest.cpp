#include "audio/SoundEngine.h"
#include "audio/echo/SpeechMask.h"
#include "audio/link/LinkSocket.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/RealTimeWatch.h"

#include <gtest/gtest.h>

#include <mutex>

using namespace palomet;
using namespace std::chrono_literals;

namespace {

struct CountingBell final : Wakeup {
    int rings = 0;
    void raise() noexcept override { ++rings; }
};

} // namespace

TEST(RealTime, TheWatchSeesWhatIsForbidden) {
    std::mutex mutex;
    int afterMemory = 0;
    int afterLock = 0;
    {
        const test::RealTimeWatch watch;
        int *volatile memory = new int(3); // volatile, for the compiler may leave both calls out
        delete memory;
        afterMemory = test::RealTimeWatch::offences();
        const std::lock_guard guard(mutex);
        afterLock = test::RealTimeWatch::offences();
    }
    EXPECT_EQ(afterMemory, 2);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    EXPECT_EQ(afterLock, 3);
#else
    EXPECT_EQ(afterLock, 2);
#endif
}

TEST(RealTime, CaptureAndPlaybackNeitherAllocateNorFreeNorLock) {
    LinkSocket socket(QUrl(), {});
    CountingBell *framesBell = nullptr;
    socket.prepare([&](const std::function<void()> &) {
        auto bell = std::make_unique<CountingBell>();
        framesBell = bell.get();
        return bell;
    });
    CountingBell endsBell;
    SoundEngine engine;
    engine.mixer().setBell(&endsBell);
    engine.setCapture(std::make_unique<CaptureChain>(std::make_unique<test::PassingEchoCanceller>(),
                                                     [&](PcmSamples samples) { socket.offer(samples); }));
    constexpr qint64 clips = 100;
    for (qint64 id = 0; id < clips; ++id)
        engine.mixer().submit(std::make_unique<SpeechClip>(
            SpeechClip{{id}, id < 50 ? 0U : 1U, ClipSamples(id % 5 == 0 ? 0 : 4000, 0.5F)}));

    std::vector<float> microphone(9600, 0.1F);
    std::vector<float> speakers(9600);
    int offences = 0;
    {
        const test::RealTimeWatch watch;
        engine.playbackOpened();
        std::int64_t position = 0;
        std::size_t size = 1;
        for (int round = 0; round < 2000; ++round) {
            size = size % 2399 + 7;
            engine.captured(std::span(microphone).first(size), 40ms);
            engine.fill(std::span(speakers).first(size));
            position += static_cast<std::int64_t>(size);
            engine.heard(position - 100);
            if (round == 50)
                engine.mixer().silenceBefore(1);
            if (round % 100 == 0)
                engine.turned(1.5F);
        }
        engine.playbackOpened();
        offences = test::RealTimeWatch::offences();
    }
    EXPECT_EQ(offences, 0);
    EXPECT_GT(framesBell->rings, 1000);
    EXPECT_GT(endsBell.rings, 20);
    qint64 finished = 0;
    while (engine.mixer().takeFinished())
        ++finished;
    EXPECT_EQ(finished, clips);
    socket.close();
}

TEST(RealTime, TheMaskNeitherAllocatesNorFreesNorLocks) {
    auto weights = std::make_shared<echo::MaskWeights>();
    weights->exit.biases.fill(1);
    echo::SpeechMask mask(std::move(weights));
    echo::MaskSignals signals;
    signals.linear.fill(0.1F);
    int offences = 0;
    {
        const test::RealTimeWatch watch;
        for (int i = 0; i < 100; ++i)
            (void)mask.process(signals);
        offences = test::RealTimeWatch::offences();
    }
    EXPECT_EQ(offences, 0);
}
