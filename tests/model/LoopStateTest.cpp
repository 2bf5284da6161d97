#include "model/LoopState.h"

#include "localization/Localization.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;

TEST(LoopState, IsNamedOnTheWireByItsOwnName) {
    const QStringList names{QStringLiteral("waiting"),  QStringLiteral("listening"), QStringLiteral("hearing"),
                            QStringLiteral("drafting"), QStringLiteral("thinking"),  QStringLiteral("speaking"),
                            QStringLiteral("muted"),    QStringLiteral("offline")};
    QStringList found;
    for (const auto state : allLoopStates) {
        found << rawValue(state);
        EXPECT_EQ(loopStateFrom(rawValue(state)), state);
    }
    EXPECT_EQ(found, names);
}

TEST(LoopState, IsNothingForAnyOtherWord) {
    for (const auto *word : {u"Listening", u"", u"paused", u"listening ", u"LISTENING"})
        EXPECT_EQ(loopStateFrom(word), std::nullopt) << QString::fromUtf16(word).toStdString();
}

TEST(LoopState, EachWordLooksUpExactlyItsKey) {
    const QTemporaryDir resources;
    QDir(resources.path()).mkdir(QStringLiteral("en.lproj"));
    QFile table(resources.filePath(QStringLiteral("en.lproj/strings.json")));
    ASSERT_TRUE(table.open(QIODevice::WriteOnly));
    table.write(R"({"state.waiting": "W", "state.listening": "L 100%", "state.hearing": "H", "state.drafting": "D",
                    "state.thinking": "T", "state.speaking": "S", "state.muted": "M"})");
    table.close();
    Localization::load(resources.path(), {QStringLiteral("en")});

    QStringList words;
    for (const auto state : allLoopStates)
        words << word(state);
    EXPECT_EQ(words.join(u' '), QStringLiteral("W L 100% H D T S M state.offline"));
}
