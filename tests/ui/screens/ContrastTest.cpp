#include "tests/ui/support/Contrast.h"

#include "tests/ui/screens/WindowTest.h"
#include "ui/kit/Wishes.h"
#include "ui/preview/Preview.h"
#include "ui/strip/StripPanel.h"
#include "ui/strip/StripView.h"

using namespace palomet;
using namespace palomet::test;

namespace {

class ContrastOnScreenTest : public WindowTest, public ::testing::WithParamInterface<bool> {
protected:
    ContrastOnScreenTest() {
        Wishes::of(engine).setMotionReduced(true);
        Wishes::of(engine).setContrastRaised(GetParam());
    }

    void expectContrastIn(const std::string &where) {
        QCoreApplication::processEvents();
        expectContrast(*window, Palette(engine), GetParam(), where);
    }
    /// Everything that can be pressed, pointed at or held.
    void touchAll(bool isPointed, bool isHeld) {
        for (const auto *type : {"Pressable", "ZenButton", "ZenSelect", "ZenSwitch", "SidebarItem", "MicrophoneLine"})
            for (auto *item : all(type)) {
                item->setProperty("isPointed", isPointed);
                item->setProperty("isHeld", isHeld);
            }
        for (auto *field : all("ZenTextField"))
            field->setProperty("isPointed", isPointed);
    }
};

} // namespace

TEST_P(ContrastOnScreenTest, IsEnoughOnEveryPaneWhateverIsPointedAtOrHeld) {
    open(Pane::Now);
    window->resize(1120, 1500);
    for (const auto *content : {"filled", "without a microphone", "offline"}) {
        if (content == std::string("filled"))
            Preview::fill(model());
        else if (content == std::string("offline"))
            model().setSnapshot(nullptr);
        else
            model().setMicAuthorized(false);
        for (const auto pane : allPanes) {
            navigation.setPane(pane);
            const auto where = rawValue(pane).toStdString() + ' ' + content;
            for (const auto &[isPointed, isHeld] : {std::pair{false, false}, {true, false}, {true, true}}) {
                touchAll(isPointed, isHeld);
                expectContrastIn(where + (isHeld ? ", held" : isPointed ? ", pointed at" : ""));
            }
            touchAll(false, false);
        }
    }
}

TEST_P(ContrastOnScreenTest, IsEnoughInARecorderInEachOfItsStates) {
    Preview::fill(model());
    open(Pane::Listening);
    window->resize(1120, 1500);
    auto &recorder = *app.listening()->listenShortcut();
    recorder.start();
    expectContrastIn("recording");
    recorder.handle(0, Shortcut::shift);
    expectContrastIn("refused");
    recorder.stop();
    shortcuts.setListen(std::nullopt);
    expectContrastIn("none");
    touchAll(true, false);
    expectContrastIn("none, pointed at");
}

TEST_P(ContrastOnScreenTest, IsEnoughInAnOpenList) {
    Preview::fill(model());
    open(Pane::Listening);
    press(named("ZenSelect", QStringLiteral("Transcription model")));
    expectContrastIn("list");
    key(Qt::Key_Down);
    expectContrastIn("list by keys");
}

TEST_P(ContrastOnScreenTest, IsEnoughOnTheStripInEveryState) {
    StripView strip(model(), [] {});
    QQuickView view(&engine, nullptr);
    view.setInitialProperties({{QStringLiteral("strip"), QVariant::fromValue(&strip)}});
    view.resize(StripPanel::size);
    view.setResizeMode(QQuickView::SizeRootObjectToView);
    view.setSource(QUrl(QStringLiteral("qrc:/qt/qml/Palomet/Ui/StripContent.qml")));
    strip.setShown(true);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    for (const auto *state : {"listening", "hearing", "drafting", "thinking", "speaking", "muted"}) {
        setFull([&](Snapshot &snapshot) { snapshot.state = QString::fromLatin1(state); });
        QCoreApplication::processEvents();
        const Looker looker(view);
        EXPECT_GE(looker.pairs().size(), 2U) << state;
        for (const auto &pair : looker.pairs())
            EXPECT_GE(contrast(pair.color, pair.ground), wanted(pair.ink, GetParam()))
                << state << ": " << pair.what.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(AsItIsAndRaised, ContrastOnScreenTest, ::testing::Bool(),
                         [](const auto &wish) { return wish.param ? "Raised" : "Normal"; });
