#include "tests/ui/support/Scene.h"
#include "ui/kit/BarsPicture.h"

#include <gtest/gtest.h>

#include <limits>

using palomet::BarsPicture;
using palomet::test::eventually;
using palomet::test::Scene;

namespace {

QList<qreal> heights(Scene &scene, const char *name) {
    return qobject_cast<BarsPicture *>(scene.item(name))->heights();
}

} // namespace

TEST(Bars, StandAtTheirFloorInSilence) {
    Scene scene(R"(Row { Bars { objectName: "bars"; input: 0 } MicMeter { objectName: "meter"; input: 0 } })");
    EXPECT_EQ(heights(scene, "bars"), (QList<qreal>{4, 4, 4, 4, 4}));
    EXPECT_EQ(heights(scene, "meter"), (QList<qreal>{2, 2, 2, 2, 2}));
}

TEST(Bars, ShowTheirFullShapeFromHalfOfFullScaleOn) {
    Scene scene(R"(Row { Bars { objectName: "bars"; input: 0.5 } MicMeter { objectName: "meter"; input: 1 } })");
    EXPECT_EQ(heights(scene, "bars"), (QList<qreal>{12 * 0.55 + 4, 12 * 0.85 + 4, 16, 12 * 0.75 + 4, 10}));
    EXPECT_EQ(heights(scene, "meter"), (QList<qreal>{12 * 0.55 + 2, 12 * 0.85 + 2, 14, 12 * 0.75 + 2, 8}));
}

TEST(Bars, TakeALevelThatIsNoLevelAsSilenceOrAsFull) {
    EXPECT_EQ(BarsPicture::gain(std::numeric_limits<qreal>::quiet_NaN()), 0);
    EXPECT_EQ(BarsPicture::gain(-1), 0);
    EXPECT_EQ(BarsPicture::gain(1e300), 1);
    EXPECT_EQ(BarsPicture::gain(std::numeric_limits<qreal>::infinity()), 1);
    EXPECT_DOUBLE_EQ(BarsPicture::gain(0.2), 0.44);
}

TEST(Bars, ArriveAtTheLevelTheyFollow) {
    Scene scene(R"(Bars { objectName: "bars"; input: 0 })");
    scene.item("bars")->setProperty("input", 0.5);
    EXPECT_TRUE(eventually([&] { return scene.value("bars", "level") == 0.5; }));
    scene.item("bars")->setProperty("input", 0.0);
    EXPECT_TRUE(eventually([&] { return scene.value("bars", "level") == 0.0; }));
}

TEST(Bars, DoNotMoveInAWindowThatIsHidden) {
    Scene scene(R"(Bars { objectName: "bars"; input: 0 })");
    scene.window().hide();
    EXPECT_TRUE(eventually([&] { return !scene.window().isExposed(); }));
    QCoreApplication::sendPostedEvents();
    scene.item("bars")->setProperty("input", 0.5);
    // At once: nothing is animated.
    EXPECT_EQ(scene.value("bars", "level"), 0.5);
}

TEST(Steps, LightOneDotAfterTheOther) {
    Scene scene(R"(Steps { objectName: "steps" })");
    const auto first = scene.value("steps", "current");
    EXPECT_TRUE(eventually([&] { return scene.value("steps", "current") != first; }));
}

TEST(Steps, StandStillWithTheMiddleDotLitWhenMotionIsReduced) {
    Scene scene(R"(Steps { objectName: "steps"; step: 2 })");
    palomet::kit::setMotionReduced(*scene.window().engine(), true);
    EXPECT_EQ(scene.value("steps", "current"), 1);
}

TEST(Bars, FollowTheLevelUnsmoothedWhenMotionIsReduced) {
    Scene scene(R"(Bars { objectName: "bars"; input: 0.1 })");
    palomet::kit::setMotionReduced(*scene.window().engine(), true);
    EXPECT_TRUE(eventually([&] { return scene.value("bars", "level") == 0.1; }));
    scene.item("bars")->setProperty("input", 0.4);
    EXPECT_EQ(scene.value("bars", "level"), 0.1);
    EXPECT_TRUE(eventually([&] { return scene.value("bars", "level") == 0.4; }));
}

TEST(StateGlyph, HasTheSizeOfItsState) {
    Scene scene(R"(Row { Repeater {
        model: ["waiting", "listening", "hearing", "drafting", "thinking", "speaking", "muted", "offline", "unheard of"]
        StateGlyph { required property string modelData; objectName: modelData; loopState: modelData } } })");
    const auto size = [&](const char *state) {
        return QSizeF(scene.item(state)->width(), scene.item(state)->height());
    };
    EXPECT_EQ(size("waiting"), QSizeF(14, 14));
    EXPECT_EQ(size("listening"), QSizeF(14, 14));
    EXPECT_EQ(size("hearing"), QSizeF(23, 18));
    EXPECT_EQ(size("drafting"), QSizeF(14, 14));
    EXPECT_EQ(size("thinking"), QSizeF(23, 5));
    EXPECT_EQ(size("speaking"), QSizeF(23, 18));
    EXPECT_EQ(size("muted"), QSizeF(18, 18));
    EXPECT_EQ(size("offline"), QSizeF(14, 14));
    EXPECT_EQ(size("unheard of"), QSizeF(14, 14));
}
