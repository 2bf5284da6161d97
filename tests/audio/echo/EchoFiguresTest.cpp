#include "audio/echo/MaskWeights.h"
#include "bench/audio/echo/Measures.h"
#include "bench/audio/echo/Path.h"
#include "bench/audio/echo/PlainCanceller.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

using namespace palomet;
using namespace palomet::bench;

// A short form of what the bench measures at length: not the figures, but their order.

namespace {

std::vector<Scenario> shortScenarios() {
    std::vector<Scenario> chosen;
    for (auto &scenario : scenarios(1)) {
        if (scenario.isSpecial || scenario.signalToEcho != 0 || scenario.delayMs == 80)
            continue;
        scenario.farAlone = 10;
        scenario.both = 5;
        scenario.farAgain = 2;
        chosen.push_back(scenario);
    }
    return chosen;
}

struct Figures {
    double lost = 0; ///< Mean, in per cent.
    double erle = 0; ///< Mean, in dB.
};

Figures figuresOf(const std::vector<Measures> &all) {
    Figures sum;
    for (const auto &measures : all) {
        sum.lost += measures.lostPercent / static_cast<double>(all.size());
        sum.erle += measures.erleDb / static_cast<double>(all.size());
    }
    return sum;
}

} // namespace

TEST(EchoFigures, OursLosesLessOfTheNearEndThanThePlainOneAndTheMaskStillLess) {
    std::vector<Measures> raw;
    std::vector<Measures> plain;
    std::vector<Measures> ours;
    std::vector<Measures> masked;
    const auto mask = echo::MaskWeights::read(QStringLiteral(PALOMET_SOURCE_DIR "/resources"));
    ASSERT_TRUE(mask.isOk()) << mask.reason().toStdString();
    Speaker speaker;
    for (const auto &scenario : shortScenarios()) {
        const auto recording = record(scenario, speaker);
        ASSERT_TRUE(recording.isOk()) << recording.reason().toStdString();
        raw.push_back(measure(*recording, scenario, process(*recording, scenario, nullptr)));
        auto canceller = EchoCanceller::create();
        ASSERT_TRUE(canceller.isOk());
        ours.push_back(measure(*recording, scenario, process(*recording, scenario, canceller->get())));
        if (EchoCanceller::takesMask()) {
            auto withMask = EchoCanceller::create(*mask);
            ASSERT_TRUE(withMask.isOk());
            masked.push_back(measure(*recording, scenario, process(*recording, scenario, withMask->get())));
        }
        if (const auto other = createPlainCanceller())
            plain.push_back(measure(*recording, scenario, process(*recording, scenario, other.get())));
    }
    EXPECT_NEAR(figuresOf(raw).erle, 0, 0.5);
    EXPECT_NEAR(figuresOf(raw).lost, 0, 0.5);
    EXPECT_GT(figuresOf(ours).erle, 20);
    if (!masked.empty()) {
        EXPECT_LT(figuresOf(masked).lost, figuresOf(ours).lost);
        EXPECT_GT(figuresOf(masked).erle, 30);
    }
    if (plain.empty())
        return; // Ours is the library's own, as it comes.
    EXPECT_LT(figuresOf(ours).lost, figuresOf(plain).lost);
    // So long a filter has not learned all of a room in ten seconds.
    EXPECT_GT(figuresOf(ours).erle, figuresOf(plain).erle - 8);
}

TEST(EchoFigures, TheProgramsFirstWordsAreNotLoudEnoughToBeTakenForSomebody) {
    const auto mask = echo::MaskWeights::read(QStringLiteral(PALOMET_SOURCE_DIR "/resources"));
    ASSERT_TRUE(mask.isOk()) << mask.reason().toStdString();
    Speaker speaker;
    for (auto &scenario : hardScenarios(1, 3)) {
        if (scenario.hardship->kind != "plain rooms")
            continue;
        scenario.farAlone = 1;
        scenario.both = 6;
        scenario.farAgain = 4;
        const auto recording = record(scenario, speaker);
        ASSERT_TRUE(recording.isOk()) << recording.reason().toStdString();
        for (const auto &weights : {EchoCanceller::Mask{}, EchoCanceller::Mask{*mask}}) {
            auto canceller = EchoCanceller::create(weights);
            ASSERT_TRUE(canceller.isOk());
            const auto heard = processOnPath(*recording, scenario, std::move(*canceller)).samples;
            for (std::size_t at = 0; at < heardRate; at += heardRate / 20)
                EXPECT_LT(toDecibels(meanSquare(std::span(heard).subspan(at, heardRate / 20))), -38)
                    << scenario.name << (weights ? ", mask, " : ", gate, ") << at;
        }
    }
}
