#include "tests/ui/kit/Selects.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace palomet::test;
using namespace Qt::StringLiterals;

TEST(SelectList, KeepsWhatTheKeyboardChoseWhileRowsSlideUnderAPointerAtRest) {
    Scene scene(twenty);
    scene.press("select");
    scene.point(choice(scene, 3));
    scene.draw();
    ASSERT_EQ(current(scene), 3);
    for (int press = 0; press < 10; ++press) {
        scene.key(Qt::Key_Down);
        scene.draw();
    }
    EXPECT_EQ(current(scene), 13);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(picks(scene), QVariantList{u"13"_s});
}

TEST(SelectList, FollowsThePointerAgainOnceItMoves) {
    Scene scene(twenty);
    scene.press("select");
    scene.point(choice(scene, 3));
    scene.key(Qt::Key_Down);
    ASSERT_EQ(current(scene), 4);
    QTest::mouseMove(&scene.window(), choice(scene, 3)->mapToScene({20, 20}).toPoint());
    EXPECT_EQ(current(scene), 3);
}

TEST(SelectList, PicksByAPressOnTheCheckMarkOfAListThatScrolls) {
    Scene scene(twenty);
    scene.press("select");
    scene.draw();
    QQuickItem *mark = nullptr;
    for (auto *icon : Scene::all(choice(scene, 1), "Icon"))
        mark = icon;
    ASSERT_TRUE(mark && mark->isVisible());
    const auto place = mark->mapRectToScene(mark->boundingRect());
    for (auto *thumb : Scene::all(lists(scene).first(), "ScrollThumb"))
        EXPECT_LE(place.right(), thumb->mapRectToScene(thumb->boundingRect()).left());
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, (place.center() + QPointF(7, 0)).toPoint());
    EXPECT_EQ(picks(scene), QVariantList{u"1"_s});
}

TEST(SelectList, ScrollsByWholeRowsWithTheWheel) {
    Scene scene(twenty);
    scene.press("select");
    const auto at = lists(scene).first()->mapToScene({40, 40});
    const auto top = [&] { return choice(scene, 10)->mapToItem(lists(scene).first(), QPointF()).y(); };
    for (const int angle : {-120, -120, -40, -40, -40, 120, -120, -30, -30, -30, -30, -30, -30}) {
        wheel(scene, at, angle);
        scene.draw();
        EXPECT_EQ(std::fmod(top() - 4, 32), 0) << top();
    }
    // What a touchpad gives bit by bit adds up.
    EXPECT_EQ(top(), 4 + 32 * (10 - 9));
}

TEST(SelectList, KeepsItsPlaceAmongChoicesThatBecomeOthersWhileItIsOpen) {
    Scene scene(R"(
        Item { width: 640; height: 480
            ZenSelect { objectName: "select"; y: 440; selected: "b"
                choices: [{ id: "a", title: "Alpha" }, { id: "b", title: "Beta" }] } })");
    scene.press("select");
    scene.draw();
    ASSERT_EQ(current(scene), 1);
    scene.item("select")->setProperty("choices", QVariantList{QVariantMap{{u"id"_s, u"new"_s}, {u"title"_s, u"New"_s}},
                                                              QVariantMap{{u"id"_s, u"a"_s}, {u"title"_s, u"Alpha"_s}},
                                                              QVariantMap{{u"id"_s, u"b"_s}, {u"title"_s, u"Beta"_s}}});
    scene.draw();
    EXPECT_EQ(current(scene), 2);
    EXPECT_EQ(lists(scene).first()->mapToScene({}).y(), 440 - 4 - (8 + 3 * 32));
}

TEST(SelectList, TakesItsListAlongWhenItIsGone) {
    Scene scene(R"(
        Item { width: 640; height: 480
            Repeater { objectName: "selects"; model: 1
                ZenSelect { objectName: "select"; choices: [{ id: "a", title: "Alpha" }] } } })");
    scene.press("select");
    ASSERT_EQ(lists(scene).size(), 1);
    scene.item("selects")->setProperty("model", 0);
    scene.draw();
    EXPECT_TRUE(eventually([&] { return lists(scene).isEmpty(); }));
}

TEST(SelectList, FindsAChoiceByAllThatWasTypedInARow) {
    Scene scene(R"(
        Item { width: 640; height: 480
            ZenSelect { objectName: "select"
                choices: ["large", "large turbo", "large-v2", "large-v3", "medium", "small"].map(name => ({ id: name, title: name })) } })");
    scene.press("select");
    scene.type("l");
    EXPECT_EQ(current(scene), 0);
    for (const auto *letter : {"a", "r", "g", "e", "-", "v", "3"})
        scene.type(letter);
    EXPECT_EQ(current(scene), 3);
    Scene again(three);
    again.press("select");
    again.type("g");
    again.type("a");
    EXPECT_EQ(current(again), 2);
    // A blank belongs to what is typed; it picks only at its beginning.
    Scene blank(R"(
        Item { width: 640; height: 480
            ZenSelect { objectName: "select"
                choices: ["large", "large turbo"].map(name => ({ id: name, title: name })) } })");
    blank.press("select");
    for (const auto *letter : {"l", "a", "r", "g", "e"})
        blank.type(letter);
    blank.key(Qt::Key_Space);
    ASSERT_EQ(lists(blank).size(), 1);
    blank.type("t");
    EXPECT_EQ(current(blank), 1);
}

TEST(SelectList, GoesOnToTheNextChoiceOfALetterThatIsTypedAgain) {
    Scene scene(R"(
        Item { width: 640; height: 480
            ZenSelect { objectName: "select"
                choices: ["small", "base", "medium", "massive", "mini"].map(name => ({ id: name, title: name })) } })");
    scene.press("select");
    for (const int expected : {2, 3, 4, 2}) {
        scene.type("m");
        EXPECT_EQ(current(scene), expected);
    }
}

TEST(SelectList, OpensWhenTheButtonGoesDownAndStaysOpenWhenItComesUp) {
    Scene scene(three);
    const auto box = scene.item("select")->mapToScene({20, 20}).toPoint();
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, box);
    EXPECT_EQ(lists(scene).size(), 1);
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, box);
    EXPECT_EQ(lists(scene).size(), 1);
    EXPECT_FALSE(scene.value("select", "isHeld").toBool());
}

TEST(SelectList, PicksWhatTheButtonIsReleasedOver) {
    Scene scene(three);
    const auto box = scene.item("select")->mapToScene({20, 20}).toPoint();
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, box);
    const auto at = choice(scene, 2)->mapToScene({30, 16}).toPoint();
    QTest::mouseMove(&scene.window(), choice(scene, 0)->mapToScene({30, 16}).toPoint());
    EXPECT_EQ(current(scene), 0);
    QTest::mouseMove(&scene.window(), at);
    EXPECT_EQ(current(scene), 2);
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, at);
    EXPECT_TRUE(isClosed(scene));
    EXPECT_EQ(picks(scene), QVariantList{u"c"_s});
    // Released over nothing, it stays open and nothing is picked.
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, box);
    QTest::mouseMove(&scene.window(), {600, 20});
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, {600, 20});
    EXPECT_EQ(lists(scene).size(), 1);
    EXPECT_EQ(picks(scene).size(), 1);
}

TEST(SelectList, ShowsAWholeTitleBesideTheListAndOverNoOtherChoice) {
    Scene scene(R"(
        Item { width: 640; height: 480
            ZenSelect { objectName: "select"; x: 440; width: 160
                choices: ["one", "two", "three"].map(name => ({ id: name, title: name + " of a length that fits no box".repeat(2) })) } })");
    scene.press("select");
    scene.point(choice(scene, 0));
    const auto tips = [&] { return Scene::all(scene.window().contentItem(), "TipBox"); };
    ASSERT_TRUE(eventually([&] { return !tips().isEmpty(); }));
    const auto tip = tips().first()->mapRectToScene(tips().first()->boundingRect());
    const auto list = lists(scene).first()->mapRectToScene(lists(scene).first()->boundingRect());
    EXPECT_FALSE(tip.intersects(list));
    EXPECT_TRUE(QRectF(0, 0, 640, 480).contains(tip));
}
