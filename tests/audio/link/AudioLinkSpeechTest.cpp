#include "tests/audio/link/AudioLinkTest.h"

using namespace palomet;
using test::AudioLinkTest;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

TEST_F(AudioLinkTest, PlaysAClipWithoutAFormatAsMp3) {
    ASSERT_TRUE(start());
    sendPlay(1, "100");
    sendPlay(2, "100", QStringLiteral(R"(,"format":"ogg")"));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(1, 2));
    EXPECT_EQ(formats, (QStringList{QStringLiteral("mp3"), QStringLiteral("ogg")}));
}

TEST_F(AudioLinkTest, ReportsAClipOnlyWhenItWasHeard) {
    ASSERT_TRUE(start());
    sendPlay(1, "1000");
    ASSERT_TRUE(speakers.playUntilSound());
    const auto before = static_cast<std::int64_t>(speakers.given.size());
    speakers.pull(1000);
    server.hear(before);
    sendPlay(2, "nonsense"); // a report that comes at once
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(2));
    speakers.hearAll();
    ASSERT_TRUE(test::eventually([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(2, 1));
}

TEST_F(AudioLinkTest, StopReportsEveryPendingClipOnce) {
    ASSERT_TRUE(start());
    sendPlay(1, "100000");
    sendPlay(2, "100000");
    sendPlay(3, "100000");
    ASSERT_TRUE(speakers.playUntilSound());
    backend.send(QStringLiteral(R"({"type":"stop"})"));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 3; }));
    EXPECT_THAT(backend.played(), UnorderedElementsAre(1, 2, 3));
    sendPlay(4, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 4; }));
    EXPECT_EQ(backend.played().back(), 4);
}

TEST_F(AudioLinkTest, AFormatThatIsNoneIsAFailedClip) {
    ASSERT_TRUE(start());
    sendPlay(5, "x", QStringLiteral(R"(,"format":"../x")"));
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(5));
    EXPECT_EQ(notes.back(), QStringLiteral("áudio: não consegui tocar a fala 5 (no ../x)"));
}

TEST_F(AudioLinkTest, TheChimeIsPlayedWithoutAReport) {
    QFile file(folder.filePath(QStringLiteral("chime.aiff")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1000");
    file.close();
    ASSERT_TRUE(start());
    backend.send(QStringLiteral(R"({"type":"chime"})"));
    sendPlay(1, "10");
    ASSERT_TRUE(speakers.speakUntil([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(1));
    EXPECT_EQ(formats, (QStringList{QStringLiteral("aiff"), QStringLiteral("mp3")}));
}

TEST_F(AudioLinkTest, AClipThatPlaysWhenTheBackendIsKilledIsHeardToItsEndAndNotReportedToTheNext) {
    ASSERT_TRUE(start());
    sendPlay(1, "100000");
    ASSERT_TRUE(speakers.playUntilSound());
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == 2; }));
    EXPECT_TRUE(speakers.isSounding());
    sendPlay(2, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(2));
}

TEST_F(AudioLinkTest, AClipOfAnEarlierConnectionDoesNotReportANewOneOfTheSameId) {
    ASSERT_TRUE(start());
    sendPlay(1, "100");
    ASSERT_TRUE(speakers.playUntilSound());
    speakers.pull(100);
    const auto endOfTheFirst = static_cast<std::int64_t>(speakers.given.size());
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == 2; }));
    sendPlay(1, "1000");
    ASSERT_TRUE(speakers.playUntilSound());
    server.hear(endOfTheFirst);
    sendPlay(2, "nonsense"); // a report that comes behind any that was caused before
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(2));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(2, 1));
}

TEST_F(AudioLinkTest, AStopReportsWhatThisConnectionAskedForAndSilencesTheRestToo) {
    ASSERT_TRUE(start());
    sendPlay(1, "100000");
    ASSERT_TRUE(speakers.playUntilSound());
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == 2; }));
    sendPlay(2, "100000");
    backend.send(QStringLiteral(R"({"type":"stop"})"));
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    sendPlay(3, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(2, 3));
}

TEST_F(AudioLinkTest, EachOfTwoClipsOfOneIdIsReportedAtItsOwnEnd) {
    ASSERT_TRUE(start());
    sendPlay(1, "1000");
    ASSERT_TRUE(speakers.playUntilSound());
    sendPlay(1, "nonsense");
    ASSERT_TRUE(test::eventually([&] { return backend.played().size() == 1; }));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(1, 1));
}

TEST_F(AudioLinkTest, AClipLargerThanAnyCanNeedToBeIsNotedAndReportedAndTheLinkGoesOn) {
    ASSERT_TRUE(start());
    sendPlay(5, QByteArray(1000, ' '));
    sendPlay(6, QByteArray(1001, ' '));
    sendPlay(7, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 3; }));
    EXPECT_THAT(backend.played(), UnorderedElementsAre(5, 6, 7));
    EXPECT_TRUE(notes.contains(QStringLiteral("áudio: não consegui tocar a fala 5 (no mp3)")));
    EXPECT_TRUE(notes.contains(QStringLiteral("áudio: não consegui tocar a fala 6 (o arquivo é grande demais)")));
    EXPECT_EQ(backend.connections, 1);
}

TEST_F(AudioLinkTest, AThousandClipsAtOnceAreReportedInOrder) {
    ASSERT_TRUE(start());
    std::vector<qint64> expected;
    for (qint64 id = 0; id < 1000; ++id) {
        sendPlay(id, "100");
        expected.push_back(id);
    }
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 1000; }));
    EXPECT_EQ(backend.played(), expected);
}
