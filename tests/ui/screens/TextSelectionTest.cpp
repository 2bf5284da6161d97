#include "ui/screens/TextSelection.h"

#include "ui/screens/ConversationRows.h"

#include <QClipboard>
#include <QGuiApplication>

#include <gtest/gtest.h>

using namespace palomet;

namespace {

class TextSelectionTest : public ::testing::Test {
protected:
    TextSelectionTest() {
        show({QStringLiteral("How is it going?"), QStringLiteral("Well, e\u0301t\u00E9."), QStringLiteral("Fine")});
        selection.setModel(&rows);
    }

    void show(const QStringList &texts) {
        Snapshot snapshot;
        for (const auto &text : texts)
            snapshot.conversation.rows.push_back(
                {.role = QStringLiteral("user"), .text = text, .at = 1, .durationMs = {}, .isOpen = {}});
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
    EXPECT_EQ(selection.text(), QStringLiteral("it going?\nWell, e\u0301t\u00E9.\nFi"));
    EXPECT_EQ(std::pair(selection.startIn(0), selection.endIn(0)), std::pair(7, 16));
    EXPECT_EQ(std::pair(selection.startIn(1), selection.endIn(1)), std::pair(0, 11));
    EXPECT_EQ(std::pair(selection.startIn(2), selection.endIn(2)), std::pair(0, 2));
    selection.extendTo(0, 4);
    EXPECT_EQ(selection.text(), QStringLiteral("is "));
    EXPECT_EQ(std::pair(selection.startIn(1), selection.endIn(1)), std::pair(0, 0));
    EXPECT_TRUE(selection.copy());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("is "));
}

TEST_F(TextSelectionTest, SelectsAWordATextAndEverything) {
    selection.selectWord(0, 5);
    EXPECT_EQ(selection.text(), QStringLiteral("is"));
    selection.selectWord(2, 4);
    EXPECT_EQ(selection.text(), QStringLiteral("Fine"));
    selection.selectRow(1);
    EXPECT_EQ(selection.text(), QStringLiteral("Well, e\u0301t\u00E9."));
    selection.selectAll();
    EXPECT_EQ(selection.text(), QStringLiteral("How is it going?\nWell, e\u0301t\u00E9.\nFine"));
    EXPECT_TRUE(selection.clear());
    EXPECT_FALSE(selection.clear());
    EXPECT_EQ(selection.text(), QString());
}

TEST_F(TextSelectionTest, MovesByCharactersAndWordsAndOutOfOneTextIntoTheNext) {
    selection.begin(1, 6);
    selection.move(TextSelection::Step::Character, true, true);
    EXPECT_EQ(selection.text(), QStringLiteral("e\u0301")) << "a letter and its accent are one character";
    selection.move(TextSelection::Step::Word, true, true);
    selection.move(TextSelection::Step::Character, true, true);
    EXPECT_EQ(selection.caretRow(), 2);
    EXPECT_EQ(selection.text(), QStringLiteral("e\u0301t\u00E9.\n"));
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
    show({QStringLiteral("New"), QStringLiteral("How is it going?"), QStringLiteral("Well, e\u0301t\u00E9."),
          QStringLiteral("Fine"), QStringLiteral("More")});
    EXPECT_EQ(selection.text(), QStringLiteral("Well, e\u0301t\u00E9.\nFine"));
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
    show({QStringLiteral("before"), text, QStringLiteral("after")});
    ASSERT_GT(rows.rowCount(), 20);
    selection.selectAll();
    EXPECT_EQ(selection.text(), QStringLiteral("before\n") + text + QStringLiteral("\nafter"));
}
