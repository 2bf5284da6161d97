#include "model/Documents.h"

#include "tests/support/Fixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <functional>
#include <set>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::fixture;

namespace {

QByteArray compact(const QJsonValue &value) {
    return (value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject()))
        .toJson(QJsonDocument::Compact);
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
        collectFields(value.toArray().first(), path + Path{u"0"_s}, fields);
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
             {u"isEchoCancelled"_s, u"heard"_s, u"draft"_s, u"timings"_s, u"memory"_s,
              u"conversation/rows/0/durationMs"_s, u"conversation/rows/0/isOpen"_s, u"settings/inputDevice"_s,
              u"settings/endSilenceMs"_s, u"settings/isDraftOn"_s, u"settings/isEchoCancelOn"_s,
              u"settings/isDirectedOn"_s, u"settings/actionPhrases"_s, u"settings/draftMaxAgeMs"_s,
              u"settings/claudePath"_s, u"heard/0/reason"_s, u"timings/transcribeMs"_s}},
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
    return value.isString() ? QJsonValue(1) : QJsonValue(u"1"_s);
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
    EXPECT_EQ(read->front(),
              (ConversationSummary{u"c-0003"_s, 1731700000000, u"How is the site's deploy going?"_s, 1, 0.0123}));
    EXPECT_EQ(read->back().startedAt, 1731527200000.5);
    EXPECT_TRUE(decodeHistory(fixture("history/empty.json"))->empty());
}

TEST(Documents, OptionsAreReadWithAllOfTheirFields) {
    const auto read = decodeOptions(fixture("options/full.json"));
    ASSERT_TRUE(read) << read.reason().toStdString();
    EXPECT_EQ(read->inputs, (std::vector{u"Microphone (USB Audio)"_s, u"Built-in Audio"_s}));
    EXPECT_EQ(read->macVoices, (std::vector{u"Luciana"_s, u"Samantha"_s}));
    EXPECT_EQ(read->claudePaths, (std::vector<Options::ClaudePath>{{u"/home/ana/.local/bin/claude"_s, u"2.1.0"_s}}));
    EXPECT_EQ(read->confirmActions.front(), (Options::Action{u"message"_s, u"Mandar mensagem a alguém"_s}));
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
            in[u"extra"_s] = QJsonArray{1, 2.5};
        });
        EXPECT_TRUE(kind.isReadable(compact(more))) << kind.file << " " << path.join(u'/').toStdString();
    });
}

TEST(Documents, AFailureNamesTheField) {
    QByteArray json = fixture("state/full.json");
    EXPECT_EQ(decodeSnapshot(QByteArray(json).replace("\"workingFolder\"", "\"folder\"")).reason(),
              u"missing or not of its type: workingFolder"_s);
    EXPECT_EQ(decodeSnapshot("{").reason(), u"not a document"_s);
}
