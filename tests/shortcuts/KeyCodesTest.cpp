#include "shortcuts/KeyCodes.h"

#include "shortcuts/Shortcut.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace palomet;

TEST(KeyCodes, MapOneToOne) {
    std::set<quint32> keyCodes;
    std::set<quint16> evdevCodes;
    for (const auto &pair : KeyCodes::all) {
        EXPECT_TRUE(keyCodes.insert(pair.keyCode).second) << "key code " << pair.keyCode << " twice";
        EXPECT_TRUE(evdevCodes.insert(pair.evdev).second) << "evdev code " << pair.evdev << " twice";
        EXPECT_EQ(KeyCodes::toEvdev(pair.keyCode), pair.evdev);
        EXPECT_EQ(KeyCodes::fromEvdev(pair.evdev), pair.keyCode);
    }
}

TEST(KeyCodes, CoverAFullKeyboard) {
    // The kernel's codes of a 105-key board, the modifiers, Print, Scroll Lock and Pause aside.
    const std::set<quint16> aside{29, 42, 54, 56, 58, 70, 84, 85};
    for (quint16 evdev = 1; evdev <= 88; ++evdev) {
        EXPECT_NE(KeyCodes::fromEvdev(evdev).has_value(), aside.contains(evdev)) << "evdev code " << evdev;
    }
    for (const quint16 evdev :
         {89, 93, 94, 96, 98, 102, 103, 104, 105, 106, 107, 108, 109, 110, 111, 117, 121, 124, 127})
        EXPECT_TRUE(KeyCodes::fromEvdev(evdev)) << "evdev code " << evdev;
    for (quint16 evdev = 183; evdev <= 190; ++evdev)
        EXPECT_TRUE(KeyCodes::fromEvdev(evdev)) << "evdev code " << evdev;
}

TEST(KeyCodes, FitAnXKeycode) {
    for (const auto &pair : KeyCodes::all)
        EXPECT_LE(pair.evdev + 8, 255);
}

TEST(KeyCodes, GiveNothingForAKeyThatIsNotThere) {
    EXPECT_EQ(KeyCodes::toEvdev(0xFFFF), std::nullopt);
    EXPECT_EQ(KeyCodes::fromEvdev(0), std::nullopt);
}

TEST(KeyCodes, OfTheSpaceBarAreTheKnownOnes) {
    EXPECT_EQ(KeyCodes::toEvdev(0x31), 57);
}

TEST(KeyCodes, OfTheKeypadAreTheKnownOnes) {
    // Decimal, multiply, plus, clear, divide, Enter, minus, equals; then 0 to 9.
    const std::map<quint32, quint16> keypad{{65, 83}, {67, 55},  {69, 78}, {71, 69}, {75, 98}, {76, 96},
                                            {78, 74}, {81, 117}, {82, 82}, {83, 79}, {84, 80}, {85, 81},
                                            {86, 75}, {87, 76},  {88, 77}, {89, 71}, {91, 72}, {92, 73}};
    for (const auto &[keyCode, evdev] : keypad)
        EXPECT_EQ(KeyCodes::toEvdev(keyCode), evdev) << "key code " << keyCode;
}
