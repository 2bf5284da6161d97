#include "ui/shell/Navigation.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

TEST(Pane, IsMadeFromExactlyItsRawValue) {
    QStringList values;
    for (const auto pane : allPanes) {
        values.append(rawValue(pane));
        EXPECT_EQ(paneFrom(rawValue(pane)), pane);
    }
    EXPECT_EQ(values, (QStringList{u"now"_s, u"history"_s, u"listening"_s, u"voice"_s, u"brain"_s}));
    for (const auto *stranger : {u"", u"Now", u"now ", u"settings", u"pane.now"})
        EXPECT_EQ(paneFrom(stranger), std::nullopt);
}

TEST(Pane, StandsInItsGroup) {
    QStringList groups;
    for (const auto pane : allPanes)
        groups.append(group(pane));
    EXPECT_EQ(groups, (QStringList{u"conversation"_s, u"conversation"_s, u"settings"_s, u"settings"_s, u"settings"_s}));
}

TEST(Pane, HasAnIconATitleAndASubtitle) {
    QStringList icons;
    QStringList titles;
    for (const auto pane : allPanes) {
        icons.append(icon(pane));
        titles.append(title(pane));
        EXPECT_FALSE(subtitle(pane).isEmpty());
        EXPECT_FALSE(subtitle(pane).startsWith(u"pane."));
    }
    EXPECT_EQ(icons, (QStringList{u"message"_s, u"history"_s, u"ear"_s, u"volume"_s, u"terminal-2"_s}));
    EXPECT_EQ(titles, (QStringList{u"Now"_s, u"History"_s, u"Listening"_s, u"Voice"_s, u"Brain"_s}));
}

TEST(Navigation, BeginsWithNowAndTellsOfEveryOtherPane) {
    Navigation navigation;
    const QSignalSpy changes(&navigation, &Navigation::paneChanged);
    EXPECT_EQ(navigation.pane(), Pane::Now);
    navigation.setPane(Pane::Now);
    EXPECT_EQ(changes.count(), 0);
    navigation.setPane(Pane::Brain);
    EXPECT_EQ(navigation.pane(), Pane::Brain);
    EXPECT_EQ(changes.count(), 1);
}
