#include "shortcuts/Shortcut.h"

#include "localization/Localization.h"
#include "shortcuts/KeyCodes.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"

#include <gtest/gtest.h>

#include <vector>

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

TEST_F(ShortcutTest, OfASpecialKeyHasItsSignItsCapItsMenuKeyAndItsPlaceOnTheKeyboard) {
    struct Row {
        quint32 keyCode;
        quint16 evdev;
        QString name;
        QString cap;
        char16_t menuKey;
    };
    // Left, right, up, down; Return, keypad Enter; Backspace, Delete, Tab, Space, Escape; Home, End, Page Up and Down.
    const std::vector<Row> rows{
        {123, 105, QStringLiteral("←"), QStringLiteral("icon:arrow-left"), 0xF702},
        {124, 106, QStringLiteral("→"), QStringLiteral("icon:arrow-right"), 0xF703},
        {126, 103, QStringLiteral("↑"), QStringLiteral("icon:arrow-up"), 0xF700},
        {125, 108, QStringLiteral("↓"), QStringLiteral("icon:arrow-down"), 0xF701},
        {36, 28, QStringLiteral("↩"), QStringLiteral("icon:corner-down-left"), 0x000D},
        {76, 96, QStringLiteral("⌤"), QStringLiteral("icon:corner-down-left"), 0x0003},
        {51, 14, QStringLiteral("⌫"), QStringLiteral("icon:backspace"), 0x0008},
        {117, 111, QStringLiteral("⌦"), QStringLiteral("⌦"), 0xF728},
        {48, 15, QStringLiteral("⇥"), QStringLiteral("⇥"), 0x0009},
        {49, 57, QStringLiteral("Space"), QStringLiteral("Space"), 0x0020},
        {53, 1, QStringLiteral("⎋"), QStringLiteral("⎋"), 0x001B},
        {115, 102, QStringLiteral("↖"), QStringLiteral("↖"), 0xF729},
        {119, 107, QStringLiteral("↘"), QStringLiteral("↘"), 0xF72B},
        {116, 104, QStringLiteral("⇞"), QStringLiteral("⇞"), 0xF72C},
        {121, 109, QStringLiteral("⇟"), QStringLiteral("⇟"), 0xF72D},
    };
    for (const auto &row : rows) {
        const Shortcut shortcut(row.keyCode, 0);
        EXPECT_EQ(shortcut.keyName(layout), row.name) << row.keyCode;
        EXPECT_EQ(shortcut.caps(layout), QStringList(row.cap)) << row.keyCode;
        EXPECT_EQ(shortcut.menuKey(layout), QString(QChar(row.menuKey))) << row.keyCode;
        EXPECT_EQ(KeyCodes::toEvdev(row.keyCode), row.evdev) << row.keyCode;
        EXPECT_FALSE(shortcut.isUsable()) << row.keyCode;
    }
}

TEST_F(ShortcutTest, OfAFunctionKeyHasItsNumberItsMenuKeyAndItsPlaceOnTheKeyboard) {
    struct Row {
        quint32 keyCode;
        quint16 evdev;
    };
    // F1 to F20, in order.
    const std::vector<Row> rows{{122, 59},  {120, 60},  {99, 61},  {118, 62}, {96, 63},  {97, 64},   {98, 65},
                                {100, 66},  {101, 67},  {109, 68}, {103, 87}, {111, 88}, {105, 183}, {107, 184},
                                {113, 185}, {106, 186}, {64, 187}, {79, 188}, {80, 189}, {90, 190}};
    int number = 0;
    for (const auto &row : rows) {
        ++number;
        const Shortcut shortcut(row.keyCode, 0);
        EXPECT_EQ(shortcut.functionKey(), number) << row.keyCode;
        EXPECT_EQ(shortcut.keyName(layout), u'F' + QString::number(number)) << row.keyCode;
        EXPECT_EQ(shortcut.caps(layout), QStringList(u'F' + QString::number(number))) << row.keyCode;
        EXPECT_EQ(shortcut.menuKey(layout), QString(QChar(0xF703 + number))) << row.keyCode;
        EXPECT_EQ(KeyCodes::toEvdev(row.keyCode), row.evdev) << row.keyCode;
        EXPECT_TRUE(shortcut.isUsable()) << row.keyCode;
    }
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

TEST_F(ShortcutTest, KeepsEveryBitOfStoredFlags) {
    for (const quint64 flags : {0x7FFF'FFFF'FFFF'FFFFU, 0x8000'0000'0000'0001U, 0xFFFF'FFFF'FFFF'FFFFU}) {
        Shortcut shortcut(49, 0);
        shortcut.flags = flags;
        EXPECT_EQ(Shortcut::fromJson(shortcut.toJson()), shortcut) << flags;
    }
}

TEST_F(ShortcutTest, IsTheLastOneWhereItIsStoredTwice) {
    EXPECT_EQ(Shortcut::fromJson(R"({"keyCode":1,"flags":0,"keyCode":49})"), Shortcut(49, 0));
    EXPECT_EQ(Shortcut::fromJson(R"({"keyCode":49,"flags":0,"flags":"none"})"), std::nullopt);
}

TEST_F(ShortcutTest, MayBeStoredWithFractionsOfNothingAndWithWhatNobodyReads) {
    EXPECT_EQ(Shortcut::fromJson(R"( {"keyCode":49.0,"flags":5.24288e5,"more":{"keyCode":[1]}} )"), Shortcut::opt(49));
}

TEST_F(ShortcutTest, MayHaveTheFirstAndTheLastKeyCodeThatThereCanBe) {
    EXPECT_EQ(Shortcut::opt(0).keyCode, 0U);
    EXPECT_EQ(Shortcut::opt(0xFFFF'FFFF).keyCode, 0xFFFF'FFFFU);
}

TEST_F(ShortcutTest, EndsTheProcessForAKeyCodeThatCannotBe) {
    EXPECT_DEATH(Shortcut::opt(-1), "32 bits");
    EXPECT_DEATH(Shortcut::ctrlOpt(0x1'0000'0000), "32 bits");
}
