#include "tests/palomet/Desktop.h"
#include "tests/platform/dbus/RealPortal.h"
#include "tests/support/PrivateSoundServer.h"

#include <QTcpServer>

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;
using test::PrivateSoundServer;

namespace {

/// Ten seconds of a tone.
std::vector<float> tone() {
    constexpr int rate = 48000;
    std::vector<float> samples(static_cast<std::size_t>(10) * rate);
    for (std::size_t index = 0; index < samples.size(); ++index) {
        const double turns = 440.0 * static_cast<double>(index) / rate;
        samples[index] = static_cast<float>(0.25 * std::sin(2 * std::numbers::pi * turns));
    }
    return samples;
}

/// The program's own doctor, on a desktop of the test's own.
class PalometDoctorTest : public ::testing::Test {
protected:
    PalometDoctorTest()
        : environment(desktop.environment()) {
        environment.insert(u"PALOMET_RESOURCES"_s, u"" PALOMET_BINARY_DIR "/resources"_s);
    }
    ~PalometDoctorTest() override {
        palomet.kill();
        palomet.waitForFinished();
    }

    /// Runs it to its end, and keeps what it printed.
    int examine() {
        QProcess doctor;
        doctor.setProcessEnvironment(environment);
        doctor.start(u"" PALOMET_EXECUTABLE ""_s, {u"--doctor"_s});
        // It listens for some seconds, and waits for whoever does not answer.
        EXPECT_TRUE(eventually([&] { return doctor.state() == QProcess::NotRunning; }, 60s));
        output = QString::fromUtf8(doctor.readAllStandardOutput());
        EXPECT_EQ(doctor.readAllStandardError(), "");
        return doctor.exitCode();
    }

    [[nodiscard]] bool says(const QString &line) const { return (u'\n' + output).contains(u'\n' + line); }

    test::Desktop desktop;
    QProcessEnvironment environment;
    QProcess palomet;
    QString output;
};

} // namespace

TEST_F(PalometDoctorTest, SaysWhatDoesNotWorkAndWhatToDo) {
    EXPECT_EQ(examine(), 1);
    EXPECT_TRUE(says(u"ok  Palomet: does not run now"_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  engine: there, with its runtime bun "_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  languages: en, of en"_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"!!  tray: no panel shows icons; "_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  hot keys: through X11; Alt+Space is free"_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  strip: "_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"!!  sound server: does not answer; "_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"!!  level: "_s)) << qPrintable(output);
    // It leaves no trace.
    EXPECT_FALSE(QFile::exists(desktop.home.filePath(u".config/palomet"_s)));
    EXPECT_FALSE(QFile::exists(desktop.home.filePath(u"Library"_s)));
}

TEST_F(PalometDoctorTest, IsContentWhereAllWorksAndDoesNotDisturbThePalometThatRuns) {
    PrivateSoundServer sound(PrivateSoundServer::Kind::PulseAudio);
    sound.start();
    sound.addSpeakers(u"speakers"_s);
    sound.addMicrophone(u"mic"_s, u"Desk microphone"_s);
    sound.setDefaultInput(u"mic"_s);
    for (const auto &name : {u"PULSE_SERVER"_s, u"PULSE_COOKIE"_s})
        environment.insert(name, sound.environment().value(name));
    desktop.tray.appear();
    palomet.setProcessEnvironment(environment);
    palomet.start(u"" PALOMET_EXECUTABLE ""_s, QStringList{});
    ASSERT_TRUE(eventually([this] { return !desktop.tray.menu().empty(); }));
    ASSERT_TRUE(eventually([this] { return desktop.tray.menu().front().title().contains(u"Desk microphone"_s); }));

    const auto player = sound.play(u"mic-feed"_s, tone());
    EXPECT_EQ(examine(), 0) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  Palomet: runs, and is "_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  port 4780: held by Palomet's backend, bun (process "_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  hot keys: held by the Palomet that runs, through X11"_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  microphone: Desk microphone, the default of 1; Palomet hears with Desk microphone"_s))
        << qPrintable(output);
    EXPECT_TRUE(says(u"ok  level: peak -12 dB"_s)) << qPrintable(output);

    EXPECT_EQ(sound.defaultInput(), u"mic"_s);
    EXPECT_EQ(palomet.state(), QProcess::Running);
    EXPECT_TRUE(desktop.tray.menu().front().title().contains(u"Desk microphone"_s));
}

TEST_F(PalometDoctorTest, AsksThePortalWhatItGrantsRatherThanWhetherItIsThere) {
    if (!test::RealPortal::isInstalled())
        GTEST_SKIP() << "xdg-desktop-portal is not installed";
    environment.insert(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    test::RealPortal portal(desktop.bus.connect(), desktop.bus.address());
    ASSERT_TRUE(portal.start());
    examine();
    EXPECT_TRUE(says(u"ok  hot keys: the desktop's portal is asked for them when Palomet starts"_s))
        << qPrintable(output);
    EXPECT_EQ(portal.calls, QStringList({u"CreateSession"_s, u"Close"_s})) << "it binds nothing, and leaves nothing";
    portal.answer = test::RealPortal::Answer::RefuseSession;
    examine();
    EXPECT_TRUE(says(u"!!  hot keys: this desktop's portal grants keys to no program; bind "_s)) << qPrintable(output);
}

TEST_F(PalometDoctorTest, ComesToAnEndBesideAnXServerThatTakesConnectionsAndNeverAnswers) {
    // A display's number is its port's, less 6000.
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    environment.insert(u"DISPLAY"_s, u"127.0.0.1:%1"_s.arg(server.serverPort() - 6000));
    EXPECT_EQ(examine(), 1);
    EXPECT_TRUE(says(u"!!  window: there is no display to show it"_s)) << qPrintable(output);
    EXPECT_TRUE(says(u"ok  engine: "_s)) << qPrintable(output);
}

TEST_F(PalometDoctorTest, NamesWhoHoldsThePort) {
    QTcpServer stranger;
    ASSERT_TRUE(stranger.listen(QHostAddress::LocalHost, 4780));
    EXPECT_EQ(examine(), 1);
    EXPECT_TRUE(says(u"!!  port 4780: held by palomet-tests (process "_s)) << qPrintable(output);
}
