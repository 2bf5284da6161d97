#include "tests/ui/screens/WindowTest.h"
#include "ui/kit/BarsPicture.h"

#include <cmath>
#include <limits>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

/// Whatever a backend sends, the window shows it, without a warning and within its columns.
class BadInputTest : public WindowTest {
protected:
    void settle() {
        for (int frame = 0; frame < 3; ++frame) {
            QCoreApplication::processEvents();
            [[maybe_unused]] const auto picture = window->grabWindow();
        }
    }
    void openAll() {
        open(Pane::Now);
        showAll();
    }
    void showAll() {
        for (const auto pane : allPanes) {
            navigation.setPane(pane);
            settle();
            EXPECT_TRUE(fits()) << rawValue(pane).toStdString();
        }
    }
    /// Whether no text leaves the page at its right, nor the part of it that is its own.
    [[nodiscard]] bool fits() {
        for (const auto *type : {"ZenText", "ZenData", "ElidedText", "ZenNote", "ElidedDisplay", "ZenBody"}) {
            for (auto *text : all(type)) {
                if (!text->isVisible())
                    continue;
                const auto place = text->mapRectToScene(text->boundingRect());
                const bool isCut = text->property("contentWidth").toReal() > text->width() + 1;
                if (place.right() > window->width() || isCut) {
                    ADD_FAILURE() << type << ": " << text->property("text").toString().left(60).toStdString();
                    return false;
                }
            }
        }
        return true;
    }
};

Snapshot::Row turn(const char *role, const QString &text, double at) {
    return {.role = QString::fromUtf8(role), .text = text, .at = at, .durationMs = {}, .isOpen = {}};
}

} // namespace

TEST_F(BadInputTest, ShowsRowsThatShareAnId) {
    setState("waiting", [](Snapshot &snapshot) {
        snapshot.conversation.rows = {turn("user", u"one"_s, 5), turn("user", u"two"_s, 5), turn("user", u"one"_s, 5)};
        snapshot.draft = {{.at = 5, .text = u"a"_s}, {.at = 5, .text = u"a"_s}};
    });
    open(Pane::Now);
    settle();
    EXPECT_EQ(all("ConversationRow").size(), 3);
    EXPECT_EQ(all("EntryRow").size(), 2);
}

TEST_F(BadInputTest, ShowsEmptyListsAndABareSnapshot) {
    setState("waiting");
    model().setOptions(Options());
    openAll();
    navigation.setPane(Pane::Voice);
    press(named("ZenSelect", u"Speech model"_s));
    settle();
    for (auto *list : all("SelectList"))
        EXPECT_TRUE(Scene::all(list, "Pressable").isEmpty());
    key(Qt::Key_Down);
    key(Qt::Key_Return);
    EXPECT_EQ(backend().count("/settings"), 0);
}

TEST_F(BadInputTest, ShowsThatNothingIsKnown) {
    openAll();
}

TEST_F(BadInputTest, DrawsALevelThatIsNoNumberAsSilenceAndClipsWhatIsBeyond) {
    setState("hearing");
    open(Pane::Now);
    for (const double level : {std::nan(""), -1.0, 1e300, std::numeric_limits<double>::infinity()}) {
        first("StateGlyph")->setProperty("level", level);
        settle();
        for (auto *bars : all("Bars")) {
            for (const double height : qobject_cast<BarsPicture *>(bars)->heights()) {
                EXPECT_GE(height, 4) << level;
                EXPECT_LE(height, 18) << level;
            }
        }
    }
}

TEST_F(BadInputTest, ShowsTimesOf1970AndOfTheYear3000) {
    for (const double at : {0.0, 32'503'680'000'000.0, 1e300, -1e300, std::nan("")}) {
        setFull([at](Snapshot &snapshot) {
            snapshot.session.startedAt = at;
            snapshot.conversation.startedAt = at;
            for (auto &row : snapshot.conversation.rows)
                row.at = at;
            snapshot.heard->front().at = at;
            snapshot.draft->front().at = at;
        });
        ConversationSummary summary;
        summary.startedAt = at;
        model().setHistory({summary});
        openAll();
    }
}

TEST_F(BadInputTest, ShowsARoleThatNobodyKnowsAsPalomets) {
    setState("waiting", [](Snapshot &snapshot) { snapshot.conversation.rows = {turn("<b>spirit</b>", u"boo"_s, 5)}; });
    open(Pane::Now);
    EXPECT_EQ(first("ConversationRow")->property("label"), u"Palomet"_s);
}

TEST_F(BadInputTest, ShowsASettingThatIsNotAmongItsOptionsWithoutAMark) {
    setFull([](Snapshot &snapshot) { snapshot.settings.fishModel = u"gone"_s; });
    offer();
    open(Pane::Voice);
    auto *select = named("ZenSelect", u"Speech model"_s);
    EXPECT_EQ(select->property("value"), u"gone"_s);
    press(select);
    for (auto *choice : Scene::all(first("SelectList"), "Pressable"))
        EXPECT_FALSE(choice->property("isSelected").toBool());
}

TEST_F(BadInputTest, ShowsMarkupAsItIsWritten) {
    const auto markup = u"<img src=\"http://127.0.0.1:1/x.png\"><b>bold</b> &amp; <a href=\"x\">link</a>"_s;
    setFull([&](Snapshot &snapshot) {
        snapshot.device = markup;
        snapshot.conversation.rows = {turn("user", markup, 5)};
        snapshot.heard = {{.at = 1'800'000'000'000, .text = markup, .action = markup, .reason = markup}};
        snapshot.draft = {{.at = 5, .text = markup}};
        snapshot.settings.inputDevice = markup;
        snapshot.settings.whisperModel = markup;
        snapshot.settings.wakeWords = {markup};
        snapshot.settings.folders = {markup};
        snapshot.settings.workingFolder = markup;
        snapshot.settings.brainModel = markup;
    });
    ConversationSummary summary;
    summary.firstQuestion = markup;
    model().setHistory({summary});
    Options options;
    options.inputs = {markup};
    options.confirmActions = {{.id = markup, .label = markup}};
    model().setOptions(options);
    open(Pane::Now);
    int shown = 0;
    for (const auto pane : allPanes) {
        navigation.setPane(pane);
        settle();
        for (const auto *type : {"ZenText", "ZenData", "ElidedText", "ZenNote", "ElidedDisplay", "ZenBody", "ZenLabel",
                                 "ZenDisplay", "TipBox"}) {
            for (auto *text : all(type)) {
                if (!text->property("textFormat").isValid())
                    continue;
                EXPECT_EQ(text->property("textFormat").toInt(), 0) << type << " is not plain text";
                shown += text->property("text").toString().contains(u"<b>") ? 1 : 0;
            }
        }
    }
    EXPECT_GT(shown, 8);
}

TEST_F(BadInputTest, ShowsLongAndForeignTexts) {
    setFull([](Snapshot &snapshot) {
        const auto device = u"Very Long Device "_s.repeated(12);
        snapshot.device = device;
        snapshot.settings.inputDevice = device;
        snapshot.settings.workingFolder = u"/a/very/long/path"_s.repeated(20);
        snapshot.settings.folders = {snapshot.settings.workingFolder, QString(300, u'x')};
        snapshot.conversation.rows = {
            turn("user", u"question "_s.repeated(1'100), 5), turn("user", QString(10'000, u'w'), 6),
            turn("assistant",
                 u"مرحبا بالعالم، كيف حالك اليوم؟ 👋🏽👨‍👩‍👧‍👦"_s, 7)};
        snapshot.conversation.costUsd = 12'345.678;
        snapshot.heard = {{.at = 1'800'000'000'000,
                           .text = QString(500, u'w'),
                           .action = u"an action without words of its own"_s,
                           .reason = QString(500, u'w')}};
        snapshot.draft = {{.at = 5, .text = QString(500, u'w')}};
    });
    ConversationSummary summary;
    summary.firstQuestion = u"question "_s.repeated(1'100);
    summary.costUsd = 12'345.678;
    model().setHistory({summary});
    Options options;
    options.confirmActions = {{.id = u"long"_s, .label = u"A label without an end "_s.repeated(20)}};
    options.claudePaths = {{.path = u"/p"_s.repeated(200), .version = u"1.0"_s}};
    model().setOptions(options);
    openAll();
    window->resize(960, 640);
    settle();
    showAll();
}
