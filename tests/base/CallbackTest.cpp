#include "base/Callback.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

using namespace palomet;

TEST(Callback, IsSilentWhileNobodyIsThere) {
    const Callback<void(int)> told;
    told(1);
    const Callback<bool()> asked;
    EXPECT_FALSE(asked());
}

TEST(Callback, CallsWhoWasAssigned) {
    Callback<int(int, const std::string &)> asked;
    asked = [](int number, const std::string &text) { return number + static_cast<int>(text.size()); };
    EXPECT_EQ(asked(1, "two"), 4);
}

TEST(Callback, HandsOnWhatCanOnlyBeMoved) {
    Callback<void(std::unique_ptr<int>)> told;
    std::unique_ptr<int> kept;
    told = [&](std::unique_ptr<int> number) { kept = std::move(number); };
    told(std::make_unique<int>(7));
    ASSERT_NE(kept, nullptr);
    EXPECT_EQ(*kept, 7);
}

TEST(Callback, CallsWhoIsConnectedUntilTheConnectionGoes) {
    Callback<void()> told;
    int calls = 0;
    {
        const auto connection = told.connect([&] { ++calls; });
        told();
        EXPECT_EQ(calls, 1);
    }
    told();
    EXPECT_EQ(calls, 1);
}

TEST(Callback, MayGoBeforeItsConnection) {
    Connection connection;
    {
        Callback<void()> told;
        connection = told.connect([] {});
    }
    connection = {};
}

TEST(Callback, CallsTheLastOneThatCameAlsoWhenTheOneBeforeGoesLater) {
    Callback<void()> told;
    std::string calls;
    auto first = told.connect([&] { calls += 'a'; });
    const auto second = told.connect([&] { calls += 'b'; });
    told();
    first = {};
    told();
    told = [&] { calls += 'c'; };
    told();
    EXPECT_EQ(calls, "bbc");
}

TEST(Callback, KeepsAReceiverWholeThatDisconnectsItself) {
    Callback<void()> told;
    std::optional<Connection> connection;
    const std::string text = "long enough to lie outside of the receiver itself";
    std::string said;
    connection = told.connect([&connection, &said, text] {
        connection.reset();
        said += text;
    });
    told();
    told();
    EXPECT_EQ(said, text);
}

TEST(Callback, ForgetsWhatItsReceiverHeldWhenTheConnectionGoes) {
    Callback<void()> told;
    const auto held = std::make_shared<int>(1);
    {
        const auto connection = told.connect([held] {});
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}
