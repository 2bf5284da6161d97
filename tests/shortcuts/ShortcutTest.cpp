#include "shortcuts/Shortcut.h"

#include "tests/shortcuts/FixedKeyboardLayout.h"
#include "ui/localization/Localization.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

class ShortcutTest : public testing::Test {
protected:
    void SetUp() override {
        Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {QStringLiteral("en")});
    }

    test::FixedKeyboardLayout layout{{{40, QStringLiteral("k")}, {0, QStringLiteral("a")}, {41, QStringLiteral("ç")}}};
};

} // namespace

TEST_F(ShortcutTest, KeepsOnlyTheFourRelevantModifiers) {
    const Shortcut shortcut(40, 0x10000 | 0x800000 | 0x1E0000 | 0x1);
    EXPECT_EQ(shortcut.flags, 0x1E0000U);
    EXPECT_EQ(Shortcut(40, 0x80000), Shortcut(40, 0x80000 | 0x10000));
}

TEST_F(ShortcutTest, OfControlOptionSpaceReadsWellEverywhere) {
    const auto shortcut = Shortcut::ctrlOpt(49);
    EXPECT_EQ(shortcut.text(layout), QStringLiteral("⌃⌥") + L("key.space"));
    EXPECT_EQ(shortcut.caps(layout),
              QStringList({QStringLiteral("icon:chevron-up"), QStringLiteral("icon:option"), L("key.space")}));
    EXPECT_EQ(shortcut.carbonModifiers(), 0x1800U);
    EXPECT_EQ(shortcut.menuKey(layout), QStringLiteral(" "));
}

TEST_F(ShortcutTest, TranslatesEveryModifier) {
    const Shortcut all(40, Shortcut::relevant);
    EXPECT_EQ(all.carbonModifiers(), 0x1B00U);
    EXPECT_EQ(all.text(layout), QStringLiteral("⌃⌥⇧⌘K"));
    EXPECT_EQ(all.caps(layout),
              QStringList({QStringLiteral("icon:chevron-up"), QStringLiteral("icon:option"),
                           QStringLiteral("icon:arrow-big-up"), QStringLiteral("icon:command"), QStringLiteral("K")}));
    EXPECT_EQ(Shortcut(40, 0).carbonModifiers(), 0U);
}

TEST_F(ShortcutTest, IsUsableWithControlOptionOrCommandOrAFunctionKey) {
    EXPECT_FALSE(Shortcut(0, Shortcut::shift).isUsable());
    EXPECT_FALSE(Shortcut(0, 0).isUsable());
    EXPECT_TRUE(Shortcut(0, Shortcut::option).isUsable());
    EXPECT_TRUE(Shortcut(0, Shortcut::control).isUsable());
    EXPECT_TRUE(Shortcut(0, Shortcut::command).isUsable());
    EXPECT_TRUE(Shortcut(96, 0).isUsable()); // F5
}

TEST_F(ShortcutTest, IsNamedByItsCodeWhenTheLayoutCannotTranslateIt) {
    EXPECT_EQ(Shortcut(10, 0).keyName(layout), QStringLiteral("#10"));
    EXPECT_EQ(Shortcut(10, 0).menuKey(layout), QString());
}

TEST_F(ShortcutTest, OfReturnAndKeypadEnterSharesTheCapButNotTheGlyph) {
    const Shortcut enter(36, 0);
    const Shortcut keypad(76, 0);
    EXPECT_EQ(enter.caps(layout), keypad.caps(layout));
    EXPECT_EQ(enter.caps(layout), QStringList(QStringLiteral("icon:corner-down-left")));
    EXPECT_NE(enter.keyName(layout), keypad.keyName(layout));
    EXPECT_EQ(enter.menuKey(layout), QStringLiteral("\r"));
    EXPECT_EQ(keypad.menuKey(layout), QStringLiteral("\x03"));
}

TEST_F(ShortcutTest, NamesTheFunctionKeysByTheirNumber) {
    EXPECT_EQ(Shortcut(122, 0).keyName(layout), QStringLiteral("F1"));
    EXPECT_EQ(Shortcut(90, 0).keyName(layout), QStringLiteral("F20"));
    EXPECT_EQ(Shortcut(122, 0).menuKey(layout), QString(QChar(0xF704)));
    EXPECT_EQ(Shortcut(90, 0).menuKey(layout), QString(QChar(0xF717)));
}

TEST_F(ShortcutTest, ShowsACharacterUpperCasedAndTakesItLowerCasedInAMenu) {
    EXPECT_EQ(Shortcut(41, Shortcut::control).text(layout), QStringLiteral("⌃Ç"));
    EXPECT_EQ(Shortcut(41, Shortcut::control).menuKey(layout), QStringLiteral("ç"));
}

TEST_F(ShortcutTest, WithoutAnIconShowsItsGlyphOnTheCap) {
    EXPECT_EQ(Shortcut(53, 0).caps(layout), QStringList(QStringLiteral("⎋")));
    EXPECT_EQ(Shortcut(117, 0).caps(layout), QStringList(QStringLiteral("⌦")));
}

TEST_F(ShortcutTest, IsTheSameAfterItWasStored) {
    const auto shortcut = Shortcut::opt(49);
    EXPECT_EQ(shortcut.toJson(), R"({"keyCode":49,"flags":524288})");
    EXPECT_EQ(Shortcut::fromJson(shortcut.toJson()), shortcut);
}

TEST_F(ShortcutTest, ThatIsStoredBadlyIsNone) {
    for (const auto *json :
         {"", "none", "[]", "{}", R"({"keyCode":49})", R"({"flags":0})", R"({"keyCode":"49","flags":0})",
          R"({"keyCode":49,"flags":true})", R"({"keyCode":1099511627776,"flags":0})", R"({"keyCode":-1,"flags":0})",
          R"({"keyCode":4.5,"flags":0})", R"({"keyCode":49,"flags":null})", R"({"keyCode":49,"flags":1e300})",
          "\xff\xfe"})
        EXPECT_EQ(Shortcut::fromJson(json), std::nullopt) << json;
    EXPECT_EQ(Shortcut::fromJson(QByteArray(1 << 20, '{')), std::nullopt);
}

TEST_F(ShortcutTest, KeepsStoredFlagsBeyondTheMask) {
    const auto shortcut = Shortcut::fromJson(R"({"keyCode":49,"flags":4294967295,"more":1})");
    ASSERT_TRUE(shortcut);
    EXPECT_EQ(shortcut->flags, 0xFFFFFFFFU);
}

TEST_F(ShortcutTest, EndsTheProcessForAKeyCodeThatCannotBe) {
    EXPECT_DEATH(Shortcut::opt(-1), "32 bits");
    EXPECT_DEATH(Shortcut::ctrlOpt(0x1'0000'0000), "32 bits");
}
