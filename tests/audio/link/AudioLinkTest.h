#pragma once

#include "audio/link/AudioLink.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/QueuedWakeup.h"
#include "tests/support/ScriptedAudioBackend.h"
#include "tests/support/Speakers.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>

namespace palomet::test {

/// The link between a backend and a sound server that both do what the test says.
struct AudioLinkTest : testing::Test {
    ScriptedAudioBackend backend;
    FakeSoundServer server;
    Speakers speakers{server};
    ManualScheduler scheduler;
    EchoCancellerCalls calls;
    QTemporaryDir folder;
    QStringList notes;
    std::mutex formatsMutex;
    QStringList formats;
    std::unique_ptr<AudioLink> link;

    void make(const QUrl &url) {
        auto io = std::make_unique<AudioIO>(AudioIO::Parts{
            .server = server,
            .scheduler = scheduler,
            .makeWakeup = &QueuedWakeup::make,
            .makeEchoCanceller =
                [this] { return Result(std::unique_ptr<EchoCanceller>(std::make_unique<FakeEchoCanceller>(calls))); },
            .decode = [this](const QByteArray &data, const QString &format) { return decode(data, format); },
            .chimeFile = folder.filePath(QStringLiteral("chime.aiff"))});
        link = std::make_unique<AudioLink>(
            AudioLink::Parts{.io = std::move(io),
                             .scheduler = scheduler,
                             .makeWakeup = &QueuedWakeup::make,
                             .note = [this](const QString &line) { notes.push_back(line); },
                             .url = url,
                             .timing = {std::chrono::milliseconds{10}, std::chrono::milliseconds{5000}},
                             .maximumFile = 1000});
    }

    bool start() {
        make(backend.url());
        link->start();
        return eventually([&] { return !backend.received.empty(); });
    }

    Result<ClipSamples> decode(const QByteArray &data, const QString &format) {
        {
            const std::lock_guard guard(formatsMutex);
            formats.push_back(format);
        }
        return decodeNumber(data, format);
    }

    void sendPlay(qint64 id, const QByteArray &data, const QString &more = {}) {
        backend.send(QStringLiteral(R"({"type":"play","id":%1,"data":"%2"%3})")
                         .arg(QString::number(id), QString::fromLatin1(data.toBase64()), more));
    }
};

} // namespace palomet::test
