#include "tests/ui/support/Scene.h"

#include <gtest/gtest.h>

using palomet::test::eventually;
using palomet::test::Scene;

namespace {

using namespace Qt::StringLiterals;

/// Forty rows of a switch each, in a view of 480.
constexpr auto page = R"(
    Item { id: page; width: 640; height: 480
        property int rows: 40
        property int scrolls: 0
        Flickable { id: view; objectName: "view"; anchors.fill: parent; interactive: false; contentHeight: stack.height
            Column { id: stack; width: parent.width
                Repeater { model: page.rows
                    SettingRow { required property int index; objectName: "row" + index
                        title: "Setting " + index; hint: "word ".repeat(60)
                        ZenSwitch { objectName: "switch" + index } } } } }
        Scroller { objectName: "scroller"; flickable: view; onScrolled: page.scrolls += 1 } })";

double at(Scene &scene) {
    return scene.value("view", "contentY").toReal();
}

bool isInView(Scene &scene, const char *name) {
    auto *item = scene.item(name);
    return QRectF(0, 0, 640, 480).contains(item->mapRectToScene(item->boundingRect()));
}

} // namespace

TEST(Scroller, GoesToThePlaceOnItsTrackThatIsPressedAndOnFromThere) {
    Scene scene(page);
    scene.draw();
    const auto last = scene.value("scroller", "last").toReal();
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, {634, 240});
    EXPECT_NEAR(at(scene), last / 2, 2);
    QTest::mouseMove(&scene.window(), {634, 360});
    EXPECT_GT(at(scene), last * 0.7);
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, {634, 360});
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {634, 478});
    EXPECT_EQ(at(scene), last);
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {634, 2});
    EXPECT_EQ(at(scene), 0);
    EXPECT_GT(scene.root()->property("scrolls").toInt(), 2);
}

TEST(Scroller, StaysWhereItIsWhenItsThumbIsPressedAndDragsFromThere) {
    Scene scene(page);
    scene.draw();
    QTest::mousePress(&scene.window(), Qt::LeftButton, {}, {634, 10});
    EXPECT_EQ(at(scene), 0);
    QTest::mouseMove(&scene.window(), {634, 30});
    EXPECT_GT(at(scene), 0);
    QTest::mouseMove(&scene.window(), {634, 10});
    EXPECT_EQ(at(scene), 0);
    QTest::mouseRelease(&scene.window(), Qt::LeftButton, {}, {634, 10});
}

TEST(Scroller, ShowsAControlThatIsReachedWithItsWholeRow) {
    Scene scene(page);
    scene.draw();
    scene.item("switch9")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_GT(at(scene), 0);
    EXPECT_TRUE(isInView(scene, "row9"));
    scene.item("switch2")->forceActiveFocus(Qt::BacktabFocusReason);
    EXPECT_TRUE(isInView(scene, "row2"));
}

TEST(Scroller, ShowsWhatWasReachedBeforeThePageWasLaidOut) {
    Scene scene(page);
    scene.root()->setProperty("rows", 1);
    scene.draw();
    auto *stack = scene.item("switch0");
    stack->forceActiveFocus(Qt::TabFocusReason);
    ASSERT_EQ(at(scene), 0);
    // What stands above it grows later.
    scene.item("row0")->setProperty("hint", u"word "_s.repeated(60));
    stack->setParentItem(scene.item("row0"));
    stack->setY(1'200);
    scene.item("row0")->setHeight(1'500);
    EXPECT_TRUE(eventually([&] {
        scene.draw();
        return isInView(scene, "switch0");
    }));
}

TEST(Scroller, LeavesItToTheUserWhereThePageStandsOnceItWasScrolled) {
    Scene scene(page);
    scene.draw();
    scene.item("switch20")->forceActiveFocus(Qt::TabFocusReason);
    QTest::mouseClick(&scene.window(), Qt::LeftButton, {}, {634, 2});
    ASSERT_EQ(at(scene), 0);
    scene.root()->setProperty("rows", 41);
    scene.draw();
    EXPECT_EQ(at(scene), 0);
}

TEST(Scroller, ScrollsByTheWheelAndByTwoFingersOnATouchpad) {
    using enum QInputDevice::DeviceType;
    for (const auto type : {Mouse, TouchPad, Stylus}) {
        const QPointingDevice device(u"device"_s, 1, type, QPointingDevice::PointerType::Generic,
                                     QInputDevice::Capability::Position | QInputDevice::Capability::Scroll, 1, 0);
        Scene scene(page);
        scene.draw();
        const QPointF place(300, 240);
        // Fingers move by parts of a notch.
        for (int i = 0; i < 8; ++i) {
            QWheelEvent event(place, scene.window().mapToGlobal(place), {}, {0, -15}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false, Qt::MouseEventNotSynthesized, &device);
            QCoreApplication::sendEvent(&scene.window(), &event);
        }
        EXPECT_EQ(at(scene), scene.value("scroller", "step").toReal()) << static_cast<int>(type);
    }
}
