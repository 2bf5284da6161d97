#include "model/CommandBody.h"

#include "model/Documents.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <limits>

using namespace palomet;
using namespace Qt::StringLiterals;

TEST(CommandBody, IsAnObjectOfOneKey) {
    EXPECT_EQ(commandBody(u"text"_s, u"oi"_s), R"({"text":"oi"})");
    EXPECT_EQ(commandBody(u"summonMs"_s, 8000), R"({"summonMs":8000})");
    EXPECT_EQ(commandBody(u"voiceSpeed"_s, 1.05), R"({"voiceSpeed":1.05})");
    EXPECT_EQ(commandBody(u"isDraftOn"_s, false), R"({"isDraftOn":false})");
    EXPECT_EQ(commandBody(u"inputDevice"_s, QJsonValue::Null), R"({"inputDevice":null})");
    EXPECT_EQ(commandBody(u"folders"_s, QJsonArray{u"/code"_s, u"/a b"_s}), R"({"folders":["/code","/a b"]})");
}

TEST(CommandBody, KeepsEveryCharacterOfAText) {
    const auto text = u"\"Olá\" \\ \n\t\u0001 🚀 \u2028"_s;
    const QByteArray body = commandBody(u"text"_s, text);
    ASSERT_TRUE(body.startsWith(R"({"text":)"));
    const auto read = decodeText(body.sliced(8).chopped(1));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, text);
}

TEST(CommandBody, IsEmptyForWhatJsonCannotSay) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(commandBody(u"voiceSpeed"_s, std::numeric_limits<double>::quiet_NaN()), QByteArray());
    EXPECT_EQ(commandBody(u"voiceSpeed"_s, -infinity), QByteArray());
    EXPECT_EQ(commandBody(u"voiceSpeed"_s, QJsonValue::Undefined), QByteArray());
    EXPECT_EQ(commandBody(u"text"_s, QString(QChar(0xd83d))), QByteArray());
    EXPECT_EQ(commandBody(u"a"_s, QJsonArray{1, QJsonObject{{u"b"_s, infinity}}}), QByteArray());
}
