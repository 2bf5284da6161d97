#include "localization/TextFormat.h"

#include <gtest/gtest.h>

#include <limits>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

const QLocale english(QLocale::English, QLocale::UnitedStates);
const QLocale brazilian(QLocale::Portuguese, QLocale::Brazil);

QString format(const char *text, std::initializer_list<FormatArgument> arguments, const QLocale &locale = english) {
    return formatted(QString::fromUtf8(text), std::span(arguments.begin(), arguments.size()), locale);
}

} // namespace

TEST(TextFormat, PutsTextsAndIntegersIn) {
    EXPECT_EQ(format("%@ already does “%@”.", {u"⌥A"_s, u"Stop"_s}), u"⌥A already does “Stop”."_s);
    EXPECT_EQ(format("%d or %ld or %lld or %i or %u", {1, 2, 3, 4, 5}), u"1 or 2 or 3 or 4 or 5"_s);
    EXPECT_EQ(format("", {1}), u""_s);
}

TEST(TextFormat, FollowsTheNumbersOfTheArguments) {
    EXPECT_EQ(format("%2$@ %1$d %2$@", {7, u"x"_s}), u"x 7 x"_s);
    EXPECT_EQ(format("%1$@ %@ %@", {u"a"_s, u"b"_s}), u"a a b"_s);
    EXPECT_EQ(format("%2$@ %@ %@", {u"a"_s, u"b"_s}), u"b a b"_s);
}

TEST(TextFormat, WritesNumbersAsTheRegionDoes) {
    EXPECT_EQ(format("%.1f s", {2.5}, english), u"2.5 s"_s);
    EXPECT_EQ(format("%.1f s", {2.5}, brazilian), u"2,5 s"_s);
    EXPECT_EQ(format("%d", {1'234'567}, english), u"1,234,567"_s);
    EXPECT_EQ(format("%d", {1'234'567}, brazilian), u"1.234.567"_s);
    EXPECT_EQ(format("%d", {-3}, brazilian), u"-3"_s);
    EXPECT_EQ(format("%f", {0.5}), u"0.500000"_s);
    EXPECT_EQ(format("%.0f %1$.2f", {2.0}), u"2 2.00"_s);
}

TEST(TextFormat, HoldsTheLargestNumbers) {
    EXPECT_EQ(format("%d", {std::numeric_limits<qint64>::min()}), u"-9,223,372,036,854,775,808"_s);
    EXPECT_EQ(format("%.1f", {std::numeric_limits<double>::infinity()}), u"inf"_s);
    EXPECT_EQ(format("%.1f", {std::numeric_limits<double>::quiet_NaN()}), u"nan"_s);
    EXPECT_EQ(format("%.99f", {std::numeric_limits<double>::max()}).size(), 309 + 102 + 1 + 99);
}

TEST(TextFormat, TurnsTwoPercentSignsIntoOne) {
    EXPECT_EQ(format("%d%% of %%d", {50}), u"50% of %d"_s);
}

TEST(TextFormat, WritesAnArgumentOfAnotherKindAsWhatItIs) {
    EXPECT_EQ(format("%d", {u"seven"_s}), u"seven"_s);
    EXPECT_EQ(format("%.1f", {u"seven"_s}), u"seven"_s);
    EXPECT_EQ(format("%@", {7}), u"7"_s);
    EXPECT_EQ(format("%@", {2.5}, brazilian), u"2,5"_s);
    EXPECT_EQ(format("%d", {2.5}), u"2.5"_s);
    EXPECT_EQ(format("%.1f", {7}), u"7"_s);
}

TEST(TextFormat, LeavesADirectiveWithoutItsArgumentAsItStands) {
    EXPECT_EQ(format("%@ and %d", {u"one"_s}), u"one and %d"_s);
    EXPECT_EQ(format("%3$@", {1, 2}), u"%3$@"_s);
    EXPECT_EQ(format("%@", {}), u"%@"_s);
}

TEST(TextFormat, LeavesOutAnArgumentWithoutADirective) {
    EXPECT_EQ(format("no name needed", {1, u"x"_s}), u"no name needed"_s);
}

TEST(TextFormat, NeverReadsADirectiveInAnArgument) {
    EXPECT_EQ(format("%@ %@", {u"%@ %d %%"_s, u"%1$@"_s}), u"%@ %d %% %1$@"_s);
}

TEST(TextFormat, LeavesWhatIsNoDirectiveAsItStands) {
    for (const char *text : {"100 %",
                             "%",
                             "%s",
                             "%x",
                             "%n",
                             "%p",
                             "%0$@",
                             "%1@",
                             "%1$",
                             "%.f",
                             "%.1d",
                             "%5d",
                             "%-d",
                             "%+d",
                             "%llld",
                             "%123$@",
                             "%99999999999999999999$@",
                             "%.123f",
                             "%.",
                             "%l",
                             "% d",
                             "%*d"})
        EXPECT_EQ(format(text, {u"x"_s, 2}), QString::fromUtf8(text)) << text;
    EXPECT_EQ(format("%s%@", {u"x"_s}), u"%sx"_s);
    EXPECT_EQ(format("%1%@", {u"x"_s}), u"%1x"_s);
}

TEST(TextFormat, FindsTheDirectivesWithTheirPlaces) {
    using Kind = Directive::Kind;
    const std::vector<Directive> expected{{Kind::Text, 1, 2, 0, 0},
                                          {Kind::Percent, 3, 2, -1, 0},
                                          {Kind::Decimal, 5, 6, 2, 1},
                                          {Kind::Integer, 11, 3, 1, 0}};
    EXPECT_EQ(directivesOf(u"a%@%%%3$.1f%ld"), expected);
}

TEST(TextFormat, IsolatesAnArgumentThatTurnsTheDirectionOfWhatStandsBesideIt) {
    const auto put = [](const QString &argument) {
        return formatted(u"say “%@” 5"_s, std::array{FormatArgument(argument)}, english);
    };
    // Texts that turn nothing are as they are.
    EXPECT_EQ(put(u"go ahead"_s), u"say “go ahead” 5"_s);
    EXPECT_EQ(put(u"é🚀\u200e\u200d١"_s), u"say “é🚀\u200e\u200d١” 5"_s);
    EXPECT_EQ(put(u"שלום"_s), u"say “\u2068שלום\u2069” 5"_s);
    EXPECT_EQ(put(u"𞤢"_s), u"say “\u2068𞤢\u2069” 5"_s);
    // An isolate that is not ended ends with the argument, and the argument cannot end one that it did not begin.
    EXPECT_EQ(put(u"\u202Eabc"_s), u"say “\u2068\u202Eabc\u2069” 5"_s);
    EXPECT_EQ(put(u"\u2067a\u2066b"_s), u"say “\u2068\u2067a\u2066b\u2069\u2069\u2069” 5"_s);
    EXPECT_EQ(put(u"a\u2069\u202Eb\u2067c\u2069"_s), u"say “\u2068a\u202Eb\u2067c\u2069\u2069” 5"_s);
    EXPECT_EQ(put(u"\u2067a\nb"_s), u"say “\u2068\u2067a\u2069\u2069\n\u2068b\u2069” 5"_s);
}
