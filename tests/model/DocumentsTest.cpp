#include "model/Documents.h"

#include "tests/support/Fixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <functional>
#include <set>

using namespace palomet;
using test::fixture;

namespace {

QByteArray compact(const QJsonValue &value) {
    return (value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject()))
        .toJson(QJsonDocument::Compact);
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

using Path = QStringList; ///< Keys from the root on; "0" is an array's first element.
using Change = std::function<void(QJsonObject &, const QString &)>;

QJsonValue changedAt(const QJsonValue &root, const Path &path, const Change &change) {
    if (root.isArray()) {
        QJsonArray array = root.toArray();
        array[0] = changedAt(array[0], path.sliced(1), change);
        return array;
    }
    QJsonObject object = root.toObject();
    if (path.size() == 1)
        change(object, path.front());
    else
        object[path.front()] = changedAt(object[path.front()], path.sliced(1), change);
    return object;
}

/// Every field of a document that has them all, once for each kind of object.
void collectFields(const QJsonValue &value, const Path &path, QList<Path> &fields) {
    if (value.isArray() && !value.toArray().isEmpty())
        collectFields(value.toArray().first(), path + Path{QStringLiteral("0")}, fields);
    const QJsonObject object = value.toObject();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const Path field = path + Path{entry.key()};
        fields << field;
        collectFields(entry.value(), field, fields);
    }
}

struct Kind {
    const char *file;
    std::function<bool(QByteArrayView)> isReadable;
    std::set<QString> optional;
};

template <typename Decode>
auto readableBy(Decode decode) {
    return [decode](QByteArrayView json) { return decode(json).isOk(); };
}

std::vector<Kind> kinds() {
    return {{"state/full.json",
             readableBy(decodeSnapshot),
             {QStringLiteral("isEchoCancelled"), QStringLiteral("heard"), QStringLiteral("draft"),
              QStringLiteral("timings"), QStringLiteral("memory"), QStringLiteral("conversation/rows/0/durationMs"),
              QStringLiteral("conversation/rows/0/isOpen"), QStringLiteral("settings/inputDevice"),
              QStringLiteral("settings/endSilenceMs"), QStringLiteral("settings/isDraftOn"),
              QStringLiteral("settings/isEchoCancelOn"), QStringLiteral("settings/isDirectedOn"),
              QStringLiteral("settings/actionPhrases"), QStringLiteral("settings/draftMaxAgeMs"),
              QStringLiteral("settings/claudePath"), QStringLiteral("heard/0/reason"),
              QStringLiteral("timings/transcribeMs")}},
            {"history/three.json", readableBy(decodeHistory), {}},
            {"options/full.json", readableBy(decodeOptions), {}}};
}

/// Calls `visit` with each kind of document, as a value, and each of its fields.
void forEachField(const std::function<void(const Kind &, const QJsonValue &, const Path &, bool isOptional)> &visit) {
    for (const auto &kind : kinds()) {
        const auto json = QJsonDocument::fromJson(fixture(kind.file));
        const QJsonValue root = json.isArray() ? QJsonValue(json.array()) : QJsonValue(json.object());
        QList<Path> fields;
        collectFields(root, {}, fields);
        ASSERT_GE(fields.size(), 5);
        for (const auto &path : fields)
            visit(kind, root, path, kind.optional.contains(path.join(u'/')));
    }
}

QJsonValue ofAnotherType(const QJsonValue &value) {
    return value.isString() ? QJsonValue(1) : QJsonValue(QStringLiteral("1"));
}

} // namespace

TEST(Documents, AStateIsReadWithAllOfItsFields) {
    const auto read = decodeSnapshot(fixture("state/full.json"));
    ASSERT_TRUE(read) << read.reason().toStdString();
    const auto text = [](const char16_t *words) { return QString::fromUtf16(words); };
    const Snapshot expected{
        .state = text(u"speaking"),
        .isMuted = false,
        .isMicDead = false,
        .isEchoCancelled = true,
        .device = text(u"Microphone (USB Audio)"),
        .conversation = {.startedAt = 1731700000000,
                         .rows = {{text(u"user"), text(u"How is the site's deploy going?"), 1731700000123, 1840.5, {}},
                                  {text(u"tool"), text(u"Bash: gh run list --limit 1"), 1731700002250, 640, false},
                                  {text(u"assistant"),
                                   text(u"O último deploy passou há dez minutos, sem erro. 🚀"),
                                   1731700004001.25,
                                   {},
                                   true}},
                         .costUsd = 0.0123,
                         .answers = 1},
        .session = {text(u"claude-haiku-5-5"), text(u"/home/ana/.local/bin/claude"), text(u"2.1.0"), 1731699400000,
                    true},
        .heard = {{{1731700000100, text(u"Palomet, how is the site's deploy going?"), text(u"accepted"), {}},
                   {1731699990100, text(u"did you see the game"), text(u"ignored"), text(u"not directed")}}},
        .draft = {{{1731699995000, text(u"Open a pull request with the form fix.")}}},
        .settings = {.inputDevice = text(u"USB Audio"),
                     .wakeWords = {text(u"palomet"), text(u"paloma")},
                     .inputPreference = {text(u"USB Audio"), text(u"Built-in Audio")},
                     .whisperModel = text(u"large-v3-turbo"),
                     .followUpMs = 8000,
                     .summonMs = 8000,
                     .echoGuardMs = 350,
                     .endSilenceMs = 900,
                     .isDraftOn = true,
                     .isEchoCancelOn = true,
                     .isDirectedOn = false,
                     .actionPhrases = {{text(u"pode fazer"), text(u"go ahead")}},
                     .draftMaxAgeMs = 900000,
                     .voiceId = text(u"a1b2c3d4"),
                     .voiceName = text(u"Palomet"),
                     .voiceSpeed = 1.05,
                     .fishModel = text(u"s1"),
                     .fallbackVoice = text(u"Luciana"),
                     .brainModel = text(u"claude-haiku-5-5"),
                     .claudePath = text(u"/home/ana/.local/bin/claude"),
                     .folders = {text(u"/code"), text(u"/code/website")},
                     .confirmActions = {text(u"message"), text(u"purchase")},
                     .workingFolder = text(u"/code")},
        .timings = {{310.5, 1210, 480, 2000.5, true}},
        .memory = {{true, 12}},
    };
    EXPECT_EQ(*read, expected);
}

TEST(Documents, AHistoryIsReadInItsOrder) {
    const auto read = decodeHistory(fixture("history/three.json"));
    ASSERT_TRUE(read) << read.reason().toStdString();
    ASSERT_EQ(read->size(), 3U);
    EXPECT_EQ(read->front(), (ConversationSummary{QStringLiteral("c-0003"), 1731700000000,
                                                  QStringLiteral("How is the site's deploy going?"), 1, 0.0123}));
    EXPECT_EQ(read->back().startedAt, 1731527200000.5);
    EXPECT_TRUE(decodeHistory(fixture("history/empty.json"))->empty());
}

TEST(Documents, OptionsAreReadWithAllOfTheirFields) {
    const auto read = decodeOptions(fixture("options/full.json"));
    ASSERT_TRUE(read) << read.reason().toStdString();
    EXPECT_EQ(read->inputs, (std::vector{QStringLiteral("Microphone (USB Audio)"), QStringLiteral("Built-in Audio")}));
    EXPECT_EQ(read->macVoices, (std::vector{QStringLiteral("Luciana"), QStringLiteral("Samantha")}));
    EXPECT_EQ(read->claudePaths, (std::vector<Options::ClaudePath>{
                                     {QStringLiteral("/home/ana/.local/bin/claude"), QStringLiteral("2.1.0")}}));
    EXPECT_EQ(read->confirmActions.front(),
              (Options::Action{QStringLiteral("message"), QStringLiteral("Mandar mensagem a alguém")}));
}

TEST(Documents, AStateWithoutItsOptionalFieldsHasThemEmpty) {
    for (const auto *file : {"state/bare.json", "state/nulls.json"}) {
        const auto read = decodeSnapshot(fixture(file));
        ASSERT_TRUE(read) << file << ": " << read.reason().toStdString();
        EXPECT_EQ(read->isEchoCancelled, std::nullopt);
        EXPECT_EQ(read->heard, std::nullopt);
        EXPECT_EQ(read->memory, std::nullopt);
        EXPECT_EQ(read->settings.inputDevice, std::nullopt);
        EXPECT_EQ(read->settings.endSilenceMs, std::nullopt);
        EXPECT_EQ(read->settings.actionPhrases, std::nullopt);
        EXPECT_EQ(read->settings.claudePath, std::nullopt);
    }
    EXPECT_EQ(decodeSnapshot(fixture("state/bare.json"))->timings, std::nullopt);
    EXPECT_EQ(decodeSnapshot(fixture("state/bare.json"))->draft, std::nullopt);
    EXPECT_TRUE(decodeSnapshot(fixture("state/nulls.json"))->draft->empty());
}

TEST(Documents, ARequiredFieldThatIsMissingFailsTheWholeAndAnOptionalOneDoesNot) {
    forEachField([](const Kind &kind, const QJsonValue &root, const Path &path, bool isOptional) {
        const auto without = changedAt(root, path, [](QJsonObject &in, const QString &key) { in.remove(key); });
        EXPECT_EQ(kind.isReadable(compact(without)), isOptional) << kind.file << " " << path.join(u'/').toStdString();
    });
}

TEST(Documents, ANullFailsARequiredFieldAndEmptiesAnOptionalOne) {
    forEachField([](const Kind &kind, const QJsonValue &root, const Path &path, bool isOptional) {
        const auto null =
            changedAt(root, path, [](QJsonObject &in, const QString &key) { in[key] = QJsonValue::Null; });
        EXPECT_EQ(kind.isReadable(compact(null)), isOptional) << kind.file << " " << path.join(u'/').toStdString();
    });
}

TEST(Documents, AnyFieldOfAnotherTypeFailsTheWhole) {
    forEachField([](const Kind &kind, const QJsonValue &root, const Path &path, bool) {
        for (const QJsonValue &wrong : {QJsonValue(QJsonObject()), QJsonValue()}) {
            const auto changed = changedAt(root, path, [&](QJsonObject &in, const QString &key) {
                in[key] = wrong.isObject() ? wrong : ofAnotherType(in[key]);
            });
            EXPECT_FALSE(kind.isReadable(compact(changed))) << kind.file << " " << path.join(u'/').toStdString();
        }
    });
}

TEST(Documents, AKeyThatNobodyKnowsIsIgnoredAnywhere) {
    forEachField([](const Kind &kind, const QJsonValue &root, const Path &path, bool) {
        const auto more = changedAt(root, path, [](QJsonObject &in, const QString &) {
            in[QStringLiteral("extra")] = QJsonArray{1, 2.5};
        });
        EXPECT_TRUE(kind.isReadable(compact(more))) << kind.file << " " << path.join(u'/').toStdString();
    });
}

TEST(Documents, AFailureNamesTheField) {
    QByteArray json = fixture("state/full.json");
    EXPECT_EQ(decodeSnapshot(QByteArray(json).replace("\"workingFolder\"", "\"folder\"")).reason(),
              QStringLiteral("missing or not of its type: workingFolder"));
    EXPECT_EQ(decodeSnapshot("{").reason(), QStringLiteral("not a document"));
}

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
    EXPECT_EQ(read->inputs, std::vector{QStringLiteral("c")});
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

    const auto settings = QJsonDocument::fromJson(fixture("state/bare.json"))[QLatin1String("settings")].toObject();
    auto first = settings;
    first[QStringLiteral("inputDevice")] = QStringLiteral("USB Audio");
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
    EXPECT_EQ(*decodeText("\"Olá\""), QStringLiteral("Olá"));
    EXPECT_EQ(*decodeText(R"( "\u00d3\"\n" )"), QStringLiteral("Ó\"\n"));
    EXPECT_EQ(*decodeText("\"\""), QString());
    for (const auto *json : {"Olá", "", "\"", "\"a", "a\"", "\"a\"b", "\"a\" \"b\"", "\"a\",", "\"a\"]", "null", "1",
                             "[\"a\"]", "{\"a\":\"b\"}", "'a'", R"("\ud83d")", "\"\xc3\""})
        EXPECT_FALSE(decodeText(json)) << json;
}
