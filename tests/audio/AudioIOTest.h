#pragma once

#include "audio/AudioIO.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/QueuedWakeup.h"
#include "tests/support/Speakers.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace palomet::test {

inline const QString openA = QStringLiteral("áudio: microfone Mic A com cancelamento de eco");
inline const QString openB = QStringLiteral("áudio: microfone Mic B com cancelamento de eco");
inline const QString switchedToB =
    QStringLiteral("áudio: entrada padrão do macOS agora é Mic B (volta à anterior quando o app fecha)");
inline const QString changed = QStringLiteral("áudio: dispositivos mudaram; reabrindo");
inline const QString defaultInput = QStringLiteral("the usual microphone");
inline const QString switchedOff = QStringLiteral("áudio: cancelamento de eco desligado na tela Escuta");

/// The microphone and the speakers of a sound server that does what the test says.
struct AudioIOTest : testing::Test {
    FakeSoundServer server;
    Speakers speakers{server};
    ManualScheduler scheduler;
    EchoCancellerCalls calls;
    std::optional<Failure> cancellerFailure;
    QTemporaryDir folder;
    QString chimeFile = folder.filePath(QStringLiteral("chime.aiff"));

    QStringList notes;
    QStringList configured;
    QStringList names;
    std::vector<qint64> played;
    std::size_t chunks = 0;
    int ended = 0;

    AudioIO io{{.server = server,
                .scheduler = scheduler,
                .makeWakeup = &QueuedWakeup::make,
                .makeEchoCanceller = [this]() -> Result<std::unique_ptr<EchoCanceller>> {
                    if (cancellerFailure)
                        return *cancellerFailure;
                    return std::unique_ptr<EchoCanceller>(std::make_unique<FakeEchoCanceller>(calls));
                },
                .decode = &decodeNumber,
                .chimeFile = chimeFile,
                .defaultInputName = defaultInput}};

    AudioIOTest() {
        io.onNote = [this](const QString &note) { notes.push_back(note); };
        io.onConfigured = [this](const QString &name) { configured.push_back(name); };
        io.onDeviceName = [this](const QString &name) { names.push_back(name); };
        io.onPlayed = [this](ClipId id) { played.push_back(id.number); };
        io.onPCM = [this](PcmSamples) { ++chunks; };
        io.startReporting();
    }
    ~AudioIOTest() override {
        io.close();
        io.stopReporting();
    }

    /// The microphone goes through a canceller that has heard nothing yet; the one before it is gone.
    void expectNewCanceller() const {
        EXPECT_EQ(calls.created, 2);
        EXPECT_EQ(calls.alive, 1);
    }

    /// Speech goes to the speakers that the microphone has not been compared with yet.
    void playUnheard() {
        io.play({1}, "48000", QStringLiteral("mp3"));
        EXPECT_TRUE(eventually([this] { return speakers.isSounding(); }));
        speakers.pull();
    }

    void expectSilentReference() {
        calls.references.clear();
        server.deliver(std::vector<float>(480, 0.0F));
        EXPECT_THAT(calls.references, testing::ElementsAre(std::vector<float>(480, 0.0F)));
    }

    AudioIO::Ended counted() {
        return [this] { ++ended; };
    }
};

} // namespace palomet::test
