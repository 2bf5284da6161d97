#include "app/StatusMenu.h"

#include "localization/Localization.h"
#include "model/PalometModel.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"
#include "tests/support/Windows.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class StatusMenuTest : public ::testing::Test {
protected:
    StatusMenuTest() {
        localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {u"en"_s});
        status.emplace(model);
    }
    ~StatusMenuTest() override { localization::load({}, {}); }

    void publish(const QString &state, const QString &device, bool isMuted = false) {
        auto snapshot = std::make_shared<Snapshot>();
        snapshot->state = state;
        snapshot->device = device;
        snapshot->isMuted = isMuted;
        model.setSnapshot(std::move(snapshot));
    }

    /// The titles in their order; "-" for a separator.
    QStringList titles() {
        QStringList found;
        for (const auto *action : test::trayMenu().actions())
            found.append(action->isSeparator() ? u"-"_s : action->text());
        return found;
    }

    QAction &item(int index) { return *test::trayMenu().actions().at(index); }
    QString stateLine() { return item(0).text(); }

    test::ScriptedBackend backend;
    test::ManualScheduler scheduler;
    test::FakeMicrophonePermission permission;
    PalometModel model{scheduler, permission, backend.base()};
    std::optional<StatusMenu> status;
};

} // namespace

TEST_F(StatusMenuTest, HasItsItemsInOrder) {
    EXPECT_EQ(titles(), (QStringList{u"Offline"_s, u"-"_s, u"Listen"_s, u"Stop"_s, u"Mute"_s, u"-"_s, u"Open Palomet"_s,
                                     u"-"_s, u"Quit Palomet"_s}));
}

TEST_F(StatusMenuTest, SpeaksTheUsersLanguage) {
    localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {u"pt-BR"_s});
    status.emplace(model);
    EXPECT_EQ(titles(), (QStringList{L("state.offline"), u"-"_s, L("menu.listen"), L("menu.stop"), L("menu.mute"),
                                     u"-"_s, L("menu.open"), u"-"_s, L("menu.quit")}));
    EXPECT_NE(item(2).text(), u"Listen"_s);
}

TEST_F(StatusMenuTest, EnablesWhatCanBeDone) {
    QList<bool> enabled;
    for (const auto *action : test::trayMenu().actions()) {
        if (!action->isSeparator())
            enabled.append(action->isEnabled());
    }
    // The state line is for reading.
    EXPECT_EQ(enabled, (QList{false, true, true, true, true, true}));
}

TEST_F(StatusMenuTest, HasKeysForOpenAndQuitAlone) {
    QStringList keys;
    for (const auto *action : test::trayMenu().actions())
        keys.append(action->shortcut().toString(QKeySequence::PortableText));
    keys.removeAll(QString());
    EXPECT_EQ(keys, (QStringList{u"Ctrl+O"_s, u"Ctrl+Q"_s}));
    EXPECT_EQ(item(6).shortcut(), QKeySequence(u"Ctrl+O"_s));
}

TEST_F(StatusMenuTest, ShowsTheStateAndTheDeviceOfEverySnapshot) {
    publish(u"listening"_s, u"Headset"_s);
    EXPECT_EQ(stateLine(), u"Listening · Headset"_s);
    publish(u"speaking"_s, u"Desk microphone"_s);
    EXPECT_EQ(stateLine(), u"Speaking · Desk microphone"_s);
    publish(u"no such state"_s, QString());
    EXPECT_EQ(stateLine(), u"Offline · "_s);
}

TEST_F(StatusMenuTest, MarksWhatTheDesktopWouldTakeForAMnemonic) {
    const std::pair<QString, QString> titles[] = {
        {u"Desk"_s, u"Desk"_s},    {u"USB_2_A"_s, u"USB__2__A"_s},    {u"&Q"_s, u"&&Q"_s},
        {u"Q & A"_s, u"Q && A"_s}, {u"A & B & C"_s, u"A && B & C"_s}, {u"Q &"_s, u"Q &"_s},
        {u"_&_"_s, u"__&&__"_s},
    };
    for (const auto &[text, title] : titles) {
        publish(u"waiting"_s, text);
        EXPECT_EQ(stateLine(), L("state.waiting") + u" · "_s + title);
    }
}

TEST_F(StatusMenuTest, ShowsTheOfflineWordAloneWithoutASnapshot) {
    publish(u"waiting"_s, u"Headset"_s, true);
    model.setSnapshot(nullptr);
    EXPECT_EQ(stateLine(), u"Offline"_s);
    EXPECT_EQ(item(4).text(), u"Mute"_s);
}

TEST_F(StatusMenuTest, OffersToUnmuteWhatIsMuted) {
    publish(u"waiting"_s, u"Headset"_s, true);
    EXPECT_EQ(item(4).text(), u"Unmute"_s);
    publish(u"waiting"_s, u"Headset"_s, false);
    EXPECT_EQ(item(4).text(), u"Mute"_s);
}

TEST_F(StatusMenuTest, AsksForTheStateWhenItIsOpened) {
    test::trayMenu().aboutToShow();
    scheduler.advance(100ms);
    EXPECT_TRUE(eventually([this] { return backend.count("/state") == 1; }));
}

TEST_F(StatusMenuTest, SendsTheUsersCommands) {
    item(2).trigger();
    EXPECT_TRUE(eventually([this] { return backend.count("/listen") == 1; }));
    item(3).trigger();
    EXPECT_TRUE(eventually([this] { return backend.count("/stop") == 1; }));
    item(4).trigger();
    EXPECT_TRUE(eventually([this] { return backend.count("/mute") == 1; }));
    EXPECT_EQ(backend.last("/mute")->method(), "POST");
}

TEST_F(StatusMenuTest, AsksToQuit) {
    int requests = 0;
    QObject::connect(&*status, &StatusMenu::quitRequested, &*status, [&] { ++requests; });
    item(8).trigger();
    EXPECT_EQ(requests, 1);
}
