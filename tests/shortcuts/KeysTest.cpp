#include "shortcuts/Keys.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace palomet;

namespace {

bool hasEvdev(quint16 evdev) {
    return findXKeycode(evdev + 8U) != nullptr;
}

} // namespace

TEST(Keys, MapOneToOne) {
    std::set<quint32> codes;
    std::set<quint16> evdevCodes;
    for (const auto &key : allKeys) {
        EXPECT_TRUE(codes.insert(key.code).second) << "key code " << key.code << " twice";
        EXPECT_TRUE(evdevCodes.insert(key.evdev).second) << "evdev code " << key.evdev << " twice";
        EXPECT_EQ(findKey(key.code), &key);
        EXPECT_EQ(findXKeycode(toXKeycode(key)), &key);
    }
}

TEST(Keys, CoverAFullKeyboard) {
    // The kernel's codes of a 105-key board, the modifiers, Print, Scroll Lock and Pause aside.
    const std::set<quint16> aside{29, 42, 54, 56, 58, 70, 84, 85};
    for (quint16 evdev = 1; evdev <= 88; ++evdev) {
        EXPECT_NE(hasEvdev(evdev), aside.contains(evdev)) << "evdev code " << evdev;
    }
    for (const quint16 evdev :
         {89, 93, 94, 96, 98, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 117, 121, 124, 127})
        EXPECT_TRUE(hasEvdev(evdev)) << "evdev code " << evdev;
    for (quint16 evdev = 183; evdev <= 190; ++evdev)
        EXPECT_TRUE(hasEvdev(evdev)) << "evdev code " << evdev;
}

TEST(Keys, ThatAreNotThereAreNone) {
    EXPECT_EQ(findKey(0xFFFF), nullptr);
    for (const quint32 keycode : {0U, 7U, 8U, 0xFFFFU, 0xFFFF'FFFFU})
        EXPECT_EQ(findXKeycode(keycode), nullptr);
}

TEST(Keys, OfTheSpaceBarAreTheKnownOnes) {
    ASSERT_NE(findKey(0x31), nullptr);
    EXPECT_EQ(findKey(0x31)->evdev, 57);
    EXPECT_EQ(toXKeycode(*findKey(0x31)), 65U);
}

TEST(Keys, OfTheKeypadAreTheKnownOnes) {
    // Decimal, multiply, plus, clear, divide, Enter, minus, equals; then 0 to 9.
    const std::map<quint32, quint16> keypad{{65, 83}, {67, 55},  {69, 78}, {71, 69}, {75, 98}, {76, 96},
                                            {78, 74}, {81, 117}, {82, 82}, {83, 79}, {84, 80}, {85, 81},
                                            {86, 75}, {87, 76},  {88, 77}, {89, 71}, {91, 72}, {92, 73}};
    for (const auto &[code, evdev] : keypad) {
        ASSERT_NE(findKey(code), nullptr) << "key code " << code;
        EXPECT_EQ(findKey(code)->evdev, evdev) << "key code " << code;
    }
}
