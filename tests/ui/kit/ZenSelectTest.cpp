#include "tests/ui/support/Scene.h"

#include <gtest/gtest.h>

#include <cmath>

using palomet::test::eventually;
using palomet::test::Scene;

namespace {

constexpr auto three = R"(
    Item { width: 640; height: 480
        property var picks: []
        ZenSelect { objectName: "select"; x: 100; y: 100; width: 160; value: "1×"; selected: "b"
            choices: [{ id: "a", title: "Alpha" }, { id: "b", title: "Beta" }, { id: "c", title: "Gamma" }]
            onPicked: id => parent.picks.push(id) }
        ZenButton { objectName: "other"; x: 400; y: 400; title: "Other" } })";

QList<QQuickItem *> lists(Scene &scene) {
    return Scene::all(scene.window().contentItem(), "SelectList");
}

QList<QQuickItem *> choices(Scene &scene) {
    QList<QQuickItem *> found;
    for (auto *list : lists(scene))
        for (auto *item : Scene::all(list, "Pressable"))
            if (item->property("modelData").isValid())
                found.append(item);
    return found;
}

QVariantList picks(Scene &scene) {
    return scene.root()->property("picks").toList();
}

/// Twenty choices, of which eight show.
constexpr auto twenty = R"(
    Item { width: 640; height: 480
        property var picks: []
        ZenSelect { objectName: "select"; width: 160; selected: "1"
            choices: Array.from({length: 20}, (_, i) => ({ id: String(i), title: "Choice " + i }))
            onPicked: id => parent.picks.push(id) } })";

int current(Scene &scene) {
    return lists(scene).first()->property("current").toInt();
}

QQuickItem *choice(Scene &scene, int index) {
    for (auto *item : choices(scene))
        if (item->property("index") == index && item->isVisible())
            return item;
    ADD_FAILURE() << "Choice " << index << " does not show.";
    return nullptr;
}

/// Lets the window draw, and with it find out what is under the pointer.
void draw(Scene &scene) {
    for (int frame = 0; frame < 3; ++frame) {
        scene.window().update();
        [[maybe_unused]] const auto picture = scene.window().grabWindow();
        QCoreApplication::processEvents();
    }
}

void wheel(Scene &scene, QPointF at, int angle) {
    QWheelEvent event(at, scene.window().mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&scene.window(), &event);
}

bool isClosed(Scene &scene) {
    return !scene.value("select", "isOpen").toBool() && eventually([&] { return lists(scene).isEmpty(); });
}

} // namespace

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
    EXPECT_EQ(picks(scene), QVariantList{QStringLiteral("c")});
    EXPECT_EQ(scene.text("select", "value"), QStringLiteral("1×"));
}

TEST(ZenSelect, AsksAgainForTheChoiceThatIsSelectedAlready) {
    Scene scene(three);
    scene.press("select");
    scene.press(choices(scene).at(1));
    EXPECT_EQ(picks(scene), QVariantList{QStringLiteral("b")});
}

TEST(ZenSelect, MarksOnlyTheSelectedChoice) {
    Scene scene(three);
    scene.press("select");
    for (auto *choice : choices(scene))
        EXPECT_EQ(choice->property("isSelected").toBool(), choice->property("index") == 1);
    scene.item("select")->setProperty("selected", QStringLiteral("none of them"));
    for (auto *choice : choices(scene))
        EXPECT_FALSE(choice->property("isSelected").toBool());
}

TEST(ZenSelect, StartsOpenWhenAskedTo) {
    Scene scene(R"(ZenSelect { objectName: "select"; startOpen: true; choices: [{ id: "a", title: "A" }] })");
    EXPECT_EQ(lists(scene).size(), 1);
}

TEST(ZenSelect, ShowsThatItIsBusyInTheValuesPlace) {
    Scene scene(R"(ZenSelect { objectName: "select"; value: "One"; isBusy: true; busyText: "Applying…" })");
    EXPECT_EQ(Scene::all(scene.root(), "ZenSelectBox").first()->property("value"), QStringLiteral("Applying…"));
    scene.item("select")->setProperty("isBusy", false);
    EXPECT_EQ(Scene::all(scene.root(), "ZenSelectBox").first()->property("value"), QStringLiteral("One"));
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
    EXPECT_EQ(picks(scene), QVariantList{QStringLiteral("c")});
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

TEST(ZenSelect, KeepsWhatTheKeyboardChoseWhileRowsSlideUnderAPointerAtRest) {
    Scene scene(twenty);
    scene.press("select");
    scene.point(choice(scene, 3));
    draw(scene);
    ASSERT_EQ(current(scene), 3);
    for (int press = 0; press < 10; ++press) {
        scene.key(Qt::Key_Down);
        draw(scene);
    }
    EXPECT_EQ(current(scene), 13);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(picks(scene), QVariantList{QStringLiteral("13")});
}

TEST(ZenSelect, FollowsThePointerAgainOnceItMoves) {
    Scene scene(twenty);
    scene.press("select");
    scene.point(choice(scene, 3));
    scene.key(Qt::Key_Down);
    ASSERT_EQ(current(scene), 4);
    QTest::mouseMove(&scene.window(), choice(scene, 3)->mapToScene({20, 20}).toPoint());
    EXPECT_EQ(current(scene), 3);
}

TEST(ZenSelect, PicksByAPressOnTheCheckMarkOfAListThatScrolls) {
    Scene scene(twenty);
    scene.press("select");
    draw(scene);
    QQuickItem *mark = nullptr;
    for (auto *icon : Scene::all(choice(scene, 1), "Icon"))
        mark = icon;
    ASSERT_TRUE(mark && mark->isVisible());
    const auto place = mark->mapRectToScene(mark->boundingRect());
    for (auto *thumb : Scene::all(lists(scene).first(), "ScrollThumb"))
        EXPECT_LE(place.right(), thumb->mapRectToScene(thumb->boundingRect()).left());
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, (place.center() + QPointF(7, 0)).toPoint());
    EXPECT_EQ(picks(scene), QVariantList{QStringLiteral("1")});
}

TEST(ZenSelect, ScrollsByWholeRowsWithTheWheel) {
    Scene scene(twenty);
    scene.press("select");
    const auto at = lists(scene).first()->mapToScene({40, 40});
    const auto top = [&] { return choice(scene, 10)->mapToItem(lists(scene).first(), QPointF()).y(); };
    for (const int angle : {-120, -120, -40, -40, -40, 120, -120, -30, -30, -30, -30, -30, -30}) {
        wheel(scene, at, angle);
        draw(scene);
        EXPECT_EQ(std::fmod(top() - 4, 32), 0) << top();
    }
    // What a touchpad gives bit by bit adds up.
    EXPECT_EQ(top(), 4 + 32 * (10 - 9));
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
    EXPECT_EQ(texts.first()->property("text"), QStringLiteral("\u2014"));
}

TEST(ZenSelect, KeepsItsPlaceAmongChoicesThatBecomeOthersWhileItIsOpen) {
    Scene scene(R"(
        Item { width: 640; height: 480
            ZenSelect { objectName: "select"; y: 440; selected: "b"
                choices: [{ id: "a", title: "Alpha" }, { id: "b", title: "Beta" }] } })");
    scene.press("select");
    draw(scene);
    ASSERT_EQ(current(scene), 1);
    scene.item("select")->setProperty("choices",
                                      QVariantList{QVariantMap{{QStringLiteral("id"), QStringLiteral("new")},
                                                               {QStringLiteral("title"), QStringLiteral("New")}},
                                                   QVariantMap{{QStringLiteral("id"), QStringLiteral("a")},
                                                               {QStringLiteral("title"), QStringLiteral("Alpha")}},
                                                   QVariantMap{{QStringLiteral("id"), QStringLiteral("b")},
                                                               {QStringLiteral("title"), QStringLiteral("Beta")}}});
    draw(scene);
    EXPECT_EQ(current(scene), 2);
    EXPECT_EQ(lists(scene).first()->mapToScene({}).y(), 440 - 4 - (8 + 3 * 32));
}

TEST(ZenSelect, TakesItsListAlongWhenItIsGone) {
    Scene scene(R"(
        Item { width: 640; height: 480
            Repeater { objectName: "selects"; model: 1
                ZenSelect { objectName: "select"; choices: [{ id: "a", title: "Alpha" }] } } })");
    scene.press("select");
    ASSERT_EQ(lists(scene).size(), 1);
    scene.item("selects")->setProperty("model", 0);
    draw(scene);
    EXPECT_TRUE(eventually([&] { return lists(scene).isEmpty(); }));
}

TEST(ZenSelect, FindsAChoiceByAllThatWasTypedInARow) {
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

TEST(ZenSelect, GoesOnToTheNextChoiceOfALetterThatIsTypedAgain) {
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

TEST(ZenSelect, OpensWhenTheButtonGoesDownAndStaysOpenWhenItComesUp) {
    Scene scene(three);
    const auto box = scene.item("select")->mapToScene({20, 20}).toPoint();
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, box);
    EXPECT_EQ(lists(scene).size(), 1);
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, box);
    EXPECT_EQ(lists(scene).size(), 1);
    EXPECT_FALSE(scene.value("select", "isHeld").toBool());
}

TEST(ZenSelect, PicksWhatTheButtonIsReleasedOver) {
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
    EXPECT_EQ(picks(scene), QVariantList{QStringLiteral("c")});
    // Released over nothing, it stays open and nothing is picked.
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, box);
    QTest::mouseMove(&scene.window(), {600, 20});
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, {600, 20});
    EXPECT_EQ(lists(scene).size(), 1);
    EXPECT_EQ(picks(scene).size(), 1);
}

TEST(ZenSelect, ShowsAWholeTitleBesideTheListAndOverNoOtherChoice) {
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
