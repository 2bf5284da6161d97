#include "ui/screens/Pieces.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

QString joined(const std::vector<Piece> &pieces) {
    QString text;
    for (const auto &piece : pieces)
        text += (piece.isAfterBreak ? u"\n"_s : QString()) + piece.text;
    return text;
}

} // namespace

TEST(Pieces, LeaveAShortTextWhole) {
    const QString text(longestPiece, u'a');
    ASSERT_EQ(pieces(text).size(), 1);
    EXPECT_EQ(pieces(text).front().text, text);
    EXPECT_EQ(pieces({}).size(), 1);
}

TEST(Pieces, AreTheWholeTextTogetherAndNoneIsTooLong) {
    const QString line = u"Some words of a line that goes on and on. "_s;
    for (const auto &text :
         {QString(1'000'000, u'x'), QString(line.repeated(30) + u'\n').repeated(900), line.repeated(20'000),
          u"\n"_s.repeated(50'000), u"\U0001F600"_s.repeated(30'000), u"e\u0301"_s.repeated(9'001)}) {
        const auto cut = pieces(text);
        EXPECT_EQ(joined(cut), text);
        for (const auto &piece : cut)
            EXPECT_LE(piece.text.size(), longestPiece);
    }
}

TEST(Pieces, EndWithALineIfTheyCanAndElseWithAWord) {
    const auto lines = pieces((QString(999, u'a') + u'\n').repeated(5));
    EXPECT_EQ(lines.front().text, QString(999, u'a') + u'\n' + QString(999, u'a'));
    EXPECT_TRUE(lines.at(1).isAfterBreak);
    const auto words = pieces(u"word "_s.repeated(1'001));
    EXPECT_TRUE(words.front().text.endsWith(u"word "_s));
    EXPECT_FALSE(words.at(1).isAfterBreak);
}

TEST(Pieces, KeepCharactersAndTheirAccentsTogether) {
    for (const auto &piece : pieces(u'a' + u"\U0001F600"_s.repeated(5'000)))
        EXPECT_FALSE(piece.text.front().isLowSurrogate());
    for (const auto &piece : pieces(u'a' + u"e\u0301"_s.repeated(5'000)))
        EXPECT_FALSE(piece.text.front().isMark());
}

TEST(Pieces, AreCutInTheSamePlacesWhileTheTextGrows) {
    const auto text = u"Some words and more words. "_s.repeated(1'000);
    const auto before = pieces(text.first(20'000));
    const auto after = pieces(text);
    for (std::size_t i = 0; i + 1 < before.size(); ++i)
        EXPECT_EQ(before[i].text, after[i].text);
}
