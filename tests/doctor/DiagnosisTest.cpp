#include "doctor/Diagnosis.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace palomet;
using namespace Qt::StringLiterals;
using Verdict = Finding::Verdict;

namespace {

/// A machine where all is well, and Palomet runs.
Examination allIsWell() {
    Examination found;
    found.instance = Examination::Instance::Running;
    found.status = {u"waiting"_s, u"Headset"_s, false, true};
    found.resources = u"/usr/share/palomet"_s;
    found.hasTexts = true;
    found.hasEngine = true;
    found.runtimeVersion = u"bun 1.4.5"_s;
    found.hearing = Examination::Hearing{false, u"understands any sentence, by moonshine-base"_s};
    found.log = u"/home/me/palomet.log"_s;
    found.isLogWritable = true;
    found.wantedLanguages = {u"pt-BR"_s, u"en"_s};
    found.language = u"pt-BR"_s;
    found.port = PortHolder{12, {u"bun"_s, u"palomet"_s, u"systemd"_s}};
    found.isSoundServerThere = true;
    found.inputs = {{u"mic.a"_s, u"Mic A"_s}, {u"mic.b"_s, u"Mic B"_s}};
    found.defaultInput = u"mic.b"_s;
    found.isCaptureOpen = true;
    found.echoCanceller = u"AEC3"_s;
    found.tray = TrayHost::Status::Present;
    found.hotKeyRoute = Examination::HotKeyRoute::X11;
    found.listenKey = u"Alt+Space"_s;
    found.display.way = DisplayRoute::Way::X11;
    return found;
}

/// The one finding that fails; its text says what to do.
Finding failure(const Examination &found) {
    std::vector<Finding> failures;
    std::ranges::copy_if(diagnose(found), std::back_inserter(failures),
                         [](const Finding &finding) { return finding.verdict == Verdict::Fails; });
    EXPECT_EQ(failures.size(), 1U);
    return failures.empty() ? Finding{Verdict::Works, {}, {}} : failures.front();
}

/// The line of a subject when everything works.
QString text(const Examination &found, const QString &subject) {
    for (const auto &finding : diagnose(found)) {
        EXPECT_EQ(finding.verdict, Verdict::Works) << qPrintable(finding.line());
        if (finding.subject == subject)
            return finding.text;
    }
    ADD_FAILURE() << "nothing of " << qPrintable(subject);
    return {};
}

void expectFailure(const Examination &found, const QString &subject, const QString &words) {
    const auto finding = failure(found);
    EXPECT_EQ(finding.subject, subject);
    EXPECT_TRUE(finding.text.contains(words)) << qPrintable(finding.line());
}

} // namespace

TEST(Diagnosis, FindsEverythingWorkingWhereItDoes) {
    QStringList subjects;
    for (const auto &finding : diagnose(allIsWell())) {
        EXPECT_EQ(finding.verdict, Verdict::Works) << qPrintable(finding.line());
        EXPECT_FALSE(finding.line().contains(u'\n'));
        subjects.append(finding.subject);
    }
    EXPECT_EQ(subjects, (QStringList{u"Palomet"_s, u"resources"_s, u"engine"_s, u"hearing"_s, u"languages"_s, u"log"_s,
                                     u"port 4780"_s, u"tray"_s, u"hot keys"_s, u"window"_s, u"strip"_s,
                                     u"sound server"_s, u"microphone"_s, u"echo canceller"_s}));
}

TEST(Diagnosis, SaysHowThingsAreInALine) {
    const auto found = allIsWell();
    EXPECT_EQ(diagnose(found).front().line(), u"ok  Palomet: runs, and is waiting"_s);
    EXPECT_EQ(text(found, u"languages"_s), u"pt-BR, of pt-BR, en"_s);
    EXPECT_EQ(text(found, u"microphone"_s), u"Mic B, the default of 2; Palomet hears with Headset"_s);
    EXPECT_EQ(text(found, u"port 4780"_s), u"held by Palomet's backend, bun (process 12)"_s);
    EXPECT_EQ(text(found, u"hot keys"_s), u"held by the Palomet that runs, through X11"_s);
    auto muted = found;
    muted.status.isMuted = true;
    EXPECT_EQ(text(muted, u"Palomet"_s), u"runs, and is muted"_s);
}

TEST(Diagnosis, IsContentBeforePalometIsStarted) {
    auto found = allIsWell();
    found.instance = Examination::Instance::Absent;
    found.status = {};
    found.port = std::nullopt;
    found.key = Examination::Key::Free;
    EXPECT_EQ(text(found, u"port 4780"_s), u"free"_s);
    EXPECT_EQ(text(found, u"hot keys"_s), u"through X11; Alt+Space is free"_s);
    EXPECT_EQ(text(found, u"microphone"_s), u"Mic B, the default of 2"_s);
}

TEST(Diagnosis, TellsAProgramThatHangsOrIsOffline) {
    auto found = allIsWell();
    found.instance = Examination::Instance::Silent;
    expectFailure(found, u"Palomet"_s, u"pkill -x palomet"_s);
    found = allIsWell();
    found.status.state = u"offline"_s;
    expectFailure(found, u"Palomet"_s, found.log);
}

TEST(Diagnosis, TellsWhoHoldsThePort) {
    auto found = allIsWell();
    found.port = std::nullopt;
    expectFailure(found, u"port 4780"_s, u"nobody listens"_s);
    found.port = PortHolder{7, {u"nc"_s, u"bash"_s}};
    expectFailure(found, u"port 4780"_s, u"nc (process 7)"_s);
    found.port = PortHolder{};
    expectFailure(found, u"port 4780"_s, u"another user"_s);
    // To the administrator the system tells more.
    found.port = PortHolder{7, {u"palomet"_s}};
    found.portOwner = SocketOwner::Others;
    expectFailure(found, u"port 4780"_s, u"another user"_s);
    found.portOwner = SocketOwner::Ours;
    found.port = PortHolder{7, {u"%1%2"_s, u"bash"_s}};
    expectFailure(found, u"port 4780"_s, u"%1%2 (process 7)"_s);
}

TEST(Diagnosis, PassesOnWhatTheEngineSaysOfItsHearing) {
    auto found = allIsWell();
    EXPECT_EQ(text(found, u"hearing"_s), u"understands any sentence, by moonshine-base"_s);
    found.hearing = Examination::Hearing{true, u"nothing; install pocketsphinx"_s};
    expectFailure(found, u"hearing"_s, u"install pocketsphinx"_s);
    found.hearing = Examination::Hearing{false, {}};
    for (const auto &finding : diagnose(found))
        EXPECT_NE(finding.subject, u"hearing"_s);
}

TEST(Diagnosis, TellsWhatIsMissingOfTheInstallation) {
    auto found = allIsWell();
    found.hasTexts = false;
    expectFailure(found, u"resources"_s, u"install Palomet again"_s);
    found = allIsWell();
    found.hasEngine = false;
    expectFailure(found, u"engine"_s, u"install palomet-engine"_s);
    found = allIsWell();
    found.runtimeVersion.clear();
    expectFailure(found, u"engine"_s, u"does not run here"_s);
    found = allIsWell();
    found.isLogWritable = false;
    expectFailure(found, u"log"_s, found.log);
    found = allIsWell();
    found.echoCanceller.clear();
    expectFailure(found, u"echo canceller"_s, u"install"_s);
    found = allIsWell();
    found.echoMaskProblem = u"it is damaged"_s;
    expectFailure(found, u"echo mask"_s, u"it is damaged"_s);
}

TEST(Diagnosis, TellsWhatTheDesktopLacks) {
    auto found = allIsWell();
    found.tray = TrayHost::Status::Absent;
    expectFailure(found, u"tray"_s, u"AppIndicator"_s);
    found = allIsWell();
    found.hasSessionBus = false;
    expectFailure(found, u"session bus"_s, u"dbus-user-session"_s);
    found = allIsWell();
    found.display = {};
    expectFailure(found, u"window"_s, u"XWayland"_s);
}

TEST(Diagnosis, TellsWhichWayTheWindowsGoAndWhy) {
    auto found = allIsWell();
    EXPECT_EQ(text(found, u"window"_s), u"through X11"_s);
    found.display = {DisplayRoute::Way::Wayland, DisplayRoute::Reason::Session, true};
    EXPECT_EQ(text(found, u"window"_s), u"through Wayland"_s);
    EXPECT_EQ(text(found, u"strip"_s), u"through the compositor's layer shell, above all others"_s);
    found.display = {DisplayRoute::Way::XWayland, DisplayRoute::Reason::NoLayers, false};
    EXPECT_TRUE(text(found, u"window"_s).startsWith(u"through XWayland, for the compositor has no layer shell"_s));
    EXPECT_EQ(text(found, u"strip"_s), u"through XWayland, above all others"_s);
    found.display.reason = DisplayRoute::Reason::NoPlugin;
    EXPECT_TRUE(text(found, u"window"_s).contains(u"qt6-wayland"_s));
    found.display.reason = DisplayRoute::Reason::User;
    EXPECT_TRUE(text(found, u"window"_s).contains(u"QT_QPA_PLATFORM"_s));
    found.display = {DisplayRoute::Way::Wayland, DisplayRoute::Reason::NoLayers, false};
    expectFailure(found, u"strip"_s, u"XWayland"_s);
}

TEST(Diagnosis, TellsAKeyThatIsRefusedAndADesktopWithoutHotKeys) {
    auto found = allIsWell();
    found.status.hotKeyProblem = u"Alt+Space is taken"_s;
    expectFailure(found, u"hot keys"_s, u"Alt+Space is refused by X11"_s);
    found = allIsWell();
    found.instance = Examination::Instance::Absent;
    found.key = Examination::Key::Taken;
    expectFailure(found, u"hot keys"_s, u"palomet --listen"_s);
    found.listenKeyHolder = u"activate window menu"_s;
    expectFailure(found, u"hot keys"_s, u"Alt+Space is the desktop's own, for \"activate window menu\"; choose"_s);
    found = allIsWell();
    found.hotKeyRoute = Examination::HotKeyRoute::None;
    expectFailure(found, u"hot keys"_s, u"no display"_s);
}

TEST(Diagnosis, TellsWhatThePortalGrantsAndTheCommandsWhereItGrantsNothing) {
    auto found = allIsWell();
    found.hotKeyRoute = Examination::HotKeyRoute::Portal;
    const auto commands = u"bind \"palomet --listen\" and \"palomet --stop\" to keys in the desktop's settings"_s;
    expectFailure(found, u"hot keys"_s, u"grants keys to no program; "_s + commands);
    found.status.hotKeyProblem = u"Not granted. Try other keys."_s;
    expectFailure(found, u"hot keys"_s, u"grants keys to no program; "_s + commands);
    found.doesPortalGrant = true;
    expectFailure(found, u"hot keys"_s,
                  u"granted none for Alt+Space; choose one for Palomet in the desktop's settings"_s);
    EXPECT_FALSE(failure(found).text.contains(u"another program"_s)) << "nobody knows that";
    found.status.hotKeyProblem.clear();
    EXPECT_EQ(text(found, u"hot keys"_s), u"held by the Palomet that runs, through the desktop's portal"_s);
    found.instance = Examination::Instance::Absent;
    found.port = std::nullopt;
    EXPECT_EQ(text(found, u"hot keys"_s), u"the desktop's portal is asked for them when Palomet starts"_s);
    found.doesPortalGrant = false;
    expectFailure(found, u"hot keys"_s, commands);
}

TEST(Diagnosis, TellsWhyTheMicrophoneIsNotHeard) {
    auto found = allIsWell();
    found.permission = MicrophoneStatus::Restricted;
    expectFailure(found, u"microphone"_s, u"privacy"_s);
    found.permission = MicrophoneStatus::Denied;
    expectFailure(found, u"microphone"_s, u"denied to Palomet"_s);
    found = allIsWell();
    found.isCaptureOpen = false;
    expectFailure(found, u"microphone"_s, u"Mic B cannot be opened"_s);
    found.defaultInput = std::nullopt;
    expectFailure(found, u"microphone"_s, u"choose one"_s);
    found.inputs.clear();
    expectFailure(found, u"microphone"_s, u"connect one"_s);
}

TEST(Diagnosis, MeasuresInDecibelsOfFullScale) {
    EXPECT_EQ(decibels(1), 0);
    EXPECT_EQ(decibels(0.1), -20);
    EXPECT_EQ(decibels(0), -120);
    EXPECT_EQ(decibels(std::nan("")), -120);
    EXPECT_EQ(decibels(1e-30), -120);
}

TEST(Diagnosis, TakesAQuietRoomForAMicrophoneThatWorksAndPureSilenceForOneThatDoesNot) {
    EXPECT_EQ(diagnoseLevel(SoundLevel{0.1, 0.01}).line(), u"ok  level: peak -20 dB, mean -40 dB"_s);
    EXPECT_EQ(diagnoseLevel(SoundLevel{0.0001, 0.00005}).verdict, Verdict::Works);
    EXPECT_EQ(diagnoseLevel(SoundLevel{3.1623e-5, 1e-5}).line(), u"ok  level: peak -90 dB, mean -100 dB"_s);
    EXPECT_EQ(diagnoseLevel(SoundLevel{2.8184e-5, 1e-5}).verdict, Verdict::Fails);
    EXPECT_EQ(diagnoseLevel(SoundLevel{0, 0}).verdict, Verdict::Fails);
    EXPECT_EQ(diagnoseLevel(std::nullopt).verdict, Verdict::Fails);
}
