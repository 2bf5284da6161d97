#include "localization/StringTable.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

StringTable tableOf(QByteArrayView json) {
    auto table = StringTable::parse(json);
    EXPECT_TRUE(table.isOk());
    return table ? *table : StringTable();
}

bool isRefused(QByteArrayView json) {
    return !StringTable::parse(json).isOk();
}

} // namespace

TEST(StringTable, GivesTheTextOfAKey) {
    const auto table = tableOf(R"({"menu.stop": "Parar", "state.waiting": "À espera…"})");
    EXPECT_EQ(table.text("menu.stop"), u"Parar"_s);
    EXPECT_EQ(table.text("state.waiting"), u"À espera…"_s);
    EXPECT_EQ(table.text("menu"), std::nullopt);
    EXPECT_EQ(table.text(""), std::nullopt);
}

TEST(StringTable, KnowsAnEmptyTextFromAMissingOne) {
    EXPECT_EQ(tableOf(R"({"a": ""})").text("a"), QString());
    EXPECT_EQ(tableOf("{}").text("a"), std::nullopt);
}

TEST(StringTable, LeavesOutWhatIsNoText) {
    const auto table =
        tableOf(R"({"a": 1, "b": null, "c": ["x"], "d": {"e": "x"}, "f": true, "g": "\ud800", "h": "x"})");
    EXPECT_EQ(table.keys(), QStringList({u"h"_s}));
}

TEST(StringTable, TakesTheLastOfAKeyThatStandsTwice) {
    EXPECT_EQ(tableOf(R"({"a": "first", "a": "second"})").text("a"), u"second"_s);
}

TEST(StringTable, IsRefusedWhenItIsNoObjectOfJson) {
    for (const char *json : {"", " ", "[]", "\"a\"", "1", "null", "{", R"({"a"})", R"({"a": "b",})", R"({"a": "b"} x)",
                             R"({'a': 'b'})", "{\"a\": \"\xff\"}", "{\"a\": \"b"})
        EXPECT_TRUE(isRefused(json)) << json;
    EXPECT_TRUE(isRefused(QByteArray(3'000'000, '[')));
    EXPECT_TRUE(isRefused(QByteArray("{\"a\":").repeated(500'000)));
}

TEST(StringTable, IsRefusedWhenItIsLargerThanATableCanBe) {
    QByteArray json = "{";
    for (int key = 0; key < 1'000'000; ++key)
        json += "\"" + QByteArray::number(key) + "\":\"\",";
    json.back() = '}';
    EXPECT_TRUE(isRefused(json));

    QByteArray full = R"({"a": "b"})";
    full += QByteArray(StringTable::maximumSize - full.size(), ' ');
    EXPECT_EQ(tableOf(full).text("a"), u"b"_s);
    EXPECT_TRUE(isRefused(full + ' '));
}

TEST(StringTable, IsReadFromItsFile) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"strings.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("\xef\xbb\xbf{\"a\": \"b\"}\n");
    file.close();
    auto table = StringTable::read(file.fileName());
    ASSERT_TRUE(table.isOk());
    EXPECT_EQ(table->text("a"), u"b"_s);
}

TEST(StringTable, IsNeverReadFromAFileOfAGigabyte) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"strings.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(file.resize(1'000'000'000));
    EXPECT_FALSE(StringTable::read(file.fileName()).isOk());
}

TEST(StringTable, IsNeverReadFromWhatIsNoFile) {
    const QTemporaryDir folder;
    const auto pipe = folder.filePath(u"pipe"_s);
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    EXPECT_FALSE(StringTable::read(pipe).isOk());
    EXPECT_FALSE(StringTable::read(folder.path()).isOk());
    EXPECT_FALSE(StringTable::read(folder.filePath(u"none"_s)).isOk());
    EXPECT_FALSE(StringTable::read(u"/dev/zero"_s).isOk());
}
