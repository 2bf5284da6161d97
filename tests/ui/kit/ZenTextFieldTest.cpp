#include "tests/ui/support/Scene.h"

#include <gtest/gtest.h>

using palomet::test::Scene;

namespace {

using namespace Qt::StringLiterals;

constexpr auto field = R"(
    Item { width: 640; height: 480
        property var commits: []
        ZenTextField { objectName: "field"; value: "Alma"; onCommitted: text => parent.commits.push(text) }
        ZenButton { objectName: "other"; y: 100; title: "Other" } })";

QVariantList commits(Scene &scene) {
    return scene.root()->property("commits").toList();
}

void replace(Scene &scene, const char *text) {
    scene.press("field");
    scene.key(Qt::Key_A, Qt::ControlModifier);
    scene.key(Qt::Key_Delete);
    scene.type(text);
}

} // namespace

TEST(ZenTextField, CommitsTheTrimmedTextWithReturnAndDropsTheFocus) {
    Scene scene(field);
    replace(scene, "  Bruna ");
    EXPECT_EQ(scene.text("field", "draft"), u"  Bruna "_s);
    scene.key(Qt::Key_Return);
    EXPECT_EQ(commits(scene), QVariantList{u"Bruna"_s});
    EXPECT_FALSE(scene.value("field", "isEditing").toBool());
}

TEST(ZenTextField, CommitsNothingThatIsBlank) {
    Scene scene(field);
    replace(scene, "   ");
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(commits(scene).isEmpty());
    EXPECT_EQ(scene.text("field", "draft"), u"Alma"_s);
}

TEST(ZenTextField, CommitsNothingThatIsUnchanged) {
    Scene scene(field);
    replace(scene, " Alma ");
    scene.key(Qt::Key_Return);
    EXPECT_TRUE(commits(scene).isEmpty());
    EXPECT_FALSE(scene.value("field", "isEditing").toBool());
}

TEST(ZenTextField, PutsBackTheOldValueWhenItIsLeft) {
    Scene scene(field);
    replace(scene, "Bruna");
    scene.press("other");
    EXPECT_EQ(scene.text("field", "draft"), u"Alma"_s);
    EXPECT_TRUE(commits(scene).isEmpty());
}

TEST(ZenTextField, PutsBackTheOldValueWithEscape) {
    Scene scene(field);
    replace(scene, "Bruna");
    scene.key(Qt::Key_Escape);
    EXPECT_EQ(scene.text("field", "draft"), u"Alma"_s);
    EXPECT_TRUE(commits(scene).isEmpty());
}

TEST(ZenTextField, FollowsItsValueWhileItIsNotEdited) {
    Scene scene(field);
    scene.item("field")->setProperty("value", u"Carla"_s);
    EXPECT_EQ(scene.text("field", "draft"), u"Carla"_s);
}

TEST(ZenTextField, IsNotDisturbedByAChangeFromOutsideWhileItIsEdited) {
    Scene scene(field);
    replace(scene, "Bru");
    scene.item("field")->setProperty("value", u"Carla"_s);
    EXPECT_EQ(scene.text("field", "draft"), u"Bru"_s);
    scene.press("other");
    EXPECT_EQ(scene.text("field", "draft"), u"Carla"_s);
}

TEST(ZenTextField, KeepsWhatWasTypedWhileAnotherWindowIsLookedAt) {
    Scene scene(field);
    replace(scene, "Bru");
    QWindow elsewhere;
    elsewhere.show();
    elsewhere.requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    scene.item("field")->setProperty("value", u"Carla"_s);
    EXPECT_EQ(scene.text("field", "draft"), u"Bru"_s);
    scene.window().requestActivate();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&scene.window()));
    scene.type("na");
    EXPECT_EQ(scene.text("field", "draft"), u"Bruna"_s);
}

TEST(ZenTextField, GoesOnFromItsPlaceWithTabAfterReturn) {
    Scene scene(field);
    replace(scene, "Bruna");
    scene.key(Qt::Key_Return);
    scene.key(Qt::Key_Tab);
    scene.key(Qt::Key_Tab);
    EXPECT_TRUE(scene.item("other")->hasActiveFocus());
}
