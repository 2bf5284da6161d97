#include "tests/ui/support/Scene.h"

#include <gtest/gtest.h>

#include <cmath>

using palomet::test::eventually;
using palomet::test::Scene;

TEST(ZenButton, IsClickedByMouseSpaceAndReturn) {
    Scene scene(R"(
        Item { property int clicks: 0
            ZenButton { objectName: "button"; title: "Stop"; onClicked: parent.clicks += 1 } })");
    scene.press("button");
    EXPECT_EQ(scene.root()->property("clicks"), 1);
    scene.key(Qt::Key_Space);
    EXPECT_EQ(scene.root()->property("clicks"), 2);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(scene.root()->property("clicks"), 3);
}

TEST(ZenButton, IsNotClickedWhenTheMouseIsReleasedElsewhere) {
    Scene scene(R"(
        Item { property int clicks: 0
            ZenButton { objectName: "button"; title: "Stop"; onClicked: parent.clicks += 1 } })");
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, {10, 10});
    EXPECT_TRUE(scene.value("button", "isHeld").toBool());
    QTest::mouseMove(&scene.window(), {300, 300});
    EXPECT_FALSE(scene.value("button", "isHeld").toBool());
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, {300, 300});
    EXPECT_EQ(scene.root()->property("clicks"), 0);
}

TEST(ZenButton, DoesNothingWhileDisabled) {
    Scene scene(R"(
        Item { property int clicks: 0
            ZenButton { objectName: "button"; title: "Stop"; enabled: false; onClicked: parent.clicks += 1 } })");
    scene.press("button");
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Space);
    EXPECT_EQ(scene.root()->property("clicks"), 0);
}

TEST(ZenButton, ShowsARingOnlyWhenTheKeyboardBroughtTheFocus) {
    Scene scene(
        R"(Row { ZenButton { objectName: "one"; title: "One" } ZenButton { objectName: "two"; title: "Two" } })");
    scene.press("one");
    EXPECT_FALSE(scene.value("one", "isReached").toBool());
    scene.key(Qt::Key_Tab);
    EXPECT_TRUE(scene.value("two", "isReached").toBool());
    scene.key(Qt::Key_Backtab);
    EXPECT_TRUE(scene.value("one", "isReached").toBool());
    EXPECT_FALSE(scene.value("two", "isReached").toBool());
}

TEST(ZenSwitch, AsksForTheOppositeAndStaysWhereItsOwnerHasIt) {
    Scene scene(R"(
        Item { property var asked: []
            ZenSwitch { objectName: "switch"; isOn: false; onToggled: isOn => parent.asked.push(isOn) } })");
    scene.press("switch");
    EXPECT_FALSE(scene.value("switch", "isOn").toBool());
    scene.item("switch")->setProperty("isOn", true);
    scene.key(Qt::Key_Space);
    EXPECT_TRUE(scene.value("switch", "isOn").toBool());
    EXPECT_EQ(scene.root()->property("asked").toList(), (QVariantList{true, false}));
}

TEST(SoftBox, ChangesItsColoursAWhileAfterItWasPointedAt) {
    Scene scene(R"(ZenFieldBox { objectName: "box"; width: 200; height: 36 })");
    const auto edge = [&] { return scene.value("box", "edge").value<QColor>(); };
    const QColor pointed(0x6B, 0x72, 0x80);
    scene.item("box")->setProperty("isPointed", true);
    EXPECT_NE(edge(), pointed);
    EXPECT_TRUE(eventually([&] { return edge() == pointed; }));
}

TEST(SettingRow, HasNoHintLineWithoutAHint) {
    Scene scene(R"(
        SettingRows { width: 640
            SettingRow { objectName: "bare"; title: "Speed" }
            SettingRow { objectName: "hinted"; title: "Voice"; hint: "What it sounds like." } })");
    EXPECT_EQ(scene.item("bare")->height(), 52);
    // A rule, and one line of hint.
    EXPECT_EQ(scene.item("hinted")->height(), 70);
}

TEST(SettingRow, BeginsEveryControlOnTheSameLine) {
    Scene scene(R"(
        SettingRows { width: 640
            SettingRow { title: "Speed"; ZenSelect { objectName: "select" } }
            SettingRow { title: "A very long title that does not fit beside its control at all, not even nearly"
                ZenSwitch { objectName: "switch" } } })");
    EXPECT_EQ(scene.item("select")->mapToScene({}).x(), 320);
    EXPECT_EQ(scene.item("switch")->mapToScene({}).x(), 320);
}

TEST(CellRow, StandsInTwoColumnsWhereThereIsNoRoomForFour) {
    Scene scene(R"(
        CellRow { width: 724
            Cell { label: "A" } Cell { objectName: "b"; label: "B" }
            Cell { objectName: "c"; label: "C" } Cell { objectName: "d"; label: "D" } })");
    EXPECT_EQ(scene.item("c")->x(), 362);
    EXPECT_EQ(scene.item("c")->y(), 1);
    EXPECT_TRUE(scene.value("d", "isLast").toBool());
    EXPECT_FALSE(scene.value("b", "isLast").toBool());
    scene.root()->setWidth(564);
    EXPECT_EQ(scene.item("b")->x(), 282);
    EXPECT_EQ(scene.item("c")->x(), 0);
    EXPECT_GT(scene.item("c")->y(), 90);
    EXPECT_TRUE(scene.value("b", "isLast").toBool());
}

TEST(CellRow, ItsRulesGoFromEdgeToEdgeAlsoWhenItHasBecomeAnotherWidth) {
    Scene scene(R"(
        Column { id: page; width: -96
            CellRow { width: page.width; Cell { note: "note" } Cell {} Cell {} Cell {} }
            CellRow { width: page.width; Cell {} Cell {} Cell {} Cell {} } })");
    for (const int width : {724, 904, 604, 900}) {
        scene.root()->setWidth(width);
        const auto lines = Scene::all(scene.root(), "HairLine");
        const auto rules =
            std::count_if(lines.begin(), lines.end(), [&](const auto *line) { return line->width() == width; });
        EXPECT_EQ(rules, width < 720 ? 4 : 2) << width;
    }
}

TEST(DataRow, CutsAQuestionOfTenThousandLettersAndKeepsTheDetailWhole) {
    Scene scene(R"(
        Rows { width: 640
            DataRow { objectName: "row"; label: "Today 14:44"; value: "why ".repeat(2500); trailing: "1 answer · US$ 0.03" } })");
    EXPECT_EQ(scene.item("row")->height(), 44);
    EXPECT_EQ(scene.item("row")->width(), 640);
}

TEST(Texts, AreShownAsTheyAreWrittenMarkupIncluded) {
    Scene scene(
        R"(Column { Repeater { model: 1; ElidedText { objectName: "text"; text: "<b>bold</b><img src='file:///x.png'>" } } })");
    EXPECT_EQ(scene.value("text", "textFormat").toInt(), 0);
    EXPECT_GT(scene.value("text", "implicitWidth").toReal(), 200);
}

TEST(CellRow, StandsInFourColumnsWhereThereIsRoomAndElseInTwoWhateverItWasBefore) {
    Scene scene(R"(
        CellRow { width: 640
            Cell { objectName: "one" } Cell { objectName: "two" } Cell { objectName: "three" }
            Cell { objectName: "four" } })");
    EXPECT_EQ(scene.item("two")->x(), 320);
    EXPECT_EQ(scene.item("three")->x(), 0);
    scene.root()->setWidth(724);
    EXPECT_EQ(scene.item("three")->x(), 362);
    EXPECT_EQ(scene.item("four")->y(), scene.item("one")->y());
    scene.root()->setWidth(719);
    EXPECT_EQ(scene.item("three")->x(), 0);
    EXPECT_GT(scene.item("four")->y(), scene.item("one")->y());
}

TEST(DataRow, StandsOnOneLine) {
    Scene scene(R"(DataRow { width: 640; label: "Today 14:44"; value: "Why?"; trailing: "1 answer" })");
    const auto baseline = [](QQuickItem *text) { return text->y() + text->baselineOffset(); };
    const auto texts = Scene::all(scene.root(), "ZenData") + Scene::all(scene.root(), "Prose");
    ASSERT_EQ(texts.size(), 3);
    EXPECT_EQ(std::round(baseline(texts[0])), std::round(baseline(texts[2])));
    EXPECT_EQ(std::round(baseline(texts[1])), std::round(baseline(texts[2])));
}

TEST(ZenButton, IsAWholeNumberOfPointsWide) {
    Scene scene(R"(
        Column {
            Repeater { model: ["Stop", "Listen", "New conversation", "Tocar amostra", "Adicionar pasta", "Enviar"]
                ZenButton { required property string modelData; title: modelData; icon: "microphone" } } })");
    const auto buttons = Scene::all(scene.root(), "ZenButton");
    ASSERT_EQ(buttons.size(), 6);
    for (auto *button : buttons)
        EXPECT_EQ(button->width(), std::round(button->width())) << button->property("title").toString().toStdString();
}

TEST(TipBox, IsAsWideAsItsLongestLine) {
    Scene scene(R"(
        Column { width: 640
            TipBox { objectName: "one"; text: "A word" }
            TipBox { objectName: "two"; text: "word ".repeat(14) + "unbreakably-long-and-longer-still-than-the-room-on-the-line" } })");
    for (const auto *name : {"one", "two"}) {
        const auto *words = Scene::all(scene.item(name), "ZenText").first();
        EXPECT_EQ(scene.item(name)->width(), std::ceil(words->property("contentWidth").toReal()) + 16) << name;
    }
    EXPECT_EQ(Scene::all(scene.item("two"), "ZenText").first()->property("lineCount"), 2);
}

TEST(SettingRow, WrapsItsTitleUnlessItIsAPath) {
    Scene scene(R"(
        SettingRows { width: 640
            SettingRow { objectName: "action"; title: "Send money to somebody whom you have never written to before, whoever asks" }
            SettingRow { objectName: "path"; titleElide: Text.ElideMiddle
                title: "/home/ana/projects/of/the/year/website/with/a/very/long/name/indeed" } })");
    const auto *action = Scene::all(scene.item("action"), "ElidedText").first();
    EXPECT_FALSE(action->property("truncated").toBool());
    EXPECT_EQ(action->property("lineCount"), 2);
    EXPECT_EQ(scene.item("action")->height(), 16 + 2 * 20 + 12);
    EXPECT_TRUE(Scene::all(scene.item("path"), "ElidedText").first()->property("truncated").toBool());
    EXPECT_EQ(scene.item("path")->height(), 53);
}

TEST(SettingRow, TurnsItsSwitchByAPressOnItsWords) {
    Scene scene(R"(
        SettingRows { id: root; width: 640; property int count: 0
            SettingRow { title: "Echo cancellation"; hint: "It does not hear its own voice."; buddy: turn
                ZenSwitch { id: turn; objectName: "switch"; onToggled: root.count += 1 } } })");
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {30, 26});
    EXPECT_EQ(scene.root()->property("count"), 1);
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {30, 46});
    EXPECT_EQ(scene.root()->property("count"), 2);
    EXPECT_TRUE(scene.item("switch")->hasActiveFocus());
    QTest::mouseMove(&scene.window(), {30, 26});
    EXPECT_TRUE(scene.value("switch", "isPointed").toBool());
    QTest::mouseMove(&scene.window(), {30, 400});
    EXPECT_FALSE(scene.value("switch", "isPointed").toBool());
}
