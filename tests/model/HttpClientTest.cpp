#include "model/HttpClient.h"

#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using test::eventually;

namespace {

class HttpClientTest : public testing::Test {
protected:
    HttpClientTest() {
        backend.serve("/state", "{}");
        backend.serve("/say", "{}");
    }

    test::ScriptedBackend backend;
    test::ManualScheduler scheduler;
    HttpClient http{backend.base(), scheduler};
};

} // namespace

TEST_F(HttpClientTest, WhatHasAnsweredInTimeDoesNotAnswerAgainWhenItsTimeIsOver) {
    int answers = 0;
    const auto kept = http.get(QStringLiteral("state"), 2s, [&](const auto &body) {
        EXPECT_TRUE(body);
        ++answers;
    });
    ASSERT_TRUE(eventually([&] { return answers == 1; }));
    scheduler.advance(2s);
    EXPECT_EQ(answers, 1);
}

TEST_F(HttpClientTest, EveryRequestSaysThatItIsFromPalomet) {
    const auto document = http.get(QStringLiteral("state"), 1min, [](const auto &) {});
    const auto stream = http.stream(QStringLiteral("events"), 1024);
    http.post(QStringLiteral("say"), "{}", 1min, [] {});
    for (const auto *target : {"/state", "/events", "/say"}) {
        ASSERT_TRUE(eventually([&] { return backend.last(target) != nullptr; })) << target;
        EXPECT_EQ(backend.last(target)->header("user-agent"), "Palomet") << target;
    }
}
