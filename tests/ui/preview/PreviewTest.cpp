#include "ui/preview/Preview.h"

#include "localization/Localization.h"
#include "model/Documents.h"
#include "tests/ui/support/UiTest.h"

#include <QImageReader>
#include <QQuickWindow>
#include <QTemporaryDir>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class PreviewTest : public test::UiTest {
protected:
    ~PreviewTest() override { speak(u"en"_s); }

    static void speak(const QString &language) {
        Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {language});
    }

    [[nodiscard]] QStringList rows() const {
        QStringList found;
        for (const auto &row : model().snapshot()->conversation.rows)
            found.append(row.role + u": "_s + row.text);
        return found;
    }
    [[nodiscard]] const PalometModel &model() const { return const_cast<PreviewTest *>(this)->UiTest::model(); }
    void fill() { Preview::fill(UiTest::model()); }
};

} // namespace

TEST_F(PreviewTest, IsAskedForByItsArgumentAndOpensThePaneThatFollows) {
    EXPECT_EQ(Preview::pane({}), std::nullopt);
    EXPECT_EQ(Preview::pane({u"--capture"_s, u"x"_s}), std::nullopt);
    for (const auto pane : allPanes)
        EXPECT_EQ(Preview::pane({u"--preview"_s, rawValue(pane)}), pane);
    EXPECT_EQ(Preview::pane({u"a"_s, u"--preview"_s, u"voice"_s, u"--preview"_s, u"brain"_s}), Pane::Voice);
}

TEST_F(PreviewTest, OpensTheNowPaneWhenNoneIsNamed) {
    EXPECT_EQ(Preview::pane({u"--preview"_s}), Pane::Now);
    EXPECT_EQ(Preview::pane({u"--preview"_s, u"cellar"_s}), Pane::Now);
    EXPECT_EQ(Preview::pane({u"--preview"_s, u"Voice"_s}), Pane::Now);
    EXPECT_EQ(Preview::pane({u"--preview"_s, u"--capture"_s, u"x"_s}), Pane::Now);
}

TEST_F(PreviewTest, WritesToThePathThatFollowsTheFirstCapture) {
    EXPECT_EQ(Preview::capturePath({}), std::nullopt);
    EXPECT_EQ(Preview::capturePath({u"--preview"_s, u"--capture"_s}), std::nullopt);
    EXPECT_EQ(Preview::capturePath({u"--capture"_s, u"/a.png"_s, u"--capture"_s, u"/b.png"_s}), u"/a.png"_s);
}

TEST_F(PreviewTest, FillsTheModelWithSamplesInEnglish) {
    fill();
    ASSERT_TRUE(model().snapshot());
    EXPECT_EQ(rows(), (QStringList{u"user: How is the site's deploy going?"_s, u"tool: Bash: gh run list --limit 1"_s,
                                   u"agent: The last deploy passed ten minutes ago, with no errors."_s}));
    EXPECT_EQ(model().snapshot()->heard->front().text, u"Palomet, how is the site's deploy going?");
    EXPECT_EQ(model().snapshot()->draft->front().text, u"Open a pull request with the form fix.");
    EXPECT_EQ(model().history().front().firstQuestion, u"How is the site's deploy going?");
    EXPECT_EQ(model().snapshot()->device, u"MacBook Pro Microphone");
    EXPECT_EQ(model().snapshot()->settings.fallbackVoice, u"Samantha");
    EXPECT_EQ(model().snapshot()->settings.actionPhrases, std::vector{u"go ahead"_s});
    ASSERT_TRUE(model().options());
    EXPECT_FALSE(model().history().empty());
}

TEST_F(PreviewTest, FillsTheModelWithSamplesInPortuguese) {
    speak(u"pt-BR"_s);
    fill();
    ASSERT_TRUE(model().snapshot());
    EXPECT_EQ(rows(), (QStringList{u"user: Como está o deploy do site?"_s, u"tool: Bash: gh run list --limit 1"_s,
                                   u"agent: O último deploy passou há dez minutos, sem erro."_s}));
    EXPECT_EQ(model().snapshot()->heard->front().text, u"Palomet, como está o deploy do site?");
    EXPECT_EQ(model().snapshot()->draft->front().text, u"Abre um pull request com a correção do formulário.");
    EXPECT_EQ(model().snapshot()->device, u"Microfone do MacBook Pro");
    EXPECT_EQ(model().snapshot()->settings.fallbackVoice, u"Luciana");
}

TEST_F(PreviewTest, SpeaksEnglishInEveryOtherLanguage) {
    speak(u"fr"_s);
    fill();
    EXPECT_EQ(model().snapshot()->device, u"MacBook Pro Microphone");
}

TEST_F(PreviewTest, StandsAFewMinutesBeforeTheClock) {
    fill();
    using Milliseconds = std::chrono::duration<double, std::milli>;
    const double now = Milliseconds(model().now().time_since_epoch()).count();
    QList<double> ages;
    for (const auto &row : model().snapshot()->conversation.rows)
        ages.append((now - row.at) / 1000);
    ASSERT_EQ(ages.size(), 3);
    EXPECT_NEAR(ages[0], 300, 0.01);
    EXPECT_NEAR(ages[1], 297, 0.01);
    EXPECT_NEAR(ages[2], 294, 0.01);
    // The block of what was heard shows the last two minutes.
    EXPECT_LT(now - model().snapshot()->heard->front().at, 120'000);
}

TEST_F(PreviewTest, ShowsNoMicrophoneWarning) {
    UiTest::model().setMicAuthorized(false);
    fill();
    EXPECT_TRUE(model().isMicOn());
}

TEST_F(PreviewTest, HasItsHistoryBehindItAtEveryHourOfTheDay) {
    constexpr double hour = 3'600'000;
    for (int hours = 0; hours < 24; ++hours) {
        double newer = 1'789'000'000'000 + hours * hour;
        const auto history = decodeHistory(Preview::documents(newer).history);
        ASSERT_TRUE(history);
        for (const auto &entry : *history) {
            EXPECT_LT(entry.startedAt, newer) << hours;
            newer = entry.startedAt;
        }
    }
}

TEST_F(PreviewTest, IsTheSameForTheSameClock) {
    const auto first = Preview::documents(1'789'000'000'000);
    const auto second = Preview::documents(1'789'000'000'000);
    EXPECT_EQ(first.state, second.state);
    EXPECT_EQ(first.options, second.options);
    EXPECT_EQ(first.history, second.history);
}

TEST_F(PreviewTest, WritesAPictureOfTheWholeWindow) {
    const QTemporaryDir folder;
    QQuickWindow window;
    window.resize(320, 200);
    window.setColor(Qt::white);
    window.show();
    const auto path = folder.filePath(u"picture.without-suffix"_s);
    const auto size = Preview::capture(window, path);
    ASSERT_TRUE(size) << size.reason().toStdString();
    EXPECT_EQ(*size, QSize(320, 200));
    QImageReader reader(path);
    EXPECT_EQ(reader.format(), "png");
    EXPECT_EQ(reader.size(), QSize(320, 200));
}

TEST_F(PreviewTest, SaysWhyAPictureCannotBeWritten) {
    const QTemporaryDir folder;
    QQuickWindow window;
    window.resize(320, 200);
    window.show();
    const auto path = folder.filePath(u"missing/picture.png"_s);
    const auto failed = Preview::capture(window, path);
    ASSERT_FALSE(failed);
    EXPECT_TRUE(failed.reason().startsWith(path)) << failed.reason().toStdString();
}

TEST_F(PreviewTest, SaysTheSameMinutesWhateverTheFractionOfTheMillisecond) {
    for (int step = 0; step < 1000; ++step) {
        const auto clock = 1'800'000'000'000.0 + step * 1.037;
        const auto snapshot = decodeSnapshot(Preview::documents(clock).state);
        ASSERT_TRUE(snapshot);
        const auto minutes = (clock - snapshot->session.startedAt) / 60'000;
        ASSERT_GT(minutes, 42.01);
        ASSERT_LT(minutes, 42.5);
    }
}
