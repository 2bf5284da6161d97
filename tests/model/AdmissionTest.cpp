#include "model/HttpClient.h"
#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using test::eventually;

namespace {

/// A client that is told by the test whether it may talk to who answers.
class AdmissionTest : public testing::Test {
protected:
    AdmissionTest() {
        backend.serve("/state", "{}");
        backend.serve("/say", "{}");
    }

    /// So many times it may, and then no more.
    int admissions = 0;
    test::ScriptedBackend backend;
    test::ManualScheduler scheduler;
    HttpClient http{backend.base(), scheduler, [this](quint16 port, quint16) {
                        EXPECT_EQ(port, backend.port());
                        return admissions-- > 0;
                    }};
};

} // namespace

TEST_F(AdmissionTest, WhoIsNotAdmittedIsNotEvenConnectedTo) {
    int answers = 0;
    const auto get = http.get(QStringLiteral("state"), 1min, [&](const auto &body) {
        EXPECT_EQ(body, std::nullopt);
        ++answers;
    });
    http.post(QStringLiteral("say"), "{\"text\":\"secret\"}", 1min, [&] { ++answers; });
    const auto stream = http.stream(QStringLiteral("events"), 1024);
    EXPECT_EQ(answers, 0) << "from the event loop only";
    EXPECT_TRUE(eventually([&] { return answers == 2 && stream->isFinished(); }));
    EXPECT_EQ(stream->error(), QNetworkReply::ConnectionRefusedError);
    EXPECT_EQ(backend.connectionCount(), 0);
}

TEST_F(AdmissionTest, WhoWasTheListenerBeforeTheConnectionOnlyIsNotGivenTheBodyOfACommand) {
    admissions = 1;
    bool isDone = false;
    http.post(QStringLiteral("say"), "{\"text\":\"secret\"}", 1min, [&] { isDone = true; });
    EXPECT_TRUE(eventually([&] { return isDone; }));
    EXPECT_EQ(backend.connectionCount(), 1);
    EXPECT_EQ(backend.count("/say"), 0);
}

TEST_F(AdmissionTest, WhoWasTheListenerBeforeTheConnectionOnlyIsNotBelieved) {
    admissions = 1;
    bool isAnswered = false;
    const auto get = http.get(QStringLiteral("state"), 1min, [&](const auto &body) {
        EXPECT_EQ(body, std::nullopt);
        isAnswered = true;
    });
    EXPECT_TRUE(eventually([&] { return isAnswered; }));
    EXPECT_EQ(backend.count("/state"), 1);
}

TEST_F(AdmissionTest, WhoIsAdmittedIsToldAndBelieved) {
    admissions = 100;
    int answers = 0;
    const auto get = http.get(QStringLiteral("state"), 1min, [&](const auto &body) {
        ASSERT_TRUE(body);
        EXPECT_EQ(QByteArrayView(body->data(), body->size()), "{}");
        ++answers;
    });
    http.post(QStringLiteral("say"), "{\"text\":\"hello\"}", 1min, [&] { ++answers; });
    EXPECT_TRUE(eventually([&] { return answers == 2; }));
    EXPECT_EQ(backend.last("/say")->body(), "{\"text\":\"hello\"}");
}
