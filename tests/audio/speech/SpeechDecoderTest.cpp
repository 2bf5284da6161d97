#include "audio/speech/SpeechDecoder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <semaphore>

using namespace palomet;
using testing::ElementsAre;

TEST(SpeechDecoder, DecodesNoFurtherAheadThanThirtyTwoMegabytesBeyondTheClipThatPlays) {
    constexpr std::size_t clipFrames = 10 * 1024 * 1024 / sizeof(float);
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<std::unique_ptr<SpeechClip>> decoded;
    int begun = 0;
    SpeechDecoder decoder(
        [&](const QByteArray &, const QString &) -> Result<ClipSamples> {
            const std::lock_guard guard(mutex);
            ++begun;
            return ClipSamples(clipFrames);
        },
        [&](std::unique_ptr<SpeechClip> clip) {
            const std::lock_guard guard(mutex);
            decoded.push_back(std::move(clip));
            changed.notify_all();
        },
        [](const SpeechDecoder::Job &, const QString &) {});
    for (qint64 id = 0; id < 20; ++id)
        EXPECT_TRUE(decoder.add({{id}, 0, {}, {}}));

    std::unique_lock guard(mutex);
    // One that plays, and 40 MB beyond it: the last of them was begun with 30.
    EXPECT_TRUE(changed.wait_for(guard, std::chrono::seconds(20), [&] { return decoded.size() == 5; }));
    for (std::size_t released = 0; released < 20; ++released) {
        EXPECT_TRUE(changed.wait_for(guard, std::chrono::seconds(20),
                                     [&] { return decoded.size() == std::min<std::size_t>(20, 5 + released); }));
        EXPECT_LE(begun, static_cast<int>(5 + released));
        auto clip = std::move(decoded[released]);
        guard.unlock();
        EXPECT_EQ(decoder.release(std::move(clip)), released == 19);
        guard.lock();
    }
}

TEST(SpeechDecoder, WhatWasDecodedDoesNotCountAsWaiting) {
    const QByteArray file(100 * 1024 * 1024, ' ');
    std::counting_semaphore<> isDone{0};
    SpeechDecoder decoder([](const QByteArray &, const QString &) -> Result<ClipSamples> { return Failure{}; },
                          [](std::unique_ptr<SpeechClip>) {},
                          [&](const SpeechDecoder::Job &, const QString &) { isDone.release(); });
    for (qint64 id = 0; id < 10; ++id) {
        EXPECT_TRUE(decoder.add({{id}, 0, file, {}})) << id;
        isDone.acquire();
    }
}

TEST(SpeechDecoder, GivesOutNothingThatWasClearedWhileItWasDecoded) {
    std::binary_semaphore isDecoding{0};
    std::binary_semaphore mayDecode{0};
    std::counting_semaphore<> isOut{0};
    std::vector<qint64> decoded;
    SpeechDecoder decoder(
        [&](const QByteArray &, const QString &) -> Result<ClipSamples> {
            isDecoding.release();
            mayDecode.acquire();
            return ClipSamples(10);
        },
        [&](std::unique_ptr<SpeechClip> clip) {
            decoded.push_back(clip->id.number);
            isOut.release();
        },
        [](const SpeechDecoder::Job &, const QString &) {});
    EXPECT_TRUE(decoder.add({{1}, 0, {}, {}}));
    isDecoding.acquire();
    decoder.clear();
    EXPECT_TRUE(decoder.add({{2}, 0, {}, {}}));
    mayDecode.release();
    isDecoding.acquire();
    mayDecode.release();
    isOut.acquire();
    EXPECT_THAT(decoded, ElementsAre(2));
}
