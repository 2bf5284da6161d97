#include "tests/audio/echo/MaskFiles.h"

#include <QCryptographicHash>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using echo::MaskWeights;
using namespace Qt::StringLiterals;

namespace {

constexpr int header = 56; // The mark, four numbers, the hash.

/// The file with this byte changed; its hash is true again where `isSigned`.
QByteArray changed(int at, char to, bool isSigned = false) {
    auto file = test::maskFile("echo-mask.bin");
    file[at] = to;
    if (isSigned)
        file.replace(24, 32, QCryptographicHash::hash(file.sliced(header), QCryptographicHash::Sha256));
    return file;
}

} // namespace

TEST(MaskWeights, AreReadFromTheResourceFolder) {
    const auto weights = MaskWeights::read(QStringLiteral(PALOMET_SOURCE_DIR "/tests/audio/echo/mask"));
    ASSERT_TRUE(weights);
    EXPECT_NE((*weights)->entry.weights[0][0], 0);
    EXPECT_NE((*weights)->exit.biases.back(), 0);
}

TEST(MaskWeights, AFileThatIsNotThereIsAReasonAndNoWeights) {
    const QTemporaryDir folder;
    const auto weights = MaskWeights::read(folder.path());
    ASSERT_FALSE(weights);
    EXPECT_FALSE(weights.reason().isEmpty());
}

TEST(MaskWeights, AFileThatIsCutShortAnywhereIsRefused) {
    const auto file = test::maskFile("echo-mask.bin");
    ASSERT_TRUE(MaskWeights::parse(file));
    for (qsizetype size = 0; size < 80; ++size)
        EXPECT_FALSE(MaskWeights::parse(file.first(size))) << size;
    EXPECT_FALSE(MaskWeights::parse(file.first(file.size() - 1)));
}

TEST(MaskWeights, AFileThatGoesOnIsRefused) {
    EXPECT_FALSE(MaskWeights::parse(test::maskFile("echo-mask.bin") + '\0'));
}

TEST(MaskWeights, AChangedByteAnywhereIsRefused) {
    const auto size = static_cast<int>(test::maskFile("echo-mask.bin").size());
    for (int at = 0; at < size; at += at < header ? 1 : 9973) {
        const char was = test::maskFile("echo-mask.bin")[at];
        EXPECT_FALSE(MaskWeights::parse(changed(at, static_cast<char>(was ^ 1)))) << at;
    }
}

TEST(MaskWeights, AnotherVersionIsToldFromDamage) {
    const auto version = MaskWeights::parse(changed(8, 2));
    const auto damaged = MaskWeights::parse(changed(1000, 2));
    ASSERT_FALSE(version);
    ASSERT_FALSE(damaged);
    EXPECT_NE(version.reason(), damaged.reason());
}

TEST(MaskWeights, AWeightThatIsNoNumberIsRefused) {
    EXPECT_TRUE(MaskWeights::parse(changed(header + 1, 0x10, true)));
    EXPECT_FALSE(MaskWeights::parse(changed(header + 1, 0x7c, true)));
}
