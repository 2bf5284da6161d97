#include "ui/shell/MacWindow.h"

#include "localization/Localization.h"
#include "tests/ui/support/Scene.h"
#include "tests/ui/support/UiTest.h"
#include "ui/UiEngine.h"

#include <QAccessible>
#include <QSettings>
#include <QTemporaryDir>

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;
using test::Scene;

namespace {

class MacWindowTest : public test::UiTest {
protected:
    MacWindowTest() {
        QObject::connect(&m_ui.get(), &QQmlEngine::warnings, &m_ui.get(), [](const QList<QQmlError> &errors) {
            for (const auto &error : errors)
                ADD_FAILURE() << error.toString().toStdString();
        });
    }

    void open() {
        if (!m_window)
            m_window = std::make_unique<MacWindow>(m_ui.get(), m_app, scheduler(), &m_settings);
        m_window->bringToFront();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }

    [[nodiscard]] QList<QQuickItem *> all(const char *type) const { return Scene::all(m_window->contentItem(), type); }
    [[nodiscard]] QQuickItem *titled(const char *type, const QString &title) const {
        for (auto *item : all(type)) {
            if (item->property("title") == title)
                return item;
        }
        ADD_FAILURE() << "no " << type << ' ' << title.toStdString();
        return nullptr;
    }
    void press(QQuickItem *item) {
        ASSERT_TRUE(item);
        QTest::mouseClick(m_window.get(), Qt::LeftButton, {},
                          item->mapToScene(item->boundingRect().center()).toPoint());
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(m_window.get(), key, modifiers); }

    /// What the header says.
    [[nodiscard]] QStringList header() const {
        const auto *header = all("MacPageHeader").value(0);
        return {header->property("crumb").toString(), header->property("title").toString(),
                header->property("subtitle").toString()};
    }
    /// The header's buttons, from left to right, the primary one marked.
    [[nodiscard]] QStringList actions() const {
        QStringList found;
        for (const auto *button : Scene::all(all("MacPageHeader").value(0), "ZenButton"))
            found.append(button->property("title").toString() + (button->property("kind") == 0 ? u"!"_s : u""_s));
        return found;
    }
    [[nodiscard]] QStringList activeItems() const {
        QStringList found;
        for (const auto *item : all("MacSidebarItem")) {
            if (item->property("isActive").toBool())
                found.append(item->property("title").toString());
        }
        return found;
    }

    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts m_shortcuts{m_settings};
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    QStringList m_calls;
    AppView m_app{model(),
                  m_navigation,
                  m_shortcuts,
                  m_layout,
                  {u"1.2.3"_s, u"/home/user"_s},
                  {.openLog = [this] { m_calls.append(u"log"_s); },
                   .openMicrophoneSettings = [this] { m_calls.append(u"microphone"_s); },
                   .pickFolders = [](auto &&) {}}};
    UiEngine m_ui{QStringLiteral(PALOMET_BINARY_DIR "/resources")};
    std::unique_ptr<MacWindow> m_window;
};

} // namespace

TEST_F(MacWindowTest, IsCalledPalometAndCannotBeTooSmall) {
    open();
    EXPECT_EQ(m_window->title(), u"Palomet");
    EXPECT_EQ(m_window->minimumSize(), QSize(960, 640));
    EXPECT_EQ(m_window->color(), QColor(Qt::white));
}

TEST_F(MacWindowTest, HighlightsExactlyThePaneThatIsShown) {
    open();
    EXPECT_EQ(activeItems(), QStringList{u"Now"_s});
    for (const auto pane : allPanes) {
        press(titled("MacSidebarItem", title(pane)));
        EXPECT_EQ(m_navigation.pane(), pane);
        EXPECT_EQ(activeItems(), QStringList{title(pane)});
        EXPECT_EQ(header(), (QStringList{u"Palomet"_s, title(pane), subtitle(pane)}));
    }
    m_navigation.setPane(Pane::History);
    EXPECT_EQ(activeItems(), QStringList{u"History"_s});
}

TEST_F(MacWindowTest, HasTheActionsOfEachPaneInItsHeader) {
    open();
    EXPECT_EQ(actions(), (QStringList{u"New conversation"_s, u"Stop"_s, u"Listen!"_s}));
    m_navigation.setPane(Pane::History);
    EXPECT_EQ(actions(), QStringList());
    m_navigation.setPane(Pane::Listening);
    EXPECT_EQ(actions(), QStringList());
    m_navigation.setPane(Pane::Voice);
    EXPECT_EQ(actions(), QStringList{u"Play sample!"_s});
    m_navigation.setPane(Pane::Brain);
    EXPECT_EQ(actions(), QStringList{u"Open log"_s});
}

TEST_F(MacWindowTest, SendsWhatTheButtonsOfItsHeaderSay) {
    open();
    press(titled("ZenButton", u"New conversation"_s));
    EXPECT_EQ(told("/new"), "");
    press(titled("ZenButton", u"Stop"_s));
    EXPECT_EQ(told("/stop"), "");
    press(titled("ZenButton", u"Listen"_s));
    EXPECT_EQ(told("/listen"), "");
    m_navigation.setPane(Pane::Voice);
    press(titled("ZenButton", u"Play sample"_s));
    EXPECT_EQ(told("/sample"), "");
    m_navigation.setPane(Pane::Brain);
    press(titled("ZenButton", u"Open log"_s));
    EXPECT_EQ(m_calls, QStringList{u"log"_s});
}

TEST_F(MacWindowTest, MakesAPanesScreenAfreshAndKeepsNoOther) {
    open();
    const QList<const char *> pages{"NowPage", "HistoryPage", "ListeningPage", "VoicePage", "BrainPage"};
    for (qsizetype at = 0; at < pages.size(); ++at) {
        m_navigation.setPane(allPanes.at(static_cast<std::size_t>(at)));
        for (const auto *page : pages)
            EXPECT_EQ(all(page).size(), page == pages[at] ? 1 : 0) << page;
    }
}

TEST_F(MacWindowTest, CountsTheHistoryInTheSidebarAndShowsNoZero) {
    open();
    const auto badges = [this] {
        QStringList found;
        for (const auto *item : all("MacSidebarItem"))
            found.append(item->property("badge").toString());
        return found;
    };
    EXPECT_EQ(badges(), (QStringList{u""_s, u""_s, u""_s, u""_s, u""_s}));
    model().setHistory(std::vector<ConversationSummary>(3));
    EXPECT_EQ(badges(), (QStringList{u""_s, u"3"_s, u""_s, u""_s, u""_s}));
}

TEST_F(MacWindowTest, OpensTheMicrophonesSettingsFromItsStatusLineOnlyWhileItIsOff) {
    open();
    auto *line = all("MacStatusLine").value(0);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->property("words"), u"Microphone on"_s);
    press(line);
    EXPECT_TRUE(m_calls.isEmpty());
    model().setMicAuthorized(false);
    EXPECT_EQ(line->property("words"), u"Microphone off. Allow access"_s);
    EXPECT_EQ(line->property("ink").value<QColor>(), QColor(0xC9, 0x2A, 0x2A));
    press(line);
    EXPECT_EQ(m_calls, QStringList{u"microphone"_s});
}

TEST_F(MacWindowTest, NeverLaysItsActionsOverTheTitle) {
    Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {u"pt-BR"_s});
    open();
    m_window->resize(MacWindow::minimumContentSize);
    for (const auto pane : allPanes) {
        m_navigation.setPane(pane);
        const auto *header = all("MacPageHeader").value(0);
        for (const auto *button : Scene::all(all("MacPageHeader").value(0), "ZenButton")) {
            EXPECT_GE(button->mapToItem(header, QPointF()).x(), header->property("titleWidth").toReal());
            EXPECT_LE(button->mapToScene(QPointF(button->width(), 0)).x(), m_window->width());
        }
    }
    m_window.reset();
    Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {u"en"_s});
}

TEST_F(MacWindowTest, IsUsedByKeyboardAloneInReadingOrder) {
    open();
    QStringList reached;
    for (int press = 0; press < 8; ++press) {
        key(Qt::Key_Tab);
        if (const auto *item = m_window->activeFocusItem())
            reached.append(item->property("title").toString());
    }
    EXPECT_EQ(reached, (QStringList{u"Now"_s, u"History"_s, u"Listening"_s, u"Voice"_s, u"Brain"_s,
                                    u"New conversation"_s, u"Stop"_s, u"Listen"_s}));
    auto *brain = titled("MacSidebarItem", u"Brain"_s);
    brain->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(brain->property("isReached").toBool());
    key(Qt::Key_Space);
    EXPECT_EQ(m_navigation.pane(), Pane::Brain);
}

TEST_F(MacWindowTest, ClosesAnOpenListWithEscapeAndStaysOpenItself) {
    setFull();
    m_navigation.setPane(Pane::Voice);
    open();
    auto *select = all("ZenSelect").value(0);
    ASSERT_TRUE(select);
    select->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_TRUE(select->property("isOpen").toBool());
    key(Qt::Key_Escape);
    EXPECT_FALSE(select->property("isOpen").toBool());
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(MacWindowTest, TellsAScreenReaderWhatEverythingIs) {
    model().setHistory(std::vector<ConversationSummary>(3));
    open();
    const auto interface = [](QQuickItem *item) { return QAccessible::queryAccessibleInterface(item); };
    auto *history = interface(titled("MacSidebarItem", u"History"_s));
    ASSERT_TRUE(history);
    EXPECT_EQ(history->role(), QAccessible::PageTab);
    EXPECT_EQ(history->text(QAccessible::Name), u"History");
    EXPECT_EQ(history->text(QAccessible::Description), u"3");
    EXPECT_FALSE(history->state().selected);
    EXPECT_TRUE(interface(titled("MacSidebarItem", u"Now"_s))->state().selected);
    auto *stop = interface(titled("ZenButton", u"Stop"_s));
    EXPECT_EQ(stop->role(), QAccessible::Button);
    EXPECT_EQ(stop->text(QAccessible::Name), u"Stop");
    auto *status = interface(all("MacStatusLine").value(0));
    EXPECT_EQ(status->role(), QAccessible::StaticText);
    model().setMicAuthorized(false);
    EXPECT_EQ(status->role(), QAccessible::Button);
    EXPECT_EQ(status->text(QAccessible::Name), u"Microphone off. Allow access");
}

TEST_F(MacWindowTest, IsHiddenWhenItIsClosedAndShownAgainAsItWas) {
    open();
    m_navigation.setPane(Pane::Voice);
    const auto *root = m_window->rootObject();
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
    EXPECT_FALSE(m_app.voice()->isActive());
    m_navigation.setPane(Pane::Brain);
    open();
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(m_window->rootObject(), root);
    EXPECT_EQ(activeItems(), QStringList{u"Brain"_s});
    EXPECT_TRUE(m_app.brain()->isActive());
}

TEST_F(MacWindowTest, CanBeClosedWhileAListIsOpen) {
    setFull();
    m_navigation.setPane(Pane::Voice);
    open();
    auto *select = all("ZenSelect").value(0);
    ASSERT_TRUE(select);
    press(select);
    EXPECT_TRUE(select->property("isOpen").toBool());
    m_window->close();
    open();
    EXPECT_TRUE(m_window->isVisible());
}

TEST_F(MacWindowTest, SavesItsFrameWhenItWasMovedOrResized) {
    open();
    m_window->resize(1000, 700);
    EXPECT_FALSE(m_settings.contains(u"PalometWindow"_s));
    scheduler().advance(1s);
    EXPECT_EQ(m_settings.value(u"PalometWindow"_s).toRect().size(), QSize(1000, 700));
}

TEST_F(MacWindowTest, SavesItsFrameAtOnceWhenItIsClosed) {
    open();
    m_window->resize(1000, 700);
    m_window->close();
    EXPECT_EQ(m_settings.value(u"PalometWindow"_s).toRect().size(), QSize(1000, 700));
    EXPECT_EQ(scheduler().pendingCount(), 0U);
}

TEST_F(MacWindowTest, IgnoresASavedFrameThatIsNone) {
    m_settings.setValue(u"PalometWindow"_s, u"rubbish"_s);
    open();
    EXPECT_GE(m_window->width(), MacWindow::minimumContentSize.width());
    EXPECT_GE(m_window->height(), MacWindow::minimumContentSize.height());
}

TEST_F(MacWindowTest, IsMaximizedOnlyIfThatIsWhatWasSaved) {
    for (const auto &[written, isMaximized] : {std::pair(u"banana"_s, false), std::pair(u"1"_s, false),
                                               std::pair(u"false"_s, false), std::pair(u"true"_s, true)}) {
        m_window.reset();
        m_settings.setValue(u"PalometWindowMaximized"_s, written);
        open();
        EXPECT_EQ(m_window->windowStates().testFlag(Qt::WindowMaximized), isMaximized) << written.toStdString();
    }
}

TEST_F(MacWindowTest, ShowsMarkupAsItIsWritten) {
    setFull([](Snapshot &snapshot) {
        snapshot.device = u"<b>Bold</b> <img src='http://127.0.0.1:1/x.png'>"_s;
        snapshot.conversation.rows = {test::row("user", u"<h1>Hello</h1> &amp; <a href='x'>y</a>"_s)};
    });
    open();
    int count = 0;
    std::function<void(QQuickItem *)> look = [&](QQuickItem *item) {
        if (item->inherits("QQuickText")) {
            ++count;
            EXPECT_EQ(item->property("textFormat").toInt(), 0) << item->property("text").toString().toStdString();
        }
        for (auto *child : item->childItems())
            look(child);
    };
    for (const auto pane : allPanes) {
        m_navigation.setPane(pane);
        look(m_window->contentItem());
    }
    EXPECT_GT(count, 50);
}
