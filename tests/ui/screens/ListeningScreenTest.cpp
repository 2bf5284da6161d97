#include "ui/screens/ListeningScreen.h"

#include "localization/Localization.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "tests/ui/screens/Choices.h"
#include "tests/ui/support/UiTest.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

class ListeningScreenTest : public UiTest {
protected:
    ListeningScreenTest() { screen.setActive(true); }

    QTemporaryDir folder;
    QSettings file{folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
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
    EXPECT_EQ(microphone->value(), u"USB Audio"_s);
    EXPECT_EQ(microphone->selected(), u"USB Audio"_s);
    EXPECT_EQ(transcription->value(), u"large-v3-turbo"_s);
    EXPECT_FALSE(directed->isOn());
    EXPECT_TRUE(draft->isOn());
    EXPECT_EQ(actionPhrase->text(), u"pode fazer, go ahead"_s);
    EXPECT_EQ(draftAge->value(), u"15 min"_s);
    EXPECT_EQ(draftAge->selected(), u"900000"_s);
    EXPECT_EQ(names->text(), u"palomet, paloma"_s);
    EXPECT_EQ(endSilence->value(), u"0.9 s"_s);
    EXPECT_EQ(endSilence->selected(), u"900"_s);
    EXPECT_EQ(followUp->value(), u"8 s"_s);
    EXPECT_EQ(summon->selected(), u"8000"_s);
    EXPECT_EQ(echoGuard->value(), u"0.4 s"_s);
}

TEST_F(ListeningScreenTest, TellsTheCommandForAnySentenceWhereOnlyPhrasesAreUnderstood) {
    Options options;
    options.whisperModels = {u"pocketsphinx"_s};
    model().setOptions(options);
    EXPECT_TRUE(transcription->hint().contains(u"palomet-engine model add"_s));
    options.whisperModels = {u"small-q5_1"_s, u"pocketsphinx"_s};
    model().setOptions(options);
    EXPECT_EQ(transcription->hint(), L("listening.transcription.hint"));
}

TEST_F(ListeningScreenTest, FallsBackWithoutASnapshot) {
    EXPECT_FALSE(echo->isOn());
    EXPECT_FALSE(directed->isOn());
    EXPECT_FALSE(draft->isOn());
    EXPECT_EQ(actionPhrase->text(), QString());
    EXPECT_EQ(names->text(), QString());
    EXPECT_EQ(endSilence->value(), u"1.2 s"_s);
    EXPECT_EQ(endSilence->selected(), u"1200"_s);
    EXPECT_EQ(draftAge->value(), u"10 min"_s);
    EXPECT_EQ(draftAge->selected(), u"600000"_s);
    EXPECT_EQ(followUp->value(), u"—"_s);
    EXPECT_EQ(microphone->value(), u"—"_s);
}

TEST_F(ListeningScreenTest, FallsBackForWhatTheBackendLeavesOut) {
    setFull([](Snapshot &snapshot) {
        snapshot.settings.endSilenceMs.reset();
        snapshot.settings.draftMaxAgeMs.reset();
        snapshot.settings.inputDevice.reset();
        snapshot.settings.actionPhrases.reset();
    });
    EXPECT_EQ(endSilence->value(), u"1.2 s"_s);
    EXPECT_EQ(draftAge->value(), u"10 min"_s);
    EXPECT_EQ(microphone->value(), u"System default"_s);
    EXPECT_EQ(microphone->selected(), QString());
    EXPECT_EQ(actionPhrase->text(), QString());
    EXPECT_EQ(actionPhrase->placeholder(), u"go ahead"_s);
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
    EXPECT_EQ(titles(*endSilence), u"0.8 s,1.2 s,1.6 s,2 s,2.5 s"_s.split(u','));
    EXPECT_EQ(ids(*followUp), words("15000 30000 45000 60000 90000 120000"));
    EXPECT_EQ(ids(*summon), words("4000 6000 8000 10000 15000 20000"));
    EXPECT_EQ(ids(*echoGuard), words("0 500 800 1200 1500 2000"));
    EXPECT_EQ(titles(*echoGuard).first(), u"0 s"_s);
    EXPECT_EQ(ids(*draftAge), words("300000 600000 1200000 1800000 3600000"));
    EXPECT_EQ(titles(*draftAge), u"5 min,10 min,20 min,30 min,60 min"_s.split(u','));
}

TEST_F(ListeningScreenTest, SendsAPickedTimeAsAWholeNumberAlsoNought) {
    echoGuard->pick(u"0"_s);
    EXPECT_EQ(toldSetting(), R"({"echoGuardMs":0})");
    endSilence->pick(u"1600"_s);
    EXPECT_EQ(toldSetting(), R"({"endSilenceMs":1600})");
    followUp->pick(u"90000"_s);
    EXPECT_EQ(toldSetting(), R"({"followUpMs":90000})");
    summon->pick(u"4000"_s);
    EXPECT_EQ(toldSetting(), R"({"summonMs":4000})");
    draftAge->pick(u"300000"_s);
    EXPECT_EQ(toldSetting(), R"({"draftMaxAgeMs":300000})");
}

TEST_F(ListeningScreenTest, SendsTheDefaultEndOfSpeechForATimeThatIsNone) {
    for (const auto *strange : {"", "soon", "1.5", "0x10", "1e3"}) {
        followUp->pick(QString::fromUtf8(strange));
        EXPECT_EQ(toldSetting(), R"({"followUpMs":1200})") << strange;
    }
}

TEST_F(ListeningScreenTest, SendsTheTrimmedWordsOfAListAndNoEmptyOnes) {
    names->commit(u"hey, , there"_s);
    EXPECT_EQ(toldSetting(), R"({"wakeWords":["hey","there"]})");
    names->commit(u"  palomet ,, hey palomet  ,"_s);
    EXPECT_EQ(toldSetting(), R"({"wakeWords":["palomet","hey palomet"]})");
    actionPhrase->commit(u"go ahead"_s);
    EXPECT_EQ(toldSetting(), R"({"actionPhrases":["go ahead"]})");
    actionPhrase->commit(u","_s);
    EXPECT_EQ(toldSetting(), R"({"actionPhrases":[]})");
}

TEST_F(ListeningScreenTest, OffersInputsByTheirNamesAndSendsThemAsTheyCame) {
    Options options;
    options.inputs = {u"Microphone (USB Audio)"_s, u"Built-in Audio"_s};
    options.whisperModels = {u"base"_s};
    model().setOptions(options);
    EXPECT_EQ(ids(*microphone), (QStringList{options.inputs[0], options.inputs[1]}));
    EXPECT_EQ(titles(*microphone), (QStringList{u"USB Audio"_s, u"Built-in Audio"_s}));
    EXPECT_EQ(ids(*transcription), words("base"));
    microphone->pick(options.inputs[0]);
    EXPECT_EQ(toldSetting(), "{\"inputDevice\":\"Microphone (USB Audio)\"}");
    transcription->pick(u"base"_s);
    EXPECT_EQ(toldSetting(), R"({"whisperModel":"base"})");
}

TEST_F(ListeningScreenTest, IsBusyOnlyWhereTheSettingIsBeingApplied) {
    backend().hang("/settings");
    setFull();
    microphone->pick(u"USB Audio"_s);
    EXPECT_TRUE(microphone->isBusy());
    for (auto *other : {transcription, draftAge, endSilence, followUp, summon, echoGuard})
        EXPECT_FALSE(other->isBusy()) << other->title().toStdString();
    transcription->pick(u"base"_s);
    EXPECT_FALSE(microphone->isBusy());
    EXPECT_TRUE(transcription->isBusy());
}

TEST_F(ListeningScreenTest, IsBusyAlsoWhileNothingIsKnown) {
    backend().hang("/settings");
    for (auto *row : {microphone, transcription, draftAge, endSilence, followUp, summon, echoGuard}) {
        row->pick(u"8000"_s);
        EXPECT_TRUE(row->isBusy()) << row->title().toStdString();
    }
}

TEST_F(ListeningScreenTest, StaysBusyUntilALateAnswerComes) {
    ScriptedBackend::ExchangePointer waiting;
    backend().on("/settings", [&](auto exchange) { waiting = std::move(exchange); });
    setFull();
    microphone->pick(u"USB Audio"_s);
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
    microphone->pick(u"USB Audio"_s);
    ASSERT_TRUE(eventually([&] { return waiting != nullptr; }));
    waiting->abort();
    EXPECT_TRUE(eventually([&] { return !microphone->isBusy(); }));
}

TEST_F(ListeningScreenTest, SaysWhyTheListenKeyDoesNotWorkInPlaceOfItsHint) {
    EXPECT_EQ(screen.listenShortcut()->title(), u"Listen"_s);
    EXPECT_EQ(screen.listenShortcut()->description(), L("listening.listenShortcut.hint"));
    model().setHotKeyProblem(u"Taken."_s);
    EXPECT_EQ(screen.listenShortcut()->description(), u"Taken."_s);
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

TEST_F(ListeningScreenTest, NamesTheCommandsWhereTheDesktopGrantsKeysToNoProgram) {
    EXPECT_EQ(screen.keysNote(), QString());
    QSignalSpy changes(&screen, &ListeningScreen::keysNoteChanged);
    shortcuts.setGrantable(false);
    shortcuts.setGrantable(false);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(screen.keysNote(), L("listening.keysByCommand"));
    for (const auto *command : {"palomet --listen", "palomet --stop"})
        EXPECT_TRUE(screen.keysNote().contains(QLatin1StringView(command)));
    shortcuts.setGrantable(true);
    EXPECT_EQ(screen.keysNote(), QString());
}
