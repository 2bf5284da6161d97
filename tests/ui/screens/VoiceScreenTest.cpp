#include "ui/screens/VoiceScreen.h"

#include "tests/ui/screens/Choices.h"
#include "tests/ui/support/UiTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

class VoiceScreenTest : public UiTest {
protected:
    VoiceScreenTest() { screen.setActive(true); }

    VoiceScreen screen{model()};
};

} // namespace

TEST_F(VoiceScreenTest, ShowsTheSettings) {
    setFull();
    EXPECT_EQ(screen.voice()->text(), QStringLiteral("a1b2c3d4"));
    EXPECT_EQ(screen.name()->text(), QStringLiteral("Palomet"));
    EXPECT_EQ(screen.speed()->value(), QStringLiteral("1.05×"));
    EXPECT_EQ(screen.fishModel()->value(), QStringLiteral("s1"));
    EXPECT_EQ(screen.fishModel()->selected(), QStringLiteral("s1"));
    EXPECT_EQ(screen.systemVoice()->value(), QStringLiteral("Luciana"));
}

TEST_F(VoiceScreenTest, NamesItsRows) {
    EXPECT_EQ(screen.voice()->title(), QStringLiteral("Voice"));
    EXPECT_EQ(screen.voice()->placeholder(), QStringLiteral("Paste a voice id"));
    EXPECT_EQ(screen.name()->placeholder(), QStringLiteral("Give it a name"));
    EXPECT_EQ(screen.speed()->title(), QStringLiteral("Speed"));
    EXPECT_EQ(screen.speed()->hint(), QString());
    EXPECT_EQ(screen.fishModel()->title(), QStringLiteral("Speech model"));
    EXPECT_EQ(screen.systemVoice()->title(), QStringLiteral("System voice"));
}

TEST_F(VoiceScreenTest, ShowsADashForTheSpeedWithoutASnapshot) {
    EXPECT_EQ(screen.speed()->value(), QStringLiteral("—"));
    EXPECT_EQ(screen.speed()->selected(), QString());
    EXPECT_EQ(screen.voice()->text(), QString());
    setFull();
    model().setSnapshot(nullptr);
    EXPECT_EQ(screen.speed()->value(), QStringLiteral("—"));
}

TEST_F(VoiceScreenTest, OffersFiveSpeedsNoneSlowerThanNormal) {
    EXPECT_EQ(ids(*screen.speed()), words("1.0 1.25 1.5 1.75 2.0"));
    EXPECT_EQ(titles(*screen.speed()), words("1× 1.25× 1.5× 1.75× 2×"));
    setFull([](Snapshot &snapshot) { snapshot.settings.voiceSpeed = 2; });
    EXPECT_EQ(screen.speed()->selected(), QStringLiteral("2.0"));
}

TEST_F(VoiceScreenTest, SendsTheSpeedAsANumberAndOneAndAHalfForWhatIsNone) {
    screen.speed()->pick(QStringLiteral("1.25"));
    EXPECT_EQ(toldSetting(), R"({"voiceSpeed":1.25})");
    screen.speed()->pick(QStringLiteral("2.0"));
    EXPECT_EQ(toldSetting(), R"({"voiceSpeed":2})");
    for (const auto *strange : {"fast", "", "inf", "nan", "1e999"}) {
        screen.speed()->pick(QString::fromUtf8(strange));
        EXPECT_EQ(toldSetting(), R"({"voiceSpeed":1.5})") << strange;
    }
}

TEST_F(VoiceScreenTest, SendsTextsAndChoicesAsTheyAre) {
    screen.voice()->commit(QStringLiteral("abc"));
    EXPECT_EQ(toldSetting(), R"({"voiceId":"abc"})");
    screen.name()->commit(QStringLiteral("Alma"));
    EXPECT_EQ(toldSetting(), R"({"voiceName":"Alma"})");
    screen.fishModel()->pick(QStringLiteral("s1-mini"));
    EXPECT_EQ(toldSetting(), R"({"fishModel":"s1-mini"})");
    screen.systemVoice()->pick(QStringLiteral("Luciana"));
    EXPECT_EQ(toldSetting(), R"({"fallbackVoice":"Luciana"})");
}

TEST_F(VoiceScreenTest, ShowsTheCurrentSettingAlsoWhenItIsNotAmongTheChoices) {
    setFull();
    EXPECT_TRUE(screen.fishModel()->choices().isEmpty());
    EXPECT_EQ(screen.fishModel()->value(), QStringLiteral("s1"));
    Options options;
    options.fishModels = {QStringLiteral("other")};
    model().setOptions(options);
    EXPECT_EQ(ids(*screen.fishModel()), QStringList{QStringLiteral("other")});
    EXPECT_EQ(titles(*screen.fishModel()), QStringList{QStringLiteral("other")});
    EXPECT_EQ(screen.fishModel()->value(), QStringLiteral("s1"));
    EXPECT_EQ(screen.fishModel()->selected(), QStringLiteral("s1"));
}
