#include "model/LoopState.h"

#include "localization/Localization.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

TEST(LoopState, IsNamedOnTheWireByItsOwnName) {
    const QStringList names{u"waiting"_s,  u"listening"_s, u"hearing"_s, u"drafting"_s,
                            u"thinking"_s, u"speaking"_s,  u"muted"_s,   u"offline"_s};
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
    QDir(resources.path()).mkdir(u"en.lproj"_s);
    QFile table(resources.filePath(u"en.lproj/strings.json"_s));
    ASSERT_TRUE(table.open(QIODevice::WriteOnly));
    table.write(R"({"state.waiting": "W", "state.listening": "L 100%", "state.hearing": "H", "state.drafting": "D",
                    "state.thinking": "T", "state.speaking": "S", "state.muted": "M"})");
    table.close();
    localization::load(resources.path(), {u"en"_s});

    QStringList words;
    for (const auto state : allLoopStates)
        words << word(state);
    EXPECT_EQ(words.join(u' '), u"W L 100% H D T S M state.offline"_s);
}
