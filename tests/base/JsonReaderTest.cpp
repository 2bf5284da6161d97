#include "base/JsonReader.h"

#include <QBuffer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace palomet;
using testing::ElementsAre;

namespace {

bool isJson(const JsonText &text) {
    JsonReader reader;
    return reader.readStructure(text, [&](JsonReader::Value root) { return reader.skip(root); });
}

} // namespace

TEST(JsonReader, HandsOutTheFieldsOfAnObjectInTheirOrder) {
    JsonReader reader;
    std::vector<std::string> seen;
    EXPECT_TRUE(reader.readStructure(R"({"b":[1, 2.50 ],"\u0061":null})", [&](JsonReader::Value root) {
        return reader.readFields(root, [&](std::string_view key, JsonReader::Value value) {
            seen.emplace_back(key);
            if (key == "a")
                return reader.skip(value);
            return reader.readElements(value, [&](JsonReader::Value element) {
                seen.emplace_back(JsonReader::tokenOf(element));
                return true;
            });
        });
    }));
    EXPECT_THAT(seen, ElementsAre("b", "1", "2.50", "a"));
}

TEST(JsonReader, ReadsATextWholeOrNotAtAll) {
    for (const auto *text : {"{}", "[]", " [1,{\"a\":[]}] ", "[1e400,123456789012345678901234567890]"})
        EXPECT_TRUE(isJson(text)) << text;
    for (const auto *text : {"", " ", "1", "null", "\"a\"", "{}{}", "[]]", "[1,]", "[01]", "{\"a\":}", "[\"\\ud800\"]",
                             "[\"\xff\"]", "\xef\xbb\xbf[]"})
        EXPECT_FALSE(isJson(text)) << text;
}

TEST(JsonReader, StopsWhereAValueCannotBeRead) {
    JsonReader reader;
    int visits = 0;
    const auto refuse = [&](JsonReader::Value) { return ++visits < 2; };
    EXPECT_FALSE(
        reader.readStructure("[1,2,3]", [&](JsonReader::Value root) { return reader.readElements(root, refuse); }));
    EXPECT_EQ(visits, 2);
    // Nor does it count as nesting of the next text.
    for (int i = 0; i < 2 * maximumNesting; ++i)
        EXPECT_FALSE(reader.readStructure("[x]", [&](JsonReader::Value root) { return reader.skip(root); }));
    EXPECT_TRUE(reader.readStructure("[1]", [&](JsonReader::Value root) { return reader.skip(root); }));
}

TEST(JsonReader, NestingIsReadUpToItsLimit) {
    const auto nested = [](int levels) { return QByteArray(levels, '[') + QByteArray(levels, ']'); };
    EXPECT_TRUE(isJson(nested(maximumNesting)));
    EXPECT_FALSE(isJson(nested(maximumNesting + 1)));
}

TEST(JsonText, IsPutTogetherOfPiecesAndFollowedByZeros) {
    QByteArray bytes;
    for (int i = 0; i < 100'000; ++i)
        bytes += static_cast<char>('a' + i % 26);
    QBuffer device(&bytes);
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    JsonText text("[");
    text.append(device);
    const JsonText before = text;
    text.append("]");
    EXPECT_EQ(QByteArrayView(text.data(), text.size()), '[' + bytes + ']');
    EXPECT_EQ(QByteArrayView(before.data(), before.size()), '[' + bytes);
    for (const auto &each : {text, before, JsonText(), JsonText(QByteArrayView())})
        EXPECT_EQ(QByteArrayView(each.data() + each.size(), JsonText::padding), QByteArray(JsonText::padding, '\0'));
}
