#include "model/Documents.h"
#include "tests/support/Fixture.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::fixture;

// How the JSON of documents is read, whatever they say.

namespace {

QByteArray compact(const QJsonObject &object) {
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// A document of options in which `json` stands for a key that nobody knows.
QByteArray optionsWith(const QByteArray &json) {
    QByteArray text = fixture("options/empty.json").trimmed();
    return text.insert(1, "\"extra\":" + json + ",");
}

/// A history of one conversation with these two fields as given.
Result<std::vector<ConversationSummary>> historyWith(const QByteArray &answers, const QByteArray &startedAt = "1") {
    return decodeHistory(R"([{"conversationId":"c","startedAt":)" + startedAt + R"(,"firstQuestion":"q","answers":)" +
                         answers + R"(,"costUsd":0}])");
}

} // namespace

TEST(Documents, ADocumentThatIsCutOffAnywhereIsUnreadable) {
    const QByteArray whole = fixture("state/full.json").trimmed();
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(decodeSnapshot(whole.first(size))) << size;
    EXPECT_TRUE(decodeSnapshot(whole));
}

TEST(Documents, TheRootMustBeOfItsKind) {
    for (const auto *json : {"", " ", "null", "true", "1", "\"state\"", "[]", "[[]]", "\xef\xbb\xbf{}", "{}{}", "{"})
        EXPECT_FALSE(decodeSnapshot(json)) << json;
    for (const auto *json : {"", "{}", "null", "[{}]", "[null]", "[[]]", "[] []", "[]x", "[],", "]"})
        EXPECT_FALSE(decodeHistory(json)) << json;
}

TEST(Documents, OnlyStrictJsonIsReadEvenInWhatIsIgnored) {
    for (const auto *json :
         {"1", "-0", "2.5e-3", "123456789012345678901234567890", "1e400", "-1E+99999999999", "1e-400", "true", "false",
          "null", "\"\"", "[]", "{}", "[1,[2]]", R"({"a":{"b":[]}})", R"("\u0041\n\/")", R"("\ud83d\ude80")"})
        EXPECT_TRUE(decodeOptions(optionsWith(json))) << json;
    for (const auto *json :
         {"NaN",         "nan",    "Infinity",  "-Infinity", "01",       "1.",   ".5",        "+1",
          "-",           "1e",     "0x1",       "1e+",       "-01",      "--1",  "1.e5",      "1.5.5",
          "tru",         "nulll",  "True",      "'a'",       "a",        "[1,]", "[,]",       "[1 2]",
          "{\"a\":1,}",  "{a:1}",  "{\"a\" 1}", "{1:1}",     "{\"a\"}",  "[1}",  "{\"a\":1]", "\"\\x\"",
          "\"\\u00zz\"", "\"\t\"", "\"\n\"",    "/**/1",     "\"\\u12\""})
        EXPECT_FALSE(decodeOptions(optionsWith(json))) << json;
}

TEST(Documents, WhatIsNoJsonWithinAKnownFieldFailsTheWhole) {
    const auto state = compact(QJsonDocument::fromJson(fixture("state/bare.json")).object());
    const auto with = [&](const QByteArray &opening, const QByteArray &first) {
        EXPECT_TRUE(state.contains(opening));
        return decodeSnapshot(QByteArray(state).replace(opening, opening + first));
    };
    EXPECT_TRUE(with("\"settings\":{", R"("a":1,)"));
    for (const auto *first : {R"("\ud83d":1,)", R"("a":01,)", R"("a":tru,)", R"("a":[1,],)", R"("a" 1,)", R"(1,)"})
        EXPECT_FALSE(with("\"settings\":{", first)) << first;
    for (const auto *first : {"01", "tru", "[1,]", "{\"a\"}", "\"\\ud83d\""})
        EXPECT_FALSE(with("\"rows\":[", first)) << first;
}

TEST(Documents, HalfACharacterIsUnreadable) {
    for (const auto *json : {R"("\ud83d")", R"("\ude80")", R"("\ud83d\ud83d")", R"("\ude80\ud83d")", R"("\ud83dx")",
                             R"("\ud83d\n")", R"("\ud83d\u0041")", R"("\ud83d\ue000")", R"({"\ud83d":1})"})
        EXPECT_FALSE(decodeOptions(optionsWith(json))) << json;
    for (const auto *bytes : {"\"\xed\xa0\xbd\"", "\"\xff\"", "\"\xc3\"", "\"\xc0\x80\"", "\"\xf4\x90\x80\x80\""})
        EXPECT_FALSE(decodeOptions(optionsWith(bytes)));
}

TEST(Documents, AnIntegerIsANumberWithoutAFractionThat64BitsHold) {
    const std::pair<const char *, qint64> integers[] = {{"5", 5},
                                                        {"5.0", 5},
                                                        {"-5.000", -5},
                                                        {"1e2", 100},
                                                        {"2500e-2", 25},
                                                        {"-0", 0},
                                                        {"9223372036854775807", std::numeric_limits<qint64>::max()},
                                                        {"-9223372036854775808", std::numeric_limits<qint64>::min()},
                                                        {"9.0e15", 9000000000000000}};
    for (const auto &[json, value] : integers) {
        const auto read = historyWith(json);
        ASSERT_TRUE(read) << json;
        EXPECT_EQ(read->front().answers, value) << json;
    }
    for (const auto *json :
         {"5.5", "true", "\"5\"", "null", "9223372036854775808", "-9223372036854775809", "1e19", "-1e19",
          "9223372036854775807.0", "123456789012345678901234567890", "1e400", "1e-1", "[5]"})
        EXPECT_FALSE(historyWith(json)) << json;
}

TEST(Documents, ADoubleIsAnyNumber) {
    const std::pair<const char *, double> numbers[] = {
        {"5", 5},
        {"-2.5e3", -2500},
        {"18446744073709551616", 0x1p64},
        {"123456789012345678901234567890", 123456789012345678901234567890.0},
        {"1e-400", 0},
        {"0.1", 0.1},
        {"1.7976931348623157e308", 1.7976931348623157e308}};
    for (const auto &[json, value] : numbers) {
        const auto read = historyWith("1", json);
        ASSERT_TRUE(read) << json;
        EXPECT_EQ(read->front().startedAt, value) << json;
    }
    for (const auto *json : {"true", "\"1\"", "1e400", "-1e400", "NaN", "null"})
        EXPECT_FALSE(historyWith("1", json)) << json;
}

TEST(Documents, ADoubleIsTheOneNearestToItsDigitsHoweverManyThereAre) {
    const std::pair<QByteArray, double> numbers[] = {
        {"0.30000000000000004441", 0.30000000000000004},
        {"0.85000000000000000000", 0.85},
        {"-0.12345678901234567890123456789", -0.12345678901234568},
        {"0.1" + QByteArray(700, '0') + "1", 0.1},
        {"1.00000000000000000000001", 1},
        {"9007199254740993", 9007199254740992.0},
        {"9007199254740993.00000000000000000000001", 9007199254740994.0},
        {"0." + QByteArray(400, '0') + "1e401", 1},
        {"0." + QByteArray(400, '0') + "1", 0},
        {"1" + QByteArray(400, '0') + "e-400", 1},
        {"1e-99999999999999999999", 0},
        {"0e99999999999999999999", 0},
        {"-0.000e+400", 0},
        {"4.9e-324", std::numeric_limits<double>::denorm_min()},
        {"2.4703282292062327208e-324", 0},
        {"2.4703282292062327209e-324", std::numeric_limits<double>::denorm_min()},
        {"2.2250738585072011e-308", 2.2250738585072011e-308},
        {"1.7976931348623158079e308", std::numeric_limits<double>::max()},
    };
    for (const auto &[json, value] : numbers) {
        const auto read = historyWith("1", json);
        ASSERT_TRUE(read) << json.toStdString();
        EXPECT_EQ(read->front().startedAt, value) << json.toStdString();
    }
    for (const QByteArray &json : {QByteArray("1.7976931348623158080e308"), QByteArray(400, '9'),
                                   QByteArray("1e99999999999999999999"), QByteArray("0.001e+400")})
        EXPECT_FALSE(historyWith("1", json)) << json.toStdString();
}

TEST(Documents, OfAKeyThatIsThereTwiceTheLastOneCounts) {
    QByteArray json = fixture("options/full.json").trimmed().chopped(1);
    const auto read = decodeOptions(json + R"(,"inputs":["b"],"inputs":["c"]})");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->inputs, std::vector{u"c"_s});
    EXPECT_FALSE(decodeOptions(json + R"(,"inputs":1})"));
}

TEST(Documents, OfAKeyThatIsThereTwiceNothingIsLeftOfTheFirst) {
    const auto with = [](const QByteArray &more) {
        return decodeSnapshot(fixture("state/bare.json").trimmed().chopped(1) + ',' + more + '}');
    };
    const auto timings = with(R"("timings":{"transcribeMs":1,"modelMs":1,"voiceMs":1,"totalMs":1,"isSpoken":true},)"
                              R"("timings":{"modelMs":2,"voiceMs":2,"totalMs":2,"isSpoken":false})");
    ASSERT_TRUE(timings);
    EXPECT_EQ(timings->timings, (Snapshot::Timings{std::nullopt, 2, 2, 2, false}));

    const auto settings = QJsonDocument::fromJson(fixture("state/bare.json"))["settings"_L1].toObject();
    auto first = settings;
    first[u"inputDevice"_s] = u"USB Audio"_s;
    const auto twice = with("\"settings\":" + compact(first) + ",\"settings\":" + compact(settings));
    ASSERT_TRUE(twice);
    EXPECT_EQ(twice->settings.inputDevice, std::nullopt);
    EXPECT_FALSE(with("\"settings\":" + compact(first) + ",\"settings\":{}"));
}

TEST(Documents, OfAKeyThatIsThereTwiceTheFirstNeedNotBeOfItsType) {
    QByteArray json = fixture("options/full.json").trimmed();
    const auto before = [&](const QByteArray &first) { return decodeOptions(QByteArray(json).insert(1, first + ',')); };
    for (const auto *first :
         {R"("inputs":1)", R"("inputs":null)", R"("inputs":["a",1,["b"],{"c":"d"}])", R"("inputs":{"a":[[]]})",
          R"("claudePaths":[{"path":1,"version":["a"],"more":{}},2])", R"("claudePaths":[{}])"}) {
        const auto read = before(first);
        ASSERT_TRUE(read) << first << ": " << read.reason().toStdString();
        EXPECT_EQ(*read, *decodeOptions(json)) << first;
    }
    for (const auto *first : {R"("inputs":tru)", R"("inputs":[1,01])", R"("inputs":{"a":[}])",
                              R"("claudePaths":[{"path":1,"version":"\ud83d"}])", R"("inputs":["\x"])"})
        EXPECT_FALSE(before(first)) << first;
    EXPECT_FALSE(before("\"inputs\":[1," + QByteArray(600, '[') + QByteArray(600, ']') + "]"));
    EXPECT_TRUE(before("\"inputs\":[1," + QByteArray(500, '[') + QByteArray(500, ']') + "]"));
}

TEST(Documents, AKeyMayBeWrittenWithEscapes) {
    const auto read = decodeOptions(fixture("options/full.json").replace("\"inputs\"", R"("\u0069nputs")"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->inputs.size(), 2U);
}

TEST(Documents, ATextMayHoldAnyCharacter) {
    const auto read =
        decodeOptions(fixture("options/full.json").replace("\"s1\"", R"("a\u0000b\u2028\ud83d\ude80\u00e9")"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->fishModels.front(), QString::fromUtf16(u"a\0b\u2028🚀é", 7));
}

TEST(Documents, NestingIsReadUpToItsLimit) {
    const auto nested = [](int levels) { return optionsWith(QByteArray(levels, '[') + QByteArray(levels, ']')); };
    EXPECT_TRUE(decodeOptions(nested(maximumNesting - 1)));
    EXPECT_FALSE(decodeOptions(nested(maximumNesting)));
    const auto nestedObjects = [](int levels) {
        return optionsWith(QByteArray("{\"a\":").repeated(levels) + '1' + QByteArray(levels, '}'));
    };
    EXPECT_TRUE(decodeOptions(nestedObjects(maximumNesting - 1)));
    EXPECT_FALSE(decodeOptions(nestedObjects(maximumNesting)));
    EXPECT_FALSE(decodeOptions(nested(100'000)));
    EXPECT_FALSE(decodeOptions(optionsWith(QByteArray(1'000'000, '['))));
    EXPECT_FALSE(decodeOptions(optionsWith(QByteArray("{\"a\":").repeated(100'000))));
    EXPECT_TRUE(decodeOptions(optionsWith("[" + QByteArray("[{}],").repeated(2000) + "1]")));
}

TEST(Documents, AMillionKeysAreReadLikeAnyOther) {
    QByteArray json = "{";
    for (int i = 0; i < 1'000'000; ++i)
        json += "\"k" + QByteArray::number(i) + "\":0,";
    EXPECT_TRUE(decodeOptions(optionsWith(json.chopped(1) + "}")));
    EXPECT_FALSE(decodeOptions(json.chopped(1) + "}"));
}

TEST(Documents, ADocumentIsReadUpToItsLimitOfSize) {
    const QByteArray json = fixture("options/full.json");
    EXPECT_TRUE(decodeOptions(json + QByteArray(maximumDocumentSize - json.size(), ' ')));
    EXPECT_FALSE(decodeOptions(json + QByteArray(maximumDocumentSize - json.size() + 1, ' ')));
}

TEST(Documents, ATextIsOneJsonStringAndNothingElse) {
    EXPECT_EQ(*decodeText("\"Olá\""), u"Olá"_s);
    EXPECT_EQ(*decodeText(R"( "\u00d3\"\n" )"), u"Ó\"\n"_s);
    EXPECT_EQ(*decodeText("\"\""), QString());
    for (const auto *json : {"Olá", "", "\"", "\"a", "a\"", "\"a\"b", "\"a\" \"b\"", "\"a\",", "\"a\"]", "null", "1",
                             "[\"a\"]", "{\"a\":\"b\"}", "'a'", R"("\ud83d")", "\"\xc3\""})
        EXPECT_FALSE(decodeText(json)) << json;
}
