#include "platform/gnome/Accelerator.h"

#include "shortcuts/HotKeyGrabber.h"
#include "shortcuts/Keys.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 option = HotKeyGrabber::Option;
constexpr quint32 command = HotKeyGrabber::Command;
constexpr quint32 control = HotKeyGrabber::Control;
constexpr quint32 shift = HotKeyGrabber::Shift;

const test::FixedKeyboardLayout
    us({{Key::A, u"a"_s}, {Key::Digit1, u"1"_s}, {Key::Minus, u"-"_s}, {Key::KeypadMinus, u"-"_s}});

bool isIt(const QString &text, quint32 keyCode, quint32 modifiers, const KeyboardLayout &layout = us) {
    return Accelerator(text).is(keyCode, modifiers, layout);
}

} // namespace

TEST(Accelerator, IsAKeyWithExactlyItsModifiers) {
    EXPECT_TRUE(isIt(u"<Alt>space"_s, Key::Space, option));
    EXPECT_FALSE(isIt(u"<Alt>space"_s, Key::Space, option | shift));
    EXPECT_FALSE(isIt(u"<Alt>space"_s, Key::Space, 0));
    EXPECT_FALSE(isIt(u"<Alt>space"_s, Key::Tab, option));
    EXPECT_TRUE(isIt(u"<Primary><Shift><Super>F2"_s, Key::F2, control | shift | command));
    EXPECT_TRUE(isIt(u"<Mod4><ctrl>Page_Up"_s, Key::PageUp, command | control));
    EXPECT_TRUE(isIt(u"Escape"_s, Key::Escape, 0));
}

TEST(Accelerator, IsTheKeyThatTypesItsCharacterInAnyCase) {
    EXPECT_TRUE(isIt(u"<Super>a"_s, Key::A, command));
    EXPECT_TRUE(isIt(u"<super>A"_s, Key::A, command));
    EXPECT_TRUE(isIt(u"<Super>minus"_s, Key::Minus, command));
}

TEST(Accelerator, FollowsTheLayout) {
    const test::FixedKeyboardLayout french({{Key::A, u"q"_s}, {Key::Q, u"a"_s}, {Key::Digit1, u"&"_s}});
    EXPECT_TRUE(isIt(u"<Super>a"_s, Key::Q, command, french));
    EXPECT_FALSE(isIt(u"<Super>a"_s, Key::A, command, french));
    // Digits are typed with Shift there.
    EXPECT_TRUE(isIt(u"<Super>1"_s, Key::Digit1, command, french));
}

TEST(Accelerator, IsWhereTheUsLayoutHasItWhenTheLayoutHasOtherLetters) {
    const test::FixedKeyboardLayout russian({{Key::A, u"ф"_s}});
    EXPECT_TRUE(isIt(u"<Super>a"_s, Key::A, command, russian));
    EXPECT_TRUE(isIt(u"<Super>Cyrillic_ef"_s, Key::A, command, russian));
}

TEST(Accelerator, KnowsTheKeyAboveTab) {
    EXPECT_TRUE(isIt(u"<Alt>Above_Tab"_s, Key::Grave, option));
    EXPECT_FALSE(isIt(u"<Alt>Above_Tab"_s, Key::Space, option));
}

TEST(Accelerator, TellsTheKeypadFromTheOtherKeys) {
    EXPECT_FALSE(isIt(u"<Super>minus"_s, Key::KeypadMinus, command));
    EXPECT_TRUE(isIt(u"KP_Enter"_s, Key::KeypadEnter, 0));
}

TEST(Accelerator, IsNoKeyWhenItCannotBeRead) {
    for (const auto &text :
         {u""_s, u"disabled"_s, u"<Alt"_s, u"<Hyper>space"_s, u"<Alt>"_s, u"<>space"_s, u"<Alt>sp ace"_s}) {
        EXPECT_FALSE(isIt(text, Key::Space, option)) << text.toStdString();
        EXPECT_FALSE(isIt(text, Key::Space, 0)) << text.toStdString();
    }
    EXPECT_FALSE(isIt(u"<Alt>space"_s, 9999, option));
}
