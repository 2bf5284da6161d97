#include "app/HistoryList.h"

#include "localization/Localization.h"
#include "model/Format.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// Lists as a user of this language reads them, some hours after the first of them began.
class HistoryListTest : public ::testing::Test {
protected:
    HistoryListTest() { speak(u"en"_s); }
    ~HistoryListTest() override {
        localization::load({}, {});
        format::load(format::systemRegion());
    }

    static void speak(const QString &language) {
        localization::load(u"" PALOMET_SOURCE_DIR "/resources"_s, {language});
        format::load({.numbers = language, .dates = language, .timeZone = u"UTC"_s, .clock = [] {
                          return std::chrono::system_clock::from_time_t(1'731'710'000);
                      }});
    }
};

ConversationSummary summary(const QString &question, double startedAt = 1'731'700'000'000, qint64 answers = 1,
                            double costUsd = 0.0123) {
    return {u"c-1"_s, startedAt, question, answers, costUsd};
}

} // namespace

TEST_F(HistoryListTest, HasALineForEachConversationInItsOrder) {
    EXPECT_EQ(historyList::text({summary(u"What time is it?"_s), summary(u"Later?"_s, 1'731'613'600'000, 3, 0.004)}),
              u"Today 19:46      1 answer · US$ 0.01    What time is it?\n"
              "Yesterday 19:46  3 answers · US$ 0.004  Later?"_s);
}

TEST_F(HistoryListTest, IsInTheUsersLanguage) {
    speak(u"pt-BR"_s);
    EXPECT_EQ(historyList::text({summary(u"Que horas são?"_s)}),
              u"Hoje 19:46  1 resposta · US$ 0,01  Que horas são?"_s);
    EXPECT_EQ(historyList::text({}), u"Nada ainda. O que você pedir aparece aqui."_s);
}

TEST_F(HistoryListTest, SaysInAWindowsWordsThatThereIsNone) {
    EXPECT_EQ(historyList::text({}), u"Nothing yet. What you ask will appear here."_s);
    EXPECT_EQ(historyList::json({}), u"[]"_s);
}

TEST_F(HistoryListTest, KeepsAQuestionOnItsLineAndFromMovingTheCursor) {
    const auto line = historyList::text({summary(u"Two\nlines,\ttabs \u001b[2J\u0007 and \u202e more"_s)});
    EXPECT_EQ(line, u"Today 19:46  1 answer · US$ 0.01  Two lines, tabs [2J and more"_s);
}

TEST_F(HistoryListTest, ShowsAnInstantThatNoCalendarKnowsAsNothing) {
    EXPECT_EQ(historyList::text({summary(u"When?"_s, 1e300)}), u"1 answer · US$ 0.01  When?"_s);
}

TEST_F(HistoryListTest, IsWrittenForProgramsAsTheBackendGivesIt) {
    EXPECT_EQ(historyList::json({summary(u"A \"b\"\n\u001b"_s, 1'731'527'200'000.5, 2, 0)}),
              uR"([{"answers":2,"conversationId":"c-1","costUsd":0,"firstQuestion":"A \"b\"\n\u001b",)"
              uR"("startedAt":1731527200000.5}])"_s);
    EXPECT_TRUE(historyList::json({summary(u"x"_s)}).contains(u"\"startedAt\":1731700000000}"));
}
