#include "ui/screens/ListeningScreen.h"

#include "localization/Localization.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/ui/screens/Choices.h"
#include "tests/ui/support/UiTest.h"

#include <QSettings>
#include <QTemporaryDir>

using namespace palomet;
using namespace palomet::test;

namespace {

class ListeningScreenTest : public UiTest {
protected:
    ListeningScreenTest() { screen.setActive(true); }

    QTemporaryDir folder;
    QSettings file{folder.filePath(QStringLiteral("palomet.conf")), QSettings::IniFormat};
    Shortcuts shortcuts{file};
    FixedKeyboardLayout layout;
    ListeningScreen screen{model(), shortcuts, layout};
    SwitchSetting *echo = setting<SwitchSetting>(screen, "listening.echo");
    ChoiceSetting *microphone = setting<ChoiceSetting>(screen, "listening.microphone");
    ChoiceSetting *transcription = setting<ChoiceSetting>(screen, "listening.transcription");
    SwitchSetting *directed = setting<SwitchSetting>(screen, "listening.directed");
    SwitchSetting *draft = setting<SwitchSetting>(screen, "listening.draft");
    TextSetting *actionPhrase = setting<TextSetting>(screen, "listening.actionPhrase");
    ChoiceSetting *draftAge = setting<ChoiceSetting>(screen, "listening.draftAge");
    TextSetting *names = setting<TextSetting>(screen, "listening.name");
    ChoiceSetting *endSilence = setting<ChoiceSetting>(screen, "listening.endSilence");
    ChoiceSetting *followUp = setting<ChoiceSetting>(screen, "listening.followUp");
    ChoiceSetting *summon = setting<ChoiceSetting>(screen, "listening.summon");
    ChoiceSetting *echoGuard = setting<ChoiceSetting>(screen, "listening.echoGuard");
};

} // namespace

TEST_F(ListeningScreenTest, ShowsTheSettings) {
    setFull();
    EXPECT_TRUE(echo->isOn());
    EXPECT_EQ(microphone->value(), QStringLiteral("USB Audio"));
    EXPECT_EQ(microphone->selected(), QStringLiteral("USB Audio"));
    EXPECT_EQ(transcription->value(), QStringLiteral("large-v3-turbo"));
    EXPECT_FALSE(directed->isOn());
    EXPECT_TRUE(draft->isOn());
    EXPECT_EQ(actionPhrase->text(), QStringLiteral("pode fazer, go ahead"));
    EXPECT_EQ(draftAge->value(), QStringLiteral("15 min"));
    EXPECT_EQ(draftAge->selected(), QStringLiteral("900000"));
    EXPECT_EQ(names->text(), QStringLiteral("palomet, paloma"));
    EXPECT_EQ(endSilence->value(), QStringLiteral("0.9 s"));
    EXPECT_EQ(endSilence->selected(), QStringLiteral("900"));
    EXPECT_EQ(followUp->value(), QStringLiteral("8 s"));
    EXPECT_EQ(summon->selected(), QStringLiteral("8000"));
    EXPECT_EQ(echoGuard->value(), QStringLiteral("0.4 s"));
}

TEST_F(ListeningScreenTest, TellsTheCommandForAnySentenceWhereOnlyPhrasesAreUnderstood) {
    Options options;
    options.whisperModels = {QStringLiteral("pocketsphinx")};
    model().setOptions(options);
    EXPECT_TRUE(screen.transcription()->hint().contains(QStringLiteral("palomet-engine model add")));
    options.whisperModels = {QStringLiteral("small-q5_1"), QStringLiteral("pocketsphinx")};
    model().setOptions(options);
    EXPECT_EQ(screen.transcription()->hint(), L("listening.transcription.hint"));
}

TEST_F(ListeningScreenTest, FallsBackWithoutASnapshot) {
    EXPECT_FALSE(echo->isOn());
    EXPECT_FALSE(directed->isOn());
    EXPECT_FALSE(draft->isOn());
    EXPECT_EQ(actionPhrase->text(), QString());
    EXPECT_EQ(names->text(), QString());
    EXPECT_EQ(endSilence->value(), QStringLiteral("1.2 s"));
    EXPECT_EQ(endSilence->selected(), QStringLiteral("1200"));
    EXPECT_EQ(draftAge->value(), QStringLiteral("10 min"));
    EXPECT_EQ(draftAge->selected(), QStringLiteral("600000"));
    EXPECT_EQ(followUp->value(), QStringLiteral("—"));
    EXPECT_EQ(microphone->value(), QStringLiteral("—"));
}

TEST_F(ListeningScreenTest, FallsBackForWhatTheBackendLeavesOut) {
    setFull([](Snapshot &snapshot) {
        snapshot.settings.endSilenceMs.reset();
        snapshot.settings.draftMaxAgeMs.reset();
        snapshot.settings.inputDevice.reset();
        snapshot.settings.actionPhrases.reset();
    });
    EXPECT_EQ(endSilence->value(), QStringLiteral("1.2 s"));
    EXPECT_EQ(draftAge->value(), QStringLiteral("10 min"));
    EXPECT_EQ(microphone->value(), QStringLiteral("System default"));
    EXPECT_EQ(microphone->selected(), QString());
    EXPECT_EQ(actionPhrase->text(), QString());
    EXPECT_EQ(actionPhrase->placeholder(), QStringLiteral("go ahead"));
}

TEST_F(ListeningScreenTest, ShowsTheEchoSwitchOffWithItsHintWhileTheSettingIsAbsentAndAsksForOn) {
    setFull([](Snapshot &snapshot) { snapshot.settings.isEchoCancelOn.reset(); });
    EXPECT_FALSE(echo->isOn());
    EXPECT_EQ(echo->hint(), L("listening.echo.off"));
    echo->toggle(!echo->isOn());
    EXPECT_EQ(toldSetting(), R"({"isEchoCancelOn":true})");
    setFull();
    EXPECT_EQ(echo->hint(), L("listening.echo.on"));
}

TEST_F(ListeningScreenTest, ShowsANewPositionOnlyWhenTheBackendHasIt) {
    setFull();
    draft->toggle(false);
    EXPECT_EQ(toldSetting(), R"({"isDraftOn":false})");
    EXPECT_TRUE(draft->isOn());
    setFull([](Snapshot &snapshot) { snapshot.settings.isDraftOn = false; });
    EXPECT_FALSE(draft->isOn());
    directed->toggle(true);
    EXPECT_EQ(toldSetting(), R"({"isDirectedOn":true})");
}

TEST_F(ListeningScreenTest, OffersTheTimesAsTheyAreListed) {
    EXPECT_EQ(ids(*endSilence), words("800 1200 1600 2000 2500"));
    EXPECT_EQ(titles(*endSilence), QString::fromUtf8("0.8 s,1.2 s,1.6 s,2 s,2.5 s").split(u','));
    EXPECT_EQ(ids(*followUp), words("15000 30000 45000 60000 90000 120000"));
    EXPECT_EQ(ids(*summon), words("4000 6000 8000 10000 15000 20000"));
    EXPECT_EQ(ids(*echoGuard), words("0 500 800 1200 1500 2000"));
    EXPECT_EQ(titles(*echoGuard).first(), QStringLiteral("0 s"));
    EXPECT_EQ(ids(*draftAge), words("300000 600000 1200000 1800000 3600000"));
    EXPECT_EQ(titles(*draftAge), QString::fromUtf8("5 min,10 min,20 min,30 min,60 min").split(u','));
}

TEST_F(ListeningScreenTest, SendsAPickedTimeAsAWholeNumberAlsoNought) {
    echoGuard->pick(QStringLiteral("0"));
    EXPECT_EQ(toldSetting(), R"({"echoGuardMs":0})");
    endSilence->pick(QStringLiteral("1600"));
    EXPECT_EQ(toldSetting(), R"({"endSilenceMs":1600})");
    followUp->pick(QStringLiteral("90000"));
    EXPECT_EQ(toldSetting(), R"({"followUpMs":90000})");
    summon->pick(QStringLiteral("4000"));
    EXPECT_EQ(toldSetting(), R"({"summonMs":4000})");
    draftAge->pick(QStringLiteral("300000"));
    EXPECT_EQ(toldSetting(), R"({"draftMaxAgeMs":300000})");
}

TEST_F(ListeningScreenTest, SendsTheDefaultEndOfSpeechForATimeThatIsNone) {
    for (const auto *strange : {"", "soon", "1.5", "0x10", "1e3"}) {
        followUp->pick(QString::fromUtf8(strange));
        EXPECT_EQ(toldSetting(), R"({"followUpMs":1200})") << strange;
    }
}

TEST_F(ListeningScreenTest, SendsTheTrimmedWordsOfAListAndNoEmptyOnes) {
    names->commit(QStringLiteral("hey, , there"));
    EXPECT_EQ(toldSetting(), R"({"wakeWords":["hey","there"]})");
    names->commit(QStringLiteral("  palomet ,, hey palomet  ,"));
    EXPECT_EQ(toldSetting(), R"({"wakeWords":["palomet","hey palomet"]})");
    actionPhrase->commit(QStringLiteral("go ahead"));
    EXPECT_EQ(toldSetting(), R"({"actionPhrases":["go ahead"]})");
    actionPhrase->commit(QStringLiteral(","));
    EXPECT_EQ(toldSetting(), R"({"actionPhrases":[]})");
}

TEST_F(ListeningScreenTest, OffersInputsByTheirNamesAndSendsThemAsTheyCame) {
    Options options;
    options.inputs = {QStringLiteral("Microphone (USB Audio)"), QStringLiteral("Built-in Audio")};
    options.whisperModels = {QStringLiteral("base")};
    model().setOptions(options);
    EXPECT_EQ(ids(*microphone), (QStringList{options.inputs[0], options.inputs[1]}));
    EXPECT_EQ(titles(*microphone), (QStringList{QStringLiteral("USB Audio"), QStringLiteral("Built-in Audio")}));
    EXPECT_EQ(ids(*transcription), words("base"));
    microphone->pick(options.inputs[0]);
    EXPECT_EQ(toldSetting(), "{\"inputDevice\":\"Microphone (USB Audio)\"}");
    transcription->pick(QStringLiteral("base"));
    EXPECT_EQ(toldSetting(), R"({"whisperModel":"base"})");
}

TEST_F(ListeningScreenTest, IsBusyOnlyWhereTheSettingIsBeingApplied) {
    backend().hang("/settings");
    setFull();
    microphone->pick(QStringLiteral("USB Audio"));
    EXPECT_TRUE(microphone->isBusy());
    for (auto *other : {transcription, draftAge, endSilence, followUp, summon, echoGuard})
        EXPECT_FALSE(other->isBusy()) << other->title().toStdString();
    transcription->pick(QStringLiteral("base"));
    EXPECT_FALSE(microphone->isBusy());
    EXPECT_TRUE(transcription->isBusy());
}

TEST_F(ListeningScreenTest, IsBusyAlsoWhileNothingIsKnown) {
    backend().hang("/settings");
    for (auto *row : {microphone, transcription, draftAge, endSilence, followUp, summon, echoGuard}) {
        row->pick(QStringLiteral("8000"));
        EXPECT_TRUE(row->isBusy()) << row->title().toStdString();
    }
}

TEST_F(ListeningScreenTest, StaysBusyUntilALateAnswerComes) {
    ScriptedBackend::ExchangePointer waiting;
    backend().on("/settings", [&](auto exchange) { waiting = std::move(exchange); });
    setFull();
    microphone->pick(QStringLiteral("USB Audio"));
    ASSERT_TRUE(eventually([&] { return waiting != nullptr; }));
    // Snapshots that come meanwhile change nothing about it.
    setFull();
    EXPECT_TRUE(microphone->isBusy());
    waiting->reply("{}");
    EXPECT_TRUE(eventually([&] { return !microphone->isBusy(); }));
}

TEST_F(ListeningScreenTest, IsNoLongerBusyWhenTheAnswerNeverComesAndTheConnectionEnds) {
    ScriptedBackend::ExchangePointer waiting;
    backend().on("/settings", [&](auto exchange) { waiting = std::move(exchange); });
    microphone->pick(QStringLiteral("USB Audio"));
    ASSERT_TRUE(eventually([&] { return waiting != nullptr; }));
    waiting->abort();
    EXPECT_TRUE(eventually([&] { return !microphone->isBusy(); }));
}

TEST_F(ListeningScreenTest, SaysWhyTheListenKeyDoesNotWorkInPlaceOfItsHint) {
    EXPECT_EQ(screen.listenShortcut()->title(), QStringLiteral("Listen"));
    EXPECT_EQ(screen.listenShortcut()->description(), L("listening.listenShortcut.hint"));
    model().setHotKeyProblem(QStringLiteral("Taken."));
    EXPECT_EQ(screen.listenShortcut()->description(), QStringLiteral("Taken."));
    EXPECT_EQ(screen.stopShortcut()->description(), L("listening.stopShortcut.hint"));
    model().setHotKeyProblem(std::nullopt);
    EXPECT_EQ(screen.listenShortcut()->description(), L("listening.listenShortcut.hint"));
}

TEST_F(ListeningScreenTest, HasOneRecorderThatTakesAKeyAloneAndOneThatDoesNot) {
    EXPECT_EQ(screen.listenShortcut()->hint(), L("recorder.hint"));
    EXPECT_EQ(screen.stopShortcut()->hint(), L("recorder.hint.keyAlone"));
}

TEST_F(ListeningScreenTest, RecordsWithOneRecorderAtATime) {
    screen.listenShortcut()->toggle();
    screen.stopShortcut()->toggle();
    EXPECT_FALSE(screen.listenShortcut()->isRecording());
    EXPECT_TRUE(screen.stopShortcut()->isRecording());
    EXPECT_TRUE(shortcuts.isPaused());
    screen.stopShortcut()->toggle();
    EXPECT_FALSE(shortcuts.isPaused());
}

TEST_F(ListeningScreenTest, StopsRecordingWhenTheWindowIsClosedOrAnotherPaneIsChosen) {
    screen.listenShortcut()->toggle();
    ASSERT_TRUE(shortcuts.isPaused());
    screen.setActive(false);
    EXPECT_FALSE(screen.listenShortcut()->isRecording());
    EXPECT_FALSE(shortcuts.isPaused());
}
