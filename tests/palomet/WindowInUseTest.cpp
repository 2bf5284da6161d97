#include "tests/palomet/WindowInUse.h"

#include "tests/palomet/AccessibleEvents.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class WindowInUseTest : public test::WindowInUse {
protected:
    [[nodiscard]] QJsonArray rows() const { return state()[u"conversation"_s].toObject()[u"rows"_s].toArray(); }
    [[nodiscard]] QJsonArray draft() const { return state()[u"draft"_s].toArray(); }

    /// From now on whatever is said is taken down.
    void dictate() {
        open("listening");
        turn(u"Only when spoken to"_s, "isDirectedOn");
        turn(u"Dictate before acting"_s, "isDraftOn");
        open("now");
    }
    /// Somebody says something; returns what was taken down.
    [[nodiscard]] QString takeDown() {
        hear(u"Buy some milk."_s);
        EXPECT_TRUE(eventually([this] { return !draft().isEmpty(); }))
            << QJsonDocument(state()[u"heard"_s].toArray()).toJson().toStdString();
        return draft().at(0).toObject()[u"text"_s].toString();
    }
    [[nodiscard]] bool hasItem(const QString &words) {
        const auto items = tree.all(u"list item"_s);
        return std::any_of(items.begin(), items.end(),
                           [&](const auto &item) { return tree.name(item).contains(words); });
    }
};

} // namespace

TEST_F(WindowInUseTest, IsOnTheScreenWithAllOfItsFrame) {
    open("now");
    QByteArray about;
    const auto number = [&about](const char *name) {
        const auto line = about.indexOf(name);
        const auto rest = about.mid(line + static_cast<qsizetype>(qstrlen(name)));
        return line < 0 ? -1 : rest.trimmed().split('\n').first().toInt();
    };
    EXPECT_TRUE(eventually([&] {
        about = desktop.display.run(u"xwininfo"_s, {u"-name"_s, u"Palomet"_s});
        const auto frame = number("Relative upper-left Y:");
        const auto top = number("Absolute upper-left Y:");
        // Some of the frame is below it, too.
        return frame > 0 && top >= frame && top + number("Height:") < 800;
    })) << about.toStdString();
}

TEST_F(WindowInUseTest, SendsATypedRequest) {
    open("now");
    focus(node("text", u"Type a request instead"_s));
    type(u"What time is it?"_s);
    key("Return");
    EXPECT_TRUE(eventually([this] { return rows().at(0).toObject()[u"text"_s] == u"What time is it?"_s; }));
    EXPECT_TRUE(eventually([this] { return hasItem(u"You: What time is it?"_s); }));
    EXPECT_TRUE(rows().at(0).toObject()[u"role"_s] == u"user"_s);
}

TEST_F(WindowInUseTest, ClearsADraft) {
    dictate();
    const auto words = takeDown();
    EXPECT_TRUE(eventually([&] { return hasItem(words); })) << qPrintable(words);
    press("push button", u"Clear"_s);
    EXPECT_TRUE(eventually([this] { return draft().isEmpty(); }));
    EXPECT_TRUE(rows().isEmpty());
}

TEST_F(WindowInUseTest, RunsADraft) {
    dictate();
    const auto words = takeDown();
    press("push button", u"Run now"_s);
    // It ends as a sentence does.
    EXPECT_TRUE(eventually([&] { return rows().at(0).toObject()[u"text"_s].toString().startsWith(words); }))
        << qPrintable(words);
    EXPECT_TRUE(draft().isEmpty());
}

TEST_F(WindowInUseTest, ChangesThePaneByKeyboard) {
    open("now");
    focus(node("page tab", u"Now"_s));
    key("Tab");
    key("space");
    EXPECT_TRUE(eventually([this] { return tree.isSelected(node("page tab", u"History"_s)); }));
}

TEST_F(WindowInUseTest, HasEveryStateReadOutOnceWhileTheStripShowsToo) {
    open("now");
    const auto button = node("push button", u"Listen"_s);
    test::AccessibleEvents events(tree);
    for (int round = 1; round <= 3; ++round) {
        EXPECT_TRUE(tree.press(button));
        EXPECT_TRUE(eventually([&] { return events.readOut().size() == 2 * round - 1; }));
        press("push button", u"Stop"_s);
        EXPECT_TRUE(eventually([&] { return events.readOut().size() == 2 * round; }));
    }
    const QStringList once{u"Listening. No name needed"_s, u"Waiting. Call it by its name"_s};
    EXPECT_EQ(events.readOut(), once + once + once) << qPrintable(events.readOut().join(u'|'));
}

TEST_F(WindowInUseTest, HasEveryStateReadOutByTheStripWhileThereIsNoWindow) {
    test::AccessibleEvents events(tree);
    const auto post = [this](const char *command) {
        desktop.display.run(u"curl"_s,
                            {u"-sX"_s, u"POST"_s, u"http://127.0.0.1:4780/"_s + QString::fromLatin1(command)});
    };
    post("listen");
    EXPECT_TRUE(eventually([&] { return events.readOut().size() == 1; }));
    post("stop");
    EXPECT_TRUE(eventually([&] { return events.readOut().size() == 2; }));
    EXPECT_EQ(events.readOut(), (QStringList{u"Listening: Go ahead, no name needed"_s, u"Waiting"_s}))
        << qPrintable(events.readOut().join(u'|'));
}
