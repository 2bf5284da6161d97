#include "ui/shell/AppView.h"

#include "localization/Localization.h"
#include "tests/ui/support/UiTest.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class AppViewTest : public test::UiTest {
protected:
    [[nodiscard]] static Outside noting(QStringList &calls) {
        return {.openLog = [&calls] { calls.append(u"log"_s); },
                .openMicrophoneSettings = [&calls] { calls.append(u"microphone"_s); },
                .pickFolders = [](auto &&) {}};
    }

    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts m_shortcuts{m_settings};
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    QStringList m_calls;
    AppView m_app{model(), m_navigation, m_shortcuts, m_layout, {u"1.2.3"_s, u"/home/user"_s}, noting(m_calls)};
};

} // namespace

TEST_F(AppViewTest, ListsThePanesByGroup) {
    QStringList found;
    for (const auto &group : m_app.groups()) {
        found.append(group.toMap()[u"title"_s].toString());
        for (const auto &pane : group.toMap()[u"panes"_s].toList())
            found.append(u"- "_s + pane.toMap()[u"title"_s].toString());
    }
    EXPECT_EQ(found, (QStringList{u"Conversation"_s, u"- Now"_s, u"- History"_s, u"Settings"_s, u"- Listening"_s,
                                  u"- Voice"_s, u"- Brain"_s}));
}

TEST_F(AppViewTest, FollowsThePaneWithTitleAndSubtitleAtOnce) {
    const QSignalSpy changes(&m_app, &AppView::paneChanged);
    m_navigation.setPane(Pane::Voice);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(m_app.title(), u"Voice");
    EXPECT_EQ(m_app.subtitle(), subtitle(Pane::Voice));
}

TEST_F(AppViewTest, CountsTheHistoryAndShowsNoZero) {
    const QSignalSpy changes(&m_app, &AppView::historyBadgeChanged);
    EXPECT_EQ(m_app.historyBadge(), QString());
    model().setHistory(std::vector<ConversationSummary>(3));
    EXPECT_EQ(m_app.historyBadge(), u"3");
    model().setHistory(std::vector<ConversationSummary>(12'345));
    EXPECT_EQ(m_app.historyBadge(), u"12345");
    model().setHistory({});
    EXPECT_EQ(m_app.historyBadge(), QString());
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(AppViewTest, OpensTheMicrophonesSettingsOnlyWhileItIsOff) {
    m_app.fixMicrophone();
    EXPECT_TRUE(m_calls.isEmpty());
    model().setMicAuthorized(false);
    EXPECT_FALSE(m_app.isMicOn());
    m_app.fixMicrophone();
    EXPECT_EQ(m_calls, QStringList{u"microphone"_s});
    model().setMicAuthorized(true);
    setState("waiting", [](Snapshot &snapshot) { snapshot.isMicDead = true; });
    EXPECT_FALSE(m_app.isMicOn());
    m_app.fixMicrophone();
    EXPECT_EQ(m_calls.size(), 2);
}

TEST_F(AppViewTest, OpensTheLog) {
    m_app.openLog();
    EXPECT_EQ(m_calls, QStringList{u"log"_s});
}

TEST_F(AppViewTest, SendsWhatTheHeadersButtonsSay) {
    m_app.newConversation();
    m_app.stop();
    m_app.listen();
    m_app.sample();
    for (const auto *target : {"/new", "/stop", "/listen", "/sample"})
        EXPECT_EQ(told(target), "") << target;
}

TEST_F(AppViewTest, HasTheVersionOfItsBuild) {
    EXPECT_EQ(m_app.version(), u"1.2.3");
    const AppView nameless(model(), m_navigation, m_shortcuts, m_layout, {}, {});
    EXPECT_EQ(nameless.version(), u"dev");
}

TEST_F(AppViewTest, SaysTheVersionInTheWordsOfTheTable) {
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"en.lproj"_s));
    QFile table(m_folder.filePath(u"en.lproj/strings.json"_s));
    ASSERT_TRUE(table.open(QFile::WriteOnly));
    table.write(R"({"sidebar.version": "version %@"})");
    table.close();
    Localization::load(m_folder.path(), {u"en"_s});
    EXPECT_EQ(m_app.version(), u"version 1.2.3");
    Localization::load(QStringLiteral(PALOMET_SOURCE_DIR "/resources"), {u"en"_s});
}

TEST_F(AppViewTest, KeepsOnlyTheScreenThatCanBeSeenUpToDate) {
    const auto active = [this] {
        return QList<bool>{m_app.now()->isActive(), m_app.history()->isActive(), m_app.listening()->isActive(),
                           m_app.voice()->isActive(), m_app.brain()->isActive()};
    };
    EXPECT_EQ(active(), QList<bool>(5, false));
    m_app.setShown(true);
    EXPECT_EQ(active(), (QList<bool>{true, false, false, false, false}));
    m_navigation.setPane(Pane::Listening);
    EXPECT_EQ(active(), (QList<bool>{false, false, true, false, false}));
    m_app.setShown(false);
    EXPECT_EQ(active(), QList<bool>(5, false));
}
