#include "tests/ui/kit/Selects.h"

#include <gtest/gtest.h>

using namespace palomet::test;
using namespace Qt::StringLiterals;

TEST(ZenSelect, OpensAndClosesWithAPress) {
    Scene scene(three);
    scene.press("select");
    ASSERT_EQ(lists(scene).size(), 1);
    EXPECT_EQ(choices(scene).size(), 3);
    EXPECT_EQ(lists(scene).first()->mapToScene({}), QPointF(100, 140));
    scene.press("select");
    EXPECT_TRUE(isClosed(scene));
    EXPECT_TRUE(picks(scene).isEmpty());
}

TEST(ZenSelect, PicksClosesAndLeavesTheValueToItsOwner) {
    Scene scene(three);
    scene.press("select");
    scene.press(choices(scene).at(2));
    EXPECT_TRUE(isClosed(scene));
    EXPECT_EQ(picks(scene), QVariantList{u"c"_s});
    EXPECT_EQ(scene.text("select", "value"), u"1×"_s);
}

TEST(ZenSelect, AsksAgainForTheChoiceThatIsSelectedAlready) {
    Scene scene(three);
    scene.press("select");
    scene.press(choices(scene).at(1));
    EXPECT_EQ(picks(scene), QVariantList{u"b"_s});
}

TEST(ZenSelect, MarksOnlyTheSelectedChoice) {
    Scene scene(three);
    scene.press("select");
    for (auto *choice : choices(scene))
        EXPECT_EQ(choice->property("isSelected").toBool(), choice->property("index") == 1);
    scene.item("select")->setProperty("selected", u"none of them"_s);
    for (auto *choice : choices(scene))
        EXPECT_FALSE(choice->property("isSelected").toBool());
}

TEST(ZenSelect, StartsOpenWhenAskedTo) {
    Scene scene(R"(ZenSelect { objectName: "select"; startOpen: true; choices: [{ id: "a", title: "A" }] })");
    EXPECT_EQ(lists(scene).size(), 1);
}

TEST(ZenSelect, ShowsThatItIsBusyInTheValuesPlace) {
    Scene scene(R"(ZenSelect { objectName: "select"; value: "One"; isBusy: true; busyText: "Applying…" })");
    EXPECT_EQ(Scene::all(scene.root(), "ZenSelectBox").first()->property("value"), u"Applying…"_s);
    scene.item("select")->setProperty("isBusy", false);
    EXPECT_EQ(Scene::all(scene.root(), "ZenSelectBox").first()->property("value"), u"One"_s);
}

TEST(ZenSelect, IsWorkedByKeysAlone) {
    Scene scene(three);
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Space);
    ASSERT_EQ(lists(scene).size(), 1);
    EXPECT_EQ(lists(scene).first()->property("current"), 1);
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(isClosed(scene));
    EXPECT_EQ(picks(scene), QVariantList{u"c"_s});
    EXPECT_TRUE(scene.item("select")->hasActiveFocus());
    EXPECT_TRUE(scene.value("select", "isReached").toBool());
}

TEST(ZenSelect, FindsAChoiceByItsFirstLetter) {
    Scene scene(three);
    scene.press("select");
    scene.key(Qt::Key_G);
    EXPECT_EQ(lists(scene).first()->property("current"), 2);
}

TEST(ZenSelect, ClosesWithEscapeAndKeepsTheFocus) {
    Scene scene(three);
    scene.press("select");
    scene.key(Qt::Key_Escape);
    EXPECT_TRUE(isClosed(scene));
    EXPECT_TRUE(picks(scene).isEmpty());
    EXPECT_TRUE(scene.item("select")->hasActiveFocus());
}

TEST(ZenSelect, ClosesWithTabAndGoesOn) {
    Scene scene(three);
    scene.press("select");
    scene.key(Qt::Key_Tab);
    EXPECT_TRUE(isClosed(scene));
    EXPECT_TRUE(scene.item("other")->hasActiveFocus());
}

TEST(ZenSelect, ClosesWithAPressElsewhereThatPressesNothing) {
    Scene scene(three);
    scene.press("select");
    scene.press("other");
    EXPECT_TRUE(isClosed(scene));
    EXPECT_FALSE(scene.item("other")->hasActiveFocus());
}

TEST(ZenSelect, ClosesWithItsWindow) {
    Scene scene(three);
    scene.press("select");
    scene.window().hide();
    EXPECT_TRUE(isClosed(scene));
    scene.window().show();
    EXPECT_TRUE(lists(scene).isEmpty());
}

TEST(ZenSelect, OpensUpwardsWhereThereIsNoRoomBelow) {
    Scene scene(R"(Item { width: 640; height: 480
        ZenSelect { objectName: "select"; y: 440; choices: [{ id: "a", title: "A" }, { id: "b", title: "B" }] } })");
    scene.press("select");
    EXPECT_EQ(lists(scene).first()->mapToScene({}).y(), 440 - 4 - 72);
}

TEST(ZenSelect, ShowsEightChoicesAndScrollsToTheRest) {
    Scene scene(R"(Item { width: 640; height: 480
        ZenSelect { objectName: "select"
            choices: Array.from({length: 1000}, (_, i) => ({ id: String(i), title: "Choice " + i })) } })");
    scene.press("select");
    EXPECT_EQ(lists(scene).first()->height(), 8 + 8 * 32);
    // Only what shows is made.
    EXPECT_LT(choices(scene).size(), 40);
    scene.key(Qt::Key_End);
    EXPECT_EQ(lists(scene).first()->property("current"), 999);
}

TEST(ZenSelect, CutsATitleThatIsTooLongWhereItCutsItsValue) {
    Scene scene(R"(Item { width: 640; height: 480
        ZenSelect { objectName: "select"; width: 160; valueElide: Text.ElideMiddle
            choices: [{ id: "a", title: "2.1.0 · /home/ana/.local/share/versions/2.1.0/claude" }] } })");
    scene.press("select");
    const auto titles = Scene::all(choices(scene).first(), "ElidedText");
    ASSERT_EQ(titles.size(), 1);
    EXPECT_TRUE(titles.first()->property("truncated").toBool());
    EXPECT_EQ(titles.first()->property("elide").toInt(), Qt::ElideMiddle);
}

TEST(ZenSelect, OpensNothingWithoutAChoice) {
    Scene scene(R"(ZenSelect { objectName: "select"; value: "s1" })");
    scene.press("select");
    EXPECT_TRUE(lists(scene).isEmpty());
    scene.key(Qt::Key_Down);
    scene.key(Qt::Key_Space);
    EXPECT_TRUE(lists(scene).isEmpty());
    EXPECT_TRUE(isClosed(scene));
}

TEST(ZenSelect, ClosesWhenItsChoicesAreTaken) {
    Scene scene(three);
    scene.press("select");
    scene.item("select")->setProperty("choices", QVariantList());
    EXPECT_TRUE(isClosed(scene));
}

TEST(ZenSelect, ShowsADashWhereItsValueIsEmpty) {
    Scene scene(R"(ZenSelect { objectName: "select" })");
    const auto texts = Scene::all(scene.root(), "ElidedText");
    ASSERT_EQ(texts.size(), 1);
    EXPECT_EQ(texts.first()->property("text"), u"\u2014"_s);
}
