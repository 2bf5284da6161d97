#include "model/CommandBody.h"

#include "model/Documents.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

using namespace palomet;

TEST(CommandBody, IsAnObjectOfOneKey) {
    EXPECT_EQ(commandBody(QStringLiteral("text"), QStringLiteral("oi")), R"({"text":"oi"})");
    EXPECT_EQ(commandBody(QStringLiteral("summonMs"), 8000), R"({"summonMs":8000})");
    EXPECT_EQ(commandBody(QStringLiteral("voiceSpeed"), 1.05), R"({"voiceSpeed":1.05})");
    EXPECT_EQ(commandBody(QStringLiteral("isDraftOn"), false), R"({"isDraftOn":false})");
    EXPECT_EQ(commandBody(QStringLiteral("inputDevice"), QJsonValue::Null), R"({"inputDevice":null})");
    EXPECT_EQ(commandBody(QStringLiteral("folders"), QJsonArray{QStringLiteral("/code"), QStringLiteral("/a b")}),
              R"({"folders":["/code","/a b"]})");
}

TEST(CommandBody, KeepsEveryCharacterOfAText) {
    const auto text = QStringLiteral("\"Olá\" \\ \n\t\u0001 🚀 \u2028");
    const QByteArray body = commandBody(QStringLiteral("text"), text);
    ASSERT_TRUE(body.startsWith(R"({"text":)"));
    const auto read = decodeText(body.sliced(8).chopped(1));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, text);
}

TEST(CommandBody, IsEmptyForWhatJsonCannotSay) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(commandBody(QStringLiteral("voiceSpeed"), std::numeric_limits<double>::quiet_NaN()), QByteArray());
    EXPECT_EQ(commandBody(QStringLiteral("voiceSpeed"), -infinity), QByteArray());
    EXPECT_EQ(commandBody(QStringLiteral("voiceSpeed"), QJsonValue::Undefined), QByteArray());
    EXPECT_EQ(commandBody(QStringLiteral("text"), QString(QChar(0xd83d))), QByteArray());
    EXPECT_EQ(commandBody(QStringLiteral("a"), QJsonArray{1, QJsonObject{{QStringLiteral("b"), infinity}}}),
              QByteArray());
}
