#include "command/AutostartCommand.h"

#include <QString>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using Wanted = CommandLine::Autostart;

namespace {

class FakeAutostart final : public Autostart {
public:
    bool isStarting = false;
    std::optional<Failure> problem;

    [[nodiscard]] Result<bool> isOn() const override {
        return problem ? Result<bool>(*problem) : Result<bool>(isStarting);
    }
    [[nodiscard]] std::optional<Failure> turnOn() override { return turn(true); }
    [[nodiscard]] std::optional<Failure> turnOff() override { return turn(false); }

private:
    std::optional<Failure> turn(bool isOn) {
        if (!problem)
            isStarting = isOn;
        return problem;
    }
};

struct Outcome {
    int exitCode;
    std::string output;
    std::string error;

    bool operator==(const Outcome &) const = default;
};

Outcome run(Wanted wanted, FakeAutostart &autostart) {
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const int exitCode = runAutostartCommand(wanted, autostart);
    return {exitCode, ::testing::internal::GetCapturedStdout(), ::testing::internal::GetCapturedStderr()};
}

} // namespace

TEST(AutostartCommand, TurnsItOnAndOffWithoutAWord) {
    FakeAutostart autostart;
    EXPECT_EQ(run(Wanted::On, autostart), (Outcome{0, "", ""}));
    EXPECT_TRUE(autostart.isStarting);
    EXPECT_EQ(run(Wanted::Off, autostart), (Outcome{0, "", ""}));
    EXPECT_FALSE(autostart.isStarting);
}

TEST(AutostartCommand, TellsWhichItIs) {
    FakeAutostart autostart;
    EXPECT_EQ(run(Wanted::Status, autostart), (Outcome{0, "off\n", ""}));
    autostart.isStarting = true;
    EXPECT_EQ(run(Wanted::Status, autostart), (Outcome{0, "on\n", ""}));
}

TEST(AutostartCommand, SaysInOneLineWhyItCouldNot) {
    FakeAutostart autostart;
    autostart.problem = Failure{u"cannot write /x: full"_s};
    for (const auto wanted : {Wanted::On, Wanted::Off, Wanted::Status})
        EXPECT_EQ(run(wanted, autostart), (Outcome{1, "", "palomet: cannot write /x: full\n"}));
}
