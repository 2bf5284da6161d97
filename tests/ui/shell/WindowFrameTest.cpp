#include "ui/shell/WindowFrame.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace palomet;

namespace {

constexpr QSize size{1120, 760};
constexpr QSize minimumSize{960, 640};
constexpr QRect first{0, 0, 1920, 1040};
constexpr QRect second{1920, 0, 2560, 1400};

QRect opened(const std::optional<QRect> &saved, const std::vector<QRect> &screens = {first, second}) {
    return openingFrame(saved, screens, size, minimumSize);
}

} // namespace

void PrintTo(const QRect &rect, std::ostream *stream) {
    *stream << rect.x() << ',' << rect.y() << ' ' << rect.width() << 'x' << rect.height();
}

TEST(WindowFrame, IsCentredOnTheMainScreenWhenNothingWasSaved) {
    EXPECT_EQ(opened(std::nullopt), QRect(400, 140, 1120, 760));
}

TEST(WindowFrame, IsWhereItWasLeft) {
    EXPECT_EQ(opened(QRect(30, 40, 1000, 700)), QRect(30, 40, 1000, 700));
    EXPECT_EQ(opened(QRect(2000, 100, 2000, 1200)), QRect(2000, 100, 2000, 1200));
}

TEST(WindowFrame, IsCentredInItsSavedSizeWhenItsScreenIsGone) {
    EXPECT_EQ(opened(QRect(2000, 100, 1200, 800), {first}), QRect(360, 120, 1200, 800));
}

TEST(WindowFrame, IsMovedOntoTheScreenThatHasMostOfIt) {
    EXPECT_EQ(opened(QRect(1500, 600, 1000, 700)), QRect(1920, 600, 1000, 700));
    EXPECT_EQ(opened(QRect(-300, -20, 1000, 700)), QRect(0, 0, 1000, 700));
}

TEST(WindowFrame, IsNoLargerThanItsScreen) {
    EXPECT_EQ(opened(QRect(100, 100, 2560, 1400), {first}), first);
    EXPECT_EQ(opened(std::nullopt, {{0, 0, 1024, 700}}), QRect(0, 0, 1024, 700));
}

TEST(WindowFrame, IsNeverSmallerThanTheWindowCanBe) {
    EXPECT_EQ(opened(QRect(10, 10, 50, 50)), QRect(10, 10, 960, 640));
    EXPECT_EQ(opened(std::nullopt, {{0, 0, 800, 600}}), QRect(0, 0, 960, 640));
}

TEST(WindowFrame, IgnoresWhatIsNoFrame) {
    EXPECT_EQ(opened(QRect()), opened(std::nullopt));
    EXPECT_EQ(opened(QRect(5, 5, -20, 30)), opened(std::nullopt));
}

TEST(WindowFrame, IsAsItWasSavedWhereThereIsNoScreen) {
    EXPECT_EQ(opened(QRect(5, 6, 1000, 700), {}), QRect(5, 6, 1000, 700));
    EXPECT_EQ(opened(std::nullopt, {}), QRect(QPoint(), size));
}
