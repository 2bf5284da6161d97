#include "ui/screens/KeyWords.h"

#include "localization/Localization.h"
#include "tests/shortcuts/FixedKeyboardLayout.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 keyK = 40;

class KeyWordsTest : public ::testing::Test {
protected:
    ~KeyWordsTest() override { load(u"en"_s); }

    static void load(const QString &language) {
        Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {language});
    }
    [[nodiscard]] QString word(quint32 key) const { return spokenShortcut(Shortcut(key, 0), layout); }

    test::FixedKeyboardLayout layout{{{keyK, u"k"_s}}};
};

} // namespace

TEST_F(KeyWordsTest, SayTheModifiersAsTheyArePrintedInTheirOrder) {
    EXPECT_EQ(spokenShortcut(Shortcut(keyK, Shortcut::relevant), layout), u"Ctrl + Alt + Shift + Super + K"_s);
}

TEST_F(KeyWordsTest, SayAPrintedWordInEveryLanguageAndAPictureInTheUsers) {
    load(u"en"_s);
    EXPECT_EQ(word(51), u"Backspace"_s);
    EXPECT_EQ(word(114), u"Insert"_s);
    EXPECT_EQ(word(123), u"Left arrow"_s);
    EXPECT_EQ(word(124), u"Right arrow"_s);
    EXPECT_EQ(word(126), u"Up arrow"_s);
    EXPECT_EQ(word(125), u"Down arrow"_s);
    EXPECT_EQ(word(74), u"Mute"_s);
    load(u"pt-BR"_s);
    EXPECT_EQ(word(51), u"Backspace"_s);
    EXPECT_EQ(word(123), u"Seta para a esquerda"_s);
    EXPECT_EQ(word(49), u"Espaço"_s);
}

TEST_F(KeyWordsTest, SayALetterAndAKeyOfWhichNobodyKnowsMoreAsTheyAre) {
    EXPECT_EQ(word(keyK), u"K"_s);
    EXPECT_EQ(word(96), u"F5"_s);
    EXPECT_EQ(word(10), u"#10"_s);
}

TEST_F(KeyWordsTest, SayWhateverIsNeitherLetterNorDigitInWordsInEachLanguage) {
    for (const auto &language : {u"pt-BR"_s, u"en"_s}) {
        load(language);
        for (const auto &sign : u"-=[];'`\\,./<>+*#´~^¨!?:\"&()_$%@{}|§°"_s) {
            layout.become({{keyK, QString(sign)}});
            EXPECT_GT(word(keyK).size(), 1) << QString(sign).toStdString();
            EXPECT_FALSE(word(keyK).contains(u'.')) << word(keyK).toStdString() << " has no text";
        }
    }
}
