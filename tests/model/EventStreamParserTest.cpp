#include "model/EventStreamParser.h"

#include "tests/support/Fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace palomet;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct Event {
    QByteArray name;
    QByteArray data;
    bool operator==(const Event &) const = default;
};

void PrintTo(const Event &event, std::ostream *stream) {
    *stream << '"' << event.name.toStdString() << "\": \"" << event.data.left(80).toStdString() << '"';
}

class EventStreamParsing : public ::testing::Test {
protected:
    void feed(QByteArrayView bytes) { m_parser.feed(bytes, m_sink); }
    void finish() { m_parser.finish(m_sink); }

    std::vector<Event> m_events;

private:
    EventStreamParser::Sink m_sink = [this](QByteArrayView name, QByteArrayView data) {
        m_events.push_back({name.toByteArray(), data.toByteArray()});
    };
    EventStreamParser m_parser;
};

} // namespace

TEST_F(EventStreamParsing, ABlankLineDoesNotEndAnEventsName) {
    feed("event: x\n\ndata: 1\ndata: 2\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"x", "1"}, Event{"x", "2"}));
}

TEST_F(EventStreamParsing, AnEventLineWithoutTheBlankAfterItsColonIsIgnored) {
    feed("event: x\nevent:y\ndata: 1\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"x", "1"}));
}

TEST_F(EventStreamParsing, ADataLineWithoutTheBlankAfterItsColonIsIgnored) {
    feed("event: x\ndata:1\ndata\n data: 1\n");
    EXPECT_THAT(m_events, IsEmpty());
}

TEST_F(EventStreamParsing, EventsBeforeTheFirstNameHaveNone) {
    feed("data: 1\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", "1"}));
}

TEST_F(EventStreamParsing, AnEventLineMayTakeTheNameAwayAgain) {
    feed("event: x\nevent: \ndata: 1\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", "1"}));
}

TEST_F(EventStreamParsing, DataMayBeEmptyAndKeepsItsBlanks) {
    feed("data: \ndata:   two  \n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", ""}, Event{"", "  two  "}));
}

TEST_F(EventStreamParsing, CommentsAndOtherFieldsSayNothing) {
    feed(": data: 1\nid: 1\nretry: 5\nDATA: 1\n\n\n");
    EXPECT_THAT(m_events, IsEmpty());
}

TEST_F(EventStreamParsing, LinesEndWithLineFeedOrCarriageReturnOrBoth) {
    feed("event: a\r\ndata: 1\rdata: 2\ndata: 3\r\r\ndata: 4\r\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"a", "1"}, Event{"a", "2"}, Event{"a", "3"}, Event{"a", "4"}));
}

TEST_F(EventStreamParsing, ALineEndMayBeCutInTwo) {
    feed("data: 1\r");
    EXPECT_THAT(m_events, ElementsAre(Event{"", "1"}));
    feed("\ndata: 2\r");
    feed("data: 3\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", "1"}, Event{"", "2"}, Event{"", "3"}));
}

TEST_F(EventStreamParsing, TheLastLineNeedsNoEndWhenTheStreamDoes) {
    feed("event: a\ndata: 1");
    EXPECT_THAT(m_events, IsEmpty());
    finish();
    EXPECT_THAT(m_events, ElementsAre(Event{"a", "1"}));
}

TEST_F(EventStreamParsing, AnEventsNameDoesNotOutliveItsConnection) {
    feed("event: a\n");
    finish();
    feed("data: 1\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", "1"}));
}

TEST_F(EventStreamParsing, BytesThatAreNoTextPassUnchanged) {
    const QByteArray data("\xed\xa0\x80\0x", 5);
    feed("event: \xff\xc3\ndata: " + data + "\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"\xff\xc3", data}));
}

TEST_F(EventStreamParsing, GivesTheSameEventsHoweverTheStreamIsCut) {
    for (const auto *name : {"events/turn.txt", "events/crlf.txt", "events/cr.txt", "events/bytes.txt"}) {
        const QByteArray stream = test::fixture(name);
        m_events.clear();
        feed(stream);
        finish();
        const auto whole = m_events;
        EXPECT_FALSE(whole.empty());
        for (const int step : {1, 2, 3, 5, 7, 64}) {
            m_events.clear();
            for (qsizetype at = 0; at < stream.size(); at += step)
                feed(QByteArrayView(stream).sliced(at, std::min<qsizetype>(step, stream.size() - at)));
            finish();
            EXPECT_EQ(m_events, whole) << name << " in pieces of " << step;
        }
    }
}

TEST_F(EventStreamParsing, AnEventAsLongAsALineMayBeArrives) {
    const QByteArray data(EventStreamParser::maximumLineLength - 6, 'x');
    for (qsizetype at = 0; at < data.size(); at += 100'000)
        feed((at == 0 ? "data: " : "") + data.mid(at, 100'000));
    feed("\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", data}));
}

TEST_F(EventStreamParsing, ALongerLineIsDroppedWholeAndTheStreamGoesOn) {
    const QByteArray tooLong(EventStreamParser::maximumLineLength - 5, 'x');
    feed("event: a\ndata: " + tooLong + "\ndata: 1\n");
    feed("data: " + tooLong);
    feed(tooLong + "\ndata: ");
    feed("2\r\nevent: " + tooLong);
    feed("\r");
    feed("\ndata: 3\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"a", "1"}, Event{"a", "2"}, Event{"a", "3"}));
}

TEST_F(EventStreamParsing, AnEndlessLineIsNotHeld) {
    const QByteArray piece(256 * 1024, 'x');
    for (int i = 0; i < 4096; ++i)
        feed(piece);
    finish();
    feed("data: 1\n");
    EXPECT_THAT(m_events, ElementsAre(Event{"", "1"}));
}
