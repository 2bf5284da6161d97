#include "ui/screens/KeyWords.h"

#include "localization/Localization.h"
#include "shortcuts/Keys.h"

#include <algorithm>
#include <array>

namespace palomet {

namespace {

using namespace Qt::StringLiterals;

/// The signs that keys type, neither letters nor digits, each with the text that names it.
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
    const auto *key = findKey(shortcut.keyCode);
    if (key != nullptr && key->word != nullptr)
        return QString::fromLatin1(key->word);
    if (key != nullptr && key->text != nullptr)
        return L(key->text);
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
