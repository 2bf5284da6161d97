#include "tests/ui/screens/WindowTest.h"

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

class FocusTest : public WindowTest {};

} // namespace

TEST_F(FocusTest, LosesTheFocusToAPressOnNothing) {
    setFull();
    open(Pane::Now);
    auto *field = named("ZenInput", u"Type a request instead"_s);
    const auto size = window->size();
    const QList<std::pair<const char *, QPoint>> nothing{{"header", {700, 30}},
                                                         {"title", {370, 70}},
                                                         {"sidebar", {150, size.height() - 120}},
                                                         {"status", {100, size.height() - 34}},
                                                         {"margin", {310, 400}},
                                                         {"page", {size.width() - 30, 400}}};
    for (const auto &[place, at] : nothing) {
        field->forceActiveFocus(Qt::MouseFocusReason);
        type(u"a"_s);
        ASSERT_EQ(app.now()->draft(), u"a"_s);
        QTest::mouseClick(window.get(), Qt::LeftButton, {}, at);
        EXPECT_FALSE(field->hasActiveFocus()) << place;
        type(u"b"_s);
        EXPECT_EQ(app.now()->draft(), u"a"_s) << place;
        // Once more: what has it by now must not give it back either.
        QTest::mouseClick(window.get(), Qt::LeftButton, {}, at);
        EXPECT_FALSE(field->hasActiveFocus()) << place;
        app.now()->setDraft({});
    }
}

TEST_F(FocusTest, DropsAnEditThatAPressOnNothingLeft) {
    setFull();
    open(Pane::Voice);
    auto *field = named("ZenInput", u"Voice"_s);
    press(field);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"other"_s);
    ASSERT_EQ(field->property("text"), u"other"_s);
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, {600, window->height() - 40});
    EXPECT_EQ(field->property("text"), u"a1b2c3d4"_s);
    EXPECT_FALSE(field->hasActiveFocus());
}

TEST_F(FocusTest, ScrollsThePageByKeysAfterAPressOnIt) {
    setFull();
    open(Pane::Listening);
    auto *view = first("ListeningPage")->property("view").value<QQuickItem *>();
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, {window->width() - 30, 400});
    key(Qt::Key_PageDown);
    EXPECT_GT(view->property("contentY").toReal(), 100);
}

TEST_F(FocusTest, KeepsACommittedTextInItsFieldWhileItIsApplied) {
    setFull();
    backend().hang("/settings");
    open(Pane::Voice);
    auto *field = named("ZenInput", u"Voice"_s);
    press(field);
    key(Qt::Key_A, Qt::ControlModifier);
    type(u"other"_s);
    key(Qt::Key_Return);
    EXPECT_EQ(toldSetting(), R"({"voiceId":"other"})");
    EXPECT_EQ(field->property("text"), u"other"_s);
    EXPECT_TRUE(field->property("description").toString().contains(u"Applying"_s));
    // To come back to it and leave it again changes nothing.
    press(field);
    key(Qt::Key_Escape);
    EXPECT_EQ(field->property("text"), u"other"_s);
    setFull([](Snapshot &snapshot) { snapshot.settings.voiceId = u"other"_s; });
    EXPECT_EQ(field->property("text"), u"other"_s);
    EXPECT_FALSE(field->property("description").toString().contains(u"Applying"_s));
}

TEST_F(FocusTest, TurnsASwitchByAPressOnItsTitle) {
    setFull();
    open(Pane::Listening);
    auto *title =
        Scene::all(named("ZenSwitch", u"Echo cancellation"_s)->parentItem()->parentItem(), "ElidedText").first();
    QTest::mouseClick(window.get(), Qt::LeftButton, {}, title->mapToScene({20, 10}).toPoint());
    EXPECT_EQ(toldSetting(), R"({"isEchoCancelOn":false})");
}
