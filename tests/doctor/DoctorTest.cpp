#include "doctor/Doctor.h"

#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class FakeTrayHost final : public TrayHost {
public:
    Status now = Status::Present;
    [[nodiscard]] Status status() const override { return now; }
};

class DoctorTest : public ::testing::Test {
protected:
    DoctorTest() {
        known.resources = u"/resources"_s;
        known.hasTexts = true;
        known.hasEngine = true;
        known.isLogWritable = true;
        known.echoCanceller = u"AEC3"_s;
        known.hotKeyRoute = Examination::HotKeyRoute::X11;
        known.display.way = DisplayRoute::Way::X11;
    }

    void start() {
        doctor = std::make_unique<Doctor>(Doctor::Parts{
            .scheduler = scheduler,
            .sound = sound,
            .permission = permission,
            .tray = tray,
            .known = known,
            .runtimeVersion = [this] { return version; },
            .hearing = [this] { return hearing; },
            .print = [this](const QString &line) { lines.append(line); },
            .showLevel = [this](std::optional<int> level) { levels.push_back(level); },
            .done = [this](int code) { exitCode = code; },
        });
        doctor->start();
    }

    /// Moves the clock while the sound server plays and hears.
    void pass(std::chrono::milliseconds time, float amplitude = 0.1F) {
        for (auto left = time; left > 0ms; left -= 100ms) {
            sound.pull(480);
            const std::vector<float> heard(4800, amplitude);
            sound.deliver(heard);
            scheduler.advance(100ms);
        }
    }

    [[nodiscard]] QString line(const QString &subject) const {
        for (const auto &candidate : lines) {
            if (candidate.mid(4).startsWith(subject + u':'))
                return candidate;
        }
        return {};
    }

    test::ManualScheduler scheduler;
    test::FakeSoundServer sound;
    test::FakeMicrophonePermission permission;
    FakeTrayHost tray;
    Examination known;
    QString version = u"bun 1"_s;
    std::optional<Examination::Hearing> hearing = Examination::Hearing{false, u"any sentence"_s};
    QStringList lines;
    std::vector<std::optional<int>> levels;
    std::optional<int> exitCode;
    std::unique_ptr<Doctor> doctor;
};

} // namespace

TEST_F(DoctorTest, ListensForThreeSecondsAndIsContentWhenAllWorks) {
    start();
    pass(200ms);
    EXPECT_EQ(line(u"microphone"_s), u"ok  microphone: Mic A, the default of 2"_s);
    EXPECT_EQ(line(u"level"_s), QString());
    pass(3s);
    EXPECT_EQ(line(u"level"_s), u"ok  level: peak -20 dB, mean -20 dB"_s);
    EXPECT_EQ(exitCode, 0);
    EXPECT_GE(levels.size(), 25U);
    EXPECT_EQ(levels.back(), std::nullopt);
}

TEST_F(DoctorTest, LeavesNothingOpen) {
    start();
    pass(1s);
    EXPECT_TRUE(sound.isCaptureOpen());
    doctor.reset();
    EXPECT_FALSE(sound.isCaptureOpen());
    EXPECT_FALSE(sound.isPlaybackOpen());
    EXPECT_TRUE(sound.defaultsSet.empty());
    EXPECT_EQ(scheduler.pendingCount(), 0U);
}

TEST_F(DoctorTest, IsDoneInFourSecondsWhenNobodyAnswers) {
    sound.isAlive = false;
    sound.opensAtOnce = false;
    version.clear();
    tray.now = TrayHost::Status::NotDetermined;
    start();
    pass(3900ms);
    EXPECT_EQ(exitCode, std::nullopt);
    pass(100ms);
    EXPECT_EQ(exitCode, 1);
    for (const auto &subject : {u"sound server"_s, u"microphone"_s, u"level"_s, u"engine"_s, u"tray"_s})
        EXPECT_TRUE(line(subject).startsWith(u"!!"_s)) << qPrintable(line(subject));
}

TEST_F(DoctorTest, WaitsForWhatTheEngineTellsWhereThereIsOne) {
    hearing.reset();
    start();
    pass(1s);
    EXPECT_TRUE(lines.empty());
    hearing = Examination::Hearing{false, u"any sentence"_s};
    pass(100ms);
    EXPECT_EQ(line(u"hearing"_s), u"ok  hearing: any sentence"_s);
}

TEST_F(DoctorTest, WaitsForNoEngineThatIsMissing) {
    known.hasEngine = false;
    hearing.reset();
    start();
    pass(200ms);
    EXPECT_FALSE(lines.empty());
}

TEST_F(DoctorTest, WaitsLessWhereItHasWaitedForAPalometThatHangs) {
    known.instance = Examination::Instance::Silent;
    sound.isAlive = false;
    sound.opensAtOnce = false;
    start();
    pass(2s);
    EXPECT_EQ(exitCode, 1);
}

TEST_F(DoctorTest, SaysNothingBeforeItKnowsWhetherItMayHearAndWhetherThereIsATray) {
    permission.answer(MicrophoneStatus::NotDetermined);
    start();
    pass(500ms);
    EXPECT_EQ(sound.captureOpenings, 0);
    permission.answer(MicrophoneStatus::Authorized);
    tray.now = TrayHost::Status::NotDetermined;
    pass(500ms);
    EXPECT_TRUE(lines.isEmpty());
    tray.now = TrayHost::Status::Present;
    pass(100ms);
    EXPECT_TRUE(line(u"microphone"_s).startsWith(u"ok"_s));
    EXPECT_TRUE(line(u"tray"_s).startsWith(u"ok"_s));
}

TEST_F(DoctorTest, ASoundServerIsThereWhenItPlaysWithoutAMicrophoneAndWhenItHasMicrophonesAndDoesNotPlay) {
    sound.devices.clear();
    sound.captureFailure = Failure{u"there is none"_s};
    start();
    pass(200ms);
    EXPECT_TRUE(line(u"sound server"_s).startsWith(u"ok"_s));
    EXPECT_TRUE(line(u"microphone"_s).startsWith(u"!!"_s));

    lines.clear();
    sound.devices = {{u"mic.a"_s, u"Mic A"_s}};
    start();
    scheduler.advance(4s);
    EXPECT_TRUE(line(u"sound server"_s).startsWith(u"ok"_s));
}

TEST_F(DoctorTest, DoesNotListenWhereItIsNotAllowedTo) {
    permission.answer(MicrophoneStatus::Denied);
    start();
    pass(200ms);
    EXPECT_EQ(exitCode, 1);
    EXPECT_EQ(sound.captureOpenings, 0);
    EXPECT_TRUE(line(u"microphone"_s).startsWith(u"!!"_s));
    EXPECT_TRUE(line(u"sound server"_s).startsWith(u"ok"_s));
}

TEST_F(DoctorTest, TellsAMicrophoneThatDoesNotOpenInTime) {
    sound.opensAtOnce = false;
    start();
    pass(3900ms);
    EXPECT_TRUE(lines.isEmpty());
    pass(100ms);
    EXPECT_EQ(exitCode, 1);
    EXPECT_EQ(line(u"microphone"_s),
              u"!!  microphone: Mic A cannot be opened; see whether another program holds it alone"_s);
}

TEST_F(DoctorTest, TellsAMicrophoneThatIsSilent) {
    start();
    pass(4s, 0);
    EXPECT_TRUE(line(u"level"_s).startsWith(u"!!"_s));
    EXPECT_EQ(exitCode, 1);
}

TEST_F(DoctorTest, MeasuresWhatIsHeardWhileItListensAndNothingBefore) {
    version.clear();
    start();
    pass(300ms, 1);
    version = u"bun 1"_s;
    pass(100ms, 1);
    pass(3s, 0.01F);
    EXPECT_EQ(exitCode, 0);
    EXPECT_TRUE(line(u"level"_s).contains(u"mean -4"_s)) << qPrintable(line(u"level"_s));
}
