#include "platform/x11/X11Connection.h"
#include "platform/x11/X11KeyboardLayout.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeKeyboard.h"
#include "tests/support/PrivateDisplay.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

constexpr quint32 keyA = 0;
constexpr quint32 keyQ = 12;
constexpr quint32 semicolon = 41;
constexpr quint32 quote = 39;
constexpr quint32 leftBracket = 33;
constexpr quint32 keypad7 = 89;
constexpr quint32 isoKey = 10;

std::optional<QString> some(const char *text) {
    return QString::fromUtf8(text);
}

} // namespace

TEST(KeyboardLayout, OfTheUnitedStatesTypesLatinLetters) {
    const NamedKeyboardLayout layout("us");
    EXPECT_EQ(layout.character(keyA), some("a"));
    EXPECT_EQ(layout.character(keyQ), some("q"));
    EXPECT_EQ(layout.character(semicolon), some(";"));
    EXPECT_EQ(layout.character(isoKey), some("<"));
}

TEST(KeyboardLayout, OfBrazilTypesTheCedillaAndNamesDeadKeysByTheirAccent) {
    const NamedKeyboardLayout layout("br", "abnt2");
    EXPECT_EQ(layout.character(semicolon), some("ç"));
    EXPECT_EQ(layout.character(leftBracket), some("´"));
    EXPECT_EQ(layout.character(quote), some("~"));
    EXPECT_EQ(layout.character(94), some("/")); // The key beside the right Shift.
    EXPECT_EQ(layout.character(95), some(".")); // The keypad's second separator.
}

TEST(KeyboardLayout, OfFranceSwapsAAndQ) {
    const NamedKeyboardLayout layout("fr");
    EXPECT_EQ(layout.character(keyA), some("q"));
    EXPECT_EQ(layout.character(keyQ), some("a"));
}

TEST(KeyboardLayout, OfRussiaTypesCyrillic) {
    const NamedKeyboardLayout layout("ru");
    EXPECT_EQ(layout.character(keyA), some("ф"));
}

TEST(KeyboardLayout, GivesTheKeypadItsDigits) {
    EXPECT_EQ(NamedKeyboardLayout("us").character(keypad7), some("7"));
}

TEST(KeyboardLayout, GivesNothingForAKeyThatTypesNothing) {
    const NamedKeyboardLayout layout("us");
    for (const quint32 key : {49U, 48U, 36U, 53U, 122U, 123U, 0xFFFFU}) // Space, Tab, Return, Escape, F1, left, none.
        EXPECT_EQ(layout.character(key), std::nullopt) << key;
    EXPECT_EQ(NamedKeyboardLayout("no-such-layout").character(keyA), std::nullopt);
}

TEST(KeyboardLayout, OfTheXServerFollowsItsChanges) {
    const test::PrivateDisplay display;
    const auto connection = X11Connection::open(display.name());
    ASSERT_NE(connection, nullptr);
    X11KeyboardLayout layout(*connection);
    int changes = 0;
    QObject::connect(&layout, &KeyboardLayout::changed, &layout, [&] { ++changes; });
    EXPECT_EQ(layout.character(keyA), some("a"));
    display.run(QStringLiteral("setxkbmap"), {QStringLiteral("fr")});
    EXPECT_TRUE(test::eventually([&] { return layout.character(keyA) == some("q"); }));
    EXPECT_GT(changes, 0);
    // Two layouts; then the second one becomes the active one.
    display.run(QStringLiteral("setxkbmap"), {QStringLiteral("us,ru")});
    EXPECT_TRUE(test::eventually([&] { return layout.character(keyA) == some("a"); }));
    test::FakeKeyboard(display.name()).activateGroup(1);
    EXPECT_TRUE(test::eventually([&] { return layout.character(keyA) == some("ф"); }));
}

TEST(KeyboardLayout, OfTheXServerAsksNothingWhenAnotherOfItsLayoutsBecomesActive) {
    const test::PrivateDisplay display;
    display.run(QStringLiteral("setxkbmap"), {QStringLiteral("us,ru")});
    const auto connection = X11Connection::open(display.name());
    ASSERT_NE(connection, nullptr);
    X11KeyboardLayout layout(*connection);
    test::FakeKeyboard keyboard(display.name());
    // Each request has the next number.
    const auto requests = [&] { return xcb_no_operation(connection->get()).sequence; };
    const auto before = requests();
    for (int round = 0; round < 3; ++round) {
        keyboard.activateGroup(1);
        EXPECT_TRUE(test::eventually([&] { return layout.character(keyA) == some("ф"); }));
        keyboard.activateGroup(0);
        EXPECT_TRUE(test::eventually([&] { return layout.character(keyA) == some("a"); }));
    }
    EXPECT_EQ(requests(), before + 1);
}
