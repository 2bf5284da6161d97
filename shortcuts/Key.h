#pragma once

#include <QtGlobal>

namespace palomet {

/// One key: a position on the keyboard, whatever is printed there, and what is said of it under every layout.
struct Key {
    /// Virtual key codes, as shortcuts are stored. Letters, digits and signs are named after the US layout.
    enum Code : quint32 {
        A = 0,
        B = 11,
        C = 8,
        D = 2,
        E = 14,
        F = 3,
        G = 5,
        H = 4,
        I = 34,
        J = 38,
        K = 40,
        L = 37,
        M = 46,
        N = 45,
        O = 31,
        P = 35,
        Q = 12,
        R = 15,
        S = 1,
        T = 17,
        U = 32,
        V = 9,
        W = 13,
        X = 7,
        Y = 16,
        Z = 6,
        Digit1 = 18,
        Digit2 = 19,
        Digit3 = 20,
        Digit4 = 21,
        Digit5 = 23,
        Digit6 = 22,
        Digit7 = 26,
        Digit8 = 28,
        Digit9 = 25,
        Digit0 = 29,
        Minus = 27,
        Equal = 24,
        LeftBracket = 33,
        RightBracket = 30,
        Semicolon = 41,
        Quote = 39,
        Grave = 50,
        Backslash = 42,
        Comma = 43,
        Period = 47,
        Slash = 44,
        Iso = 10, ///< Beside the left Shift of ISO boards.
        Yen = 93, ///< This and the next four are on Japanese boards, Ro and KeypadComma on Brazilian ones too.
        Ro = 94,
        KeypadComma = 95,
        Eisu = 102,
        Kana = 104,
        Return = 36,
        Tab = 48,
        Space = 49,
        Backspace = 51,
        Escape = 53,
        Insert = 114, ///< Help on some boards.
        Menu = 110,
        KeypadDecimal = 65,
        KeypadMultiply = 67,
        KeypadPlus = 69,
        KeypadClear = 71, ///< Num Lock.
        KeypadDivide = 75,
        KeypadEnter = 76,
        KeypadMinus = 78,
        KeypadEquals = 81,
        Keypad0 = 82,
        Keypad1 = 83,
        Keypad2 = 84,
        Keypad3 = 85,
        Keypad4 = 86,
        Keypad5 = 87,
        Keypad6 = 88,
        Keypad7 = 89,
        Keypad8 = 91,
        Keypad9 = 92,
        F1 = 122,
        F2 = 120,
        F3 = 99,
        F4 = 118,
        F5 = 96,
        F6 = 97,
        F7 = 98,
        F8 = 100,
        F9 = 101,
        F10 = 109,
        F11 = 103,
        F12 = 111,
        F13 = 105,
        F14 = 107,
        F15 = 113,
        F16 = 106,
        F17 = 64,
        F18 = 79,
        F19 = 80,
        F20 = 90,
        Home = 115,
        End = 119,
        PageUp = 116,
        PageDown = 121,
        Delete = 117,
        Left = 123,
        Right = 124,
        Down = 125,
        Up = 126,
        VolumeUp = 72,
        VolumeDown = 73,
        Mute = 74,
    };

    Code code;
    quint16 evdev;               ///< The kernel's input event code.
    const char *xName = nullptr; ///< X's name for what the key types; null where that is a character.
    char16_t glyph = 0;          ///< The sign that stands for the key; 0 without one.
    char16_t menuKey = 0;        ///< Stands for the key in a menu item; 0 without one.
    const char *word = nullptr;  ///< Printed on the key in every language; null without one.
    const char *text = nullptr;  ///< Key of the localised name, where no word is printed.
    const char *icon = nullptr;  ///< Drawn on the cap in place of the sign.
};

} // namespace palomet
