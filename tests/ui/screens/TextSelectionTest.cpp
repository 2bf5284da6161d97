#include "ui/screens/TextSelection.h"

#include "ui/screens/ConversationRows.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class TextSelectionTest : public ::testing::Test {
protected:
    TextSelectionTest() {
        show({u"How is it going?"_s, u"Well, e\u0301t\u00E9."_s, u"Fine"_s});
        selection.setModel(&rows);
    }

    void show(const QStringList &texts) {
        Snapshot snapshot;
        for (const auto &text : texts)
            snapshot.conversation.rows.push_back(
                {.role = u"user"_s, .text = text, .at = 1, .durationMs = {}, .isOpen = {}});
        rows.show(std::make_shared<const Snapshot>(std::move(snapshot)));
    }

    ConversationRows rows;
    TextSelection selection;
};

} // namespace

TEST_F(TextSelectionTest, GoesFromOneTextIntoOthersInEitherDirection) {
    selection.begin(0, 7);
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_FALSE(selection.copy());
    selection.extendTo(2, 2);
    EXPECT_EQ(selection.text(), u"it going?\nWell, e\u0301t\u00E9.\nFi"_s);
    EXPECT_EQ(std::pair(selection.startIn(0), selection.endIn(0)), std::pair(7, 16));
    EXPECT_EQ(std::pair(selection.startIn(1), selection.endIn(1)), std::pair(0, 11));
    EXPECT_EQ(std::pair(selection.startIn(2), selection.endIn(2)), std::pair(0, 2));
    selection.extendTo(0, 4);
    EXPECT_EQ(selection.text(), u"is "_s);
    EXPECT_EQ(std::pair(selection.startIn(1), selection.endIn(1)), std::pair(0, 0));
    EXPECT_TRUE(selection.copy());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"is "_s);
}

TEST_F(TextSelectionTest, SelectsAWordATextAndEverything) {
    selection.selectWord(0, 5);
    EXPECT_EQ(selection.text(), u"is"_s);
    selection.selectWord(2, 4);
    EXPECT_EQ(selection.text(), u"Fine"_s);
    selection.selectRow(1);
    EXPECT_EQ(selection.text(), u"Well, e\u0301t\u00E9."_s);
    selection.selectAll();
    EXPECT_EQ(selection.text(), u"How is it going?\nWell, e\u0301t\u00E9.\nFine"_s);
    EXPECT_TRUE(selection.clear());
    EXPECT_FALSE(selection.clear());
    EXPECT_EQ(selection.text(), QString());
}

TEST_F(TextSelectionTest, MovesByCharactersAndWordsAndOutOfOneTextIntoTheNext) {
    selection.begin(1, 6);
    selection.move(TextSelection::Step::Character, true, true);
    EXPECT_EQ(selection.text(), u"e\u0301"_s) << "a letter and its accent are one character";
    selection.move(TextSelection::Step::Word, true, true);
    selection.move(TextSelection::Step::Character, true, true);
    EXPECT_EQ(selection.caretRow(), 2);
    EXPECT_EQ(selection.text(), u"e\u0301t\u00E9.\n"_s);
    selection.move(TextSelection::Step::Character, false, false);
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_EQ(std::pair(selection.caretRow(), selection.caretPosition()), std::pair(1, 6));
    selection.begin(0, 0);
    selection.move(TextSelection::Step::Character, false, true);
    EXPECT_TRUE(selection.isEmpty());
    selection.move(TextSelection::Step::Word, true, false);
    EXPECT_EQ(selection.caretPosition(), 4);
}

TEST_F(TextSelectionTest, StaysWithItsTextsAsOthersComeAndIsLostWithThem) {
    selection.begin(1, 0);
    selection.extendTo(2, 4);
    show({u"New"_s, u"How is it going?"_s, u"Well, e\u0301t\u00E9."_s, u"Fine"_s, u"More"_s});
    EXPECT_EQ(selection.text(), u"Well, e\u0301t\u00E9.\nFine"_s);
    EXPECT_EQ(selection.startIn(1), selection.endIn(1));
    show({});
    EXPECT_TRUE(selection.isEmpty());
    EXPECT_EQ(selection.text(), QString());
    selection.begin(0, 0);
    selection.selectAll();
    selection.selectWord(0, 0);
    EXPECT_FALSE(selection.hasCaret());
}

TEST_F(TextSelectionTest, CopiesALongTextAsItIsWritten) {
    const auto text = (QString(700, u'a') + u'\n' + QString(1'900, u'b')).repeated(20);
    show({u"before"_s, text, u"after"_s});
    ASSERT_GT(rows.rowCount(), 20);
    selection.selectAll();
    EXPECT_EQ(selection.text(), u"before\n"_s + text + u"\nafter"_s);
}
