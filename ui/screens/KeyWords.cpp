#include "ui/screens/KeyWords.h"

#include "localization/Localization.h"

#include <algorithm>
#include <array>

namespace palomet {

namespace {

using namespace Qt::StringLiterals;

/// Keys with a word printed on them, where the shortcut's own name is a sign or a number.
struct PrintedKey {
    quint32 keyCode;
    QLatin1StringView word;
};

constexpr std::array printedKeys{
    PrintedKey{36, "Return"_L1},     PrintedKey{76, "Enter"_L1},   PrintedKey{48, "Tab"_L1},
    PrintedKey{51, "Backspace"_L1},  PrintedKey{117, "Delete"_L1}, PrintedKey{53, "Esc"_L1},
    PrintedKey{115, "Home"_L1},      PrintedKey{119, "End"_L1},    PrintedKey{116, "Page Up"_L1},
    PrintedKey{121, "Page Down"_L1}, PrintedKey{114, "Insert"_L1}, PrintedKey{110, "Menu"_L1},
};

/// Keys with a picture on them, each with the text that names it.
struct PicturedKey {
    quint32 keyCode;
    QLatin1StringView text;
};

constexpr std::array picturedKeys{
    PicturedKey{123, "key.left"_L1}, PicturedKey{124, "key.right"_L1},   PicturedKey{126, "key.up"_L1},
    PicturedKey{125, "key.down"_L1}, PicturedKey{72, "key.volumeUp"_L1}, PicturedKey{73, "key.volumeDown"_L1},
    PicturedKey{74, "key.mute"_L1},
};

/// What a key types that is no letter and no digit, each with the text that names it.
struct Sign {
    char16_t character;
    QLatin1StringView text;
};

constexpr std::array signs{
    Sign{u'-', "sign.hyphen"_L1},
    Sign{u'=', "sign.equals"_L1},
    Sign{u'[', "sign.leftBracket"_L1},
    Sign{u']', "sign.rightBracket"_L1},
    Sign{u';', "sign.semicolon"_L1},
    Sign{u'\'', "sign.apostrophe"_L1},
    Sign{u'`', "sign.grave"_L1},
    Sign{u'\\', "sign.backslash"_L1},
    Sign{u',', "sign.comma"_L1},
    Sign{u'.', "sign.period"_L1},
    Sign{u'/', "sign.slash"_L1},
    Sign{u'<', "sign.lessThan"_L1},
    Sign{u'>', "sign.greaterThan"_L1},
    Sign{u'+', "sign.plus"_L1},
    Sign{u'*', "sign.asterisk"_L1},
    Sign{u'#', "sign.number"_L1},
    Sign{u'\u00B4', "sign.acute"_L1},
    Sign{u'~', "sign.tilde"_L1},
    Sign{u'^', "sign.circumflex"_L1},
    Sign{u'\u00A8', "sign.diaeresis"_L1},
    Sign{u'!', "sign.exclamation"_L1},
    Sign{u'?', "sign.question"_L1},
    Sign{u':', "sign.colon"_L1},
    Sign{u'"', "sign.quotation"_L1},
    Sign{u'&', "sign.ampersand"_L1},
    Sign{u'(', "sign.leftParenthesis"_L1},
    Sign{u')', "sign.rightParenthesis"_L1},
    Sign{u'_', "sign.underscore"_L1},
    Sign{u'$', "sign.dollar"_L1},
    Sign{u'%', "sign.percent"_L1},
    Sign{u'@', "sign.at"_L1},
    Sign{u'{', "sign.leftBrace"_L1},
    Sign{u'}', "sign.rightBrace"_L1},
    Sign{u'|', "sign.bar"_L1},
    Sign{u'\u00A7', "sign.section"_L1},
    Sign{u'\u00B0', "sign.degree"_L1},
};

QString spokenKey(const Shortcut &shortcut, const KeyboardLayout &layout) {
    const auto isIt = [&](const auto &key) { return key.keyCode == shortcut.keyCode; };
    if (const auto *printed = std::ranges::find_if(printedKeys, isIt); printed != printedKeys.end())
        return printed->word;
    if (const auto *pictured = std::ranges::find_if(picturedKeys, isIt); pictured != picturedKeys.end())
        return L(pictured->text);
    const auto name = shortcut.keyName(layout);
    const auto *sign = std::ranges::find_if(
        signs, [&](const auto &candidate) { return name.size() == 1 && name.front() == QChar(candidate.character); });
    return sign == signs.end() ? name : L(sign->text);
}

} // namespace

QString spokenShortcut(const Shortcut &shortcut, const KeyboardLayout &layout) {
    QStringList words;
    if ((shortcut.flags & Shortcut::control) != 0)
        words.append(u"Ctrl"_s);
    if ((shortcut.flags & Shortcut::option) != 0)
        words.append(u"Alt"_s);
    if ((shortcut.flags & Shortcut::shift) != 0)
        words.append(u"Shift"_s);
    if ((shortcut.flags & Shortcut::command) != 0)
        words.append(u"Super"_s);
    words.append(spokenKey(shortcut, layout));
    return words.join(u" + "_s);
}

} // namespace palomet
