#include "platform/linux/SpareMemory.h"

#include "tests/support/Processes.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <vector>

using namespace palomet;

namespace {

constexpr qint64 mebibyte = 1024 * 1024;

qint64 resident() {
    return test::residentBytes(QCoreApplication::applicationPid());
}

class SpareMemoryTest : public testing::Test {
protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the sanitizer's allocator keeps what is freed";
#endif
    }
};

/// Sixty-four mebibytes in blocks as small as a parsed document's.
std::vector<std::unique_ptr<char[]>> document() {
    constexpr std::size_t size = 1024;
    std::vector<std::unique_ptr<char[]>> blocks(64 * mebibyte / size);
    for (auto &block : blocks) {
        block = std::make_unique_for_overwrite<char[]>(size);
        std::fill_n(block.get(), size, 'a');
    }
    return blocks;
}

} // namespace

TEST_F(SpareMemoryTest, GivesBackWhatWasStillNeededWhenItLookedBefore) {
    SpareMemory memory;
    auto blocks = document();
    // A block behind them, that they are not the end of the heap, which would go by itself.
    const auto last = std::make_unique<char>('z');
    memory.giveBack();
    const auto held = resident();
    blocks.clear();
    memory.giveBack();
    EXPECT_LT(resident(), held - 48 * mebibyte);
}

TEST_F(SpareMemoryTest, GivesBackWhatComesAndGoesBetweenTwoLooksEachTime) {
    SpareMemory memory;
    memory.giveBack();
    const auto atFirst = resident();
    for (int round = 0; round < 3; ++round) {
        auto blocks = document();
        const auto last = std::make_unique<char>('z');
        blocks.clear();
        memory.giveBack();
        EXPECT_LT(resident(), atFirst + 16 * mebibyte);
    }
}
