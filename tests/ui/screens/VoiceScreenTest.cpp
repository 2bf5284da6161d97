#include "ui/screens/VoiceScreen.h"

#include "tests/ui/screens/Choices.h"
#include "tests/ui/support/UiTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

using namespace std::chrono_literals;

class VoiceScreenTest : public UiTest {
protected:
    VoiceScreenTest() { screen.setActive(true); }

    /// What the backend says its voice is, from now on.
    void hasVoice(const QByteArray &id) {
        auto document = fixture("state/full.json");
        document.replace("a1b2c3d4", id);
        backend().serve("/state", document);
    }
    /// The state is asked for, and comes.
    void fetch() {
        const auto before = backend().count("/state");
        EXPECT_TRUE(eventually([&] {
            scheduler().advance(100ms);
            return backend().count("/state") > before;
        }));
    }
    [[nodiscard]] bool becomes(const char *text, bool isBusy) {
        return eventually([&] { return voice->text() == QString::fromUtf8(text) && voice->isBusy() == isBusy; });
    }

    VoiceScreen screen{model()};
    TextSetting *voice = setting<TextSetting>(screen, "voice.voice");
    TextSetting *name = setting<TextSetting>(screen, "voice.name");
    ChoiceSetting *speed = setting<ChoiceSetting>(screen, "voice.speed");
    ChoiceSetting *fishModel = setting<ChoiceSetting>(screen, "voice.model");
    ChoiceSetting *systemVoice = setting<ChoiceSetting>(screen, "voice.macVoice");
};

} // namespace

TEST_F(VoiceScreenTest, ShowsTheSettings) {
    setFull();
    EXPECT_EQ(voice->text(), QStringLiteral("a1b2c3d4"));
    EXPECT_EQ(name->text(), QStringLiteral("Palomet"));
    EXPECT_EQ(speed->value(), QStringLiteral("1.05×"));
    EXPECT_EQ(fishModel->value(), QStringLiteral("s1"));
    EXPECT_EQ(fishModel->selected(), QStringLiteral("s1"));
    EXPECT_EQ(systemVoice->value(), QStringLiteral("Luciana"));
}

TEST_F(VoiceScreenTest, NamesItsRows) {
    EXPECT_EQ(voice->title(), QStringLiteral("Voice"));
    EXPECT_EQ(voice->placeholder(), QStringLiteral("Paste a voice id"));
    EXPECT_EQ(name->placeholder(), QStringLiteral("Give it a name"));
    EXPECT_EQ(speed->title(), QStringLiteral("Speed"));
    EXPECT_EQ(speed->hint(), QString());
    EXPECT_EQ(fishModel->title(), QStringLiteral("Speech model"));
    EXPECT_EQ(systemVoice->title(), QStringLiteral("System voice"));
}

TEST_F(VoiceScreenTest, ShowsADashForTheSpeedWithoutASnapshot) {
    EXPECT_EQ(speed->value(), QStringLiteral("—"));
    EXPECT_EQ(speed->selected(), QString());
    EXPECT_EQ(voice->text(), QString());
    setFull();
    model().setSnapshot(nullptr);
    EXPECT_EQ(speed->value(), QStringLiteral("—"));
}

TEST_F(VoiceScreenTest, OffersFiveSpeedsNoneSlowerThanNormal) {
    EXPECT_EQ(ids(*speed), words("1.0 1.25 1.5 1.75 2.0"));
    EXPECT_EQ(titles(*speed), words("1× 1.25× 1.5× 1.75× 2×"));
    setFull([](Snapshot &snapshot) { snapshot.settings.voiceSpeed = 2; });
    EXPECT_EQ(speed->selected(), QStringLiteral("2.0"));
}

TEST_F(VoiceScreenTest, SendsTheSpeedAsANumberAndOneAndAHalfForWhatIsNone) {
    speed->pick(QStringLiteral("1.25"));
    EXPECT_EQ(toldSetting(), R"({"voiceSpeed":1.25})");
    speed->pick(QStringLiteral("2.0"));
    EXPECT_EQ(toldSetting(), R"({"voiceSpeed":2})");
    for (const auto *strange : {"fast", "", "inf", "nan", "1e999"}) {
        speed->pick(QString::fromUtf8(strange));
        EXPECT_EQ(toldSetting(), R"({"voiceSpeed":1.5})") << strange;
    }
}

TEST_F(VoiceScreenTest, AsksForASampleOfTheVoice) {
    screen.sample();
    EXPECT_EQ(told("/sample"), "");
}

TEST_F(VoiceScreenTest, SendsTextsAndChoicesAsTheyAre) {
    voice->commit(QStringLiteral("abc"));
    EXPECT_EQ(toldSetting(), R"({"voiceId":"abc"})");
    name->commit(QStringLiteral("Alma"));
    EXPECT_EQ(toldSetting(), R"({"voiceName":"Alma"})");
    fishModel->pick(QStringLiteral("s1-mini"));
    EXPECT_EQ(toldSetting(), R"({"fishModel":"s1-mini"})");
    systemVoice->pick(QStringLiteral("Luciana"));
    EXPECT_EQ(toldSetting(), R"({"fallbackVoice":"Luciana"})");
}

TEST_F(VoiceScreenTest, ShowsTheCurrentSettingAlsoWhenItIsNotAmongTheChoices) {
    setFull();
    EXPECT_TRUE(fishModel->choices().isEmpty());
    EXPECT_EQ(fishModel->value(), QStringLiteral("s1"));
    Options options;
    options.fishModels = {QStringLiteral("other")};
    model().setOptions(options);
    EXPECT_EQ(ids(*fishModel), QStringList{QStringLiteral("other")});
    EXPECT_EQ(titles(*fishModel), QStringList{QStringLiteral("other")});
    EXPECT_EQ(fishModel->value(), QStringLiteral("s1"));
    EXPECT_EQ(fishModel->selected(), QStringLiteral("s1"));
}

TEST_F(VoiceScreenTest, ShowsACommittedTextAsApplyingUntilTheBackendHasIt) {
    setFull();
    backend().hang("/settings");
    voice->commit(QStringLiteral("new"));
    EXPECT_TRUE(becomes("new", true));
    EXPECT_EQ(toldSetting(), R"({"voiceId":"new"})");
    // What else happens meanwhile is of no account.
    setFull([](Snapshot &snapshot) { snapshot.settings.voiceName = QStringLiteral("Bruna"); });
    EXPECT_TRUE(becomes("new", true));
    EXPECT_FALSE(name->isBusy());
    hasVoice("new");
    backend().last("/settings")->reply("{}");
    fetch();
    EXPECT_TRUE(becomes("new", false));
}

TEST_F(VoiceScreenTest, ShowsTheOldTextAgainWhenTheBackendDidNotTakeTheNewOne) {
    setFull();
    hasVoice("a1b2c3d4");
    backend().serve("/settings", "{}", 400);
    voice->commit(QStringLiteral("new"));
    EXPECT_EQ(toldSetting(), R"({"voiceId":"new"})");
    EXPECT_TRUE(becomes("new", true));
    fetch();
    EXPECT_TRUE(becomes("a1b2c3d4", false));
    EXPECT_EQ(backend().count("/settings"), 1);
}

TEST_F(VoiceScreenTest, ShowsWhateverTheBackendMadeOfACommittedText) {
    setFull();
    voice->commit(QStringLiteral("new"));
    EXPECT_TRUE(becomes("new", true));
    hasVoice("NEW");
    fetch();
    EXPECT_TRUE(becomes("NEW", false));
}

TEST_F(VoiceScreenTest, KeepsACommittedTextWhileTheBackendIsAwayAndSendsItWhenItIsBack) {
    backend().on("/events", [](auto exchange) { exchange->beginEvents(); });
    hasVoice("a1b2c3d4");
    model().start();
    fetch();
    EXPECT_TRUE(becomes("a1b2c3d4", false));
    backend().goDown();
    EXPECT_TRUE(eventually([&] {
        scheduler().advance(100ms);
        return !model().snapshot();
    }));
    voice->commit(QStringLiteral("new"));
    EXPECT_TRUE(becomes("new", true));
    for (int seconds = 0; seconds < 5; ++seconds) {
        scheduler().advance(1s);
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(becomes("new", true));
    EXPECT_EQ(backend().count("/settings"), 0);
    backend().comeUp();
    EXPECT_TRUE(eventually([&] {
        scheduler().advance(100ms);
        return backend().count("/settings") == 1;
    }));
    EXPECT_EQ(toldSetting(), R"({"voiceId":"new"})");
    EXPECT_TRUE(becomes("new", true));
    hasVoice("new");
    fetch();
    EXPECT_TRUE(becomes("new", false));
    EXPECT_EQ(backend().count("/settings"), 1);
}

TEST_F(VoiceScreenTest, SendsATextThatWasKeptOnceAndNoMore) {
    setFull();
    hasVoice("a1b2c3d4");
    backend().goDown();
    voice->commit(QStringLiteral("new"));
    EXPECT_TRUE(eventually([&] {
        scheduler().advance(100ms);
        return !model().snapshot();
    }));
    backend().comeUp();
    backend().serve("/settings", "{}", 400);
    model().refresh();
    EXPECT_TRUE(eventually([&] {
        scheduler().advance(100ms);
        return backend().count("/settings") == 1;
    }));
    EXPECT_TRUE(eventually([&] {
        scheduler().advance(100ms);
        return !voice->isBusy();
    }));
    EXPECT_EQ(voice->text(), QStringLiteral("a1b2c3d4"));
    EXPECT_EQ(backend().count("/settings"), 1);
}
