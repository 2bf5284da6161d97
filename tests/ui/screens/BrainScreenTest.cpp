#include "ui/screens/BrainScreen.h"

#include "tests/ui/screens/Choices.h"
#include "tests/ui/support/UiTest.h"

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

class BrainScreenTest : public UiTest {
protected:
    BrainScreenTest() { screen->setActive(true); }

    void offer() {
        Options options;
        options.models = {u"claude-haiku-5-5"_s, u"claude-sonnet-5-5"_s};
        options.claudePaths = {{.path = u"/home/ana/.local/bin/claude"_s, .version = u"2.1.0"_s}};
        options.confirmActions = {{.id = u"message"_s, .label = u"Send a message"_s},
                                  {.id = u"delete"_s, .label = u"Delete files"_s}};
        model().setOptions(options);
    }
    [[nodiscard]] QStringList titlesOf(QAbstractItemModel *rows, int role) {
        QStringList titles;
        for (int row = 0; row < rows->rowCount(); ++row)
            titles.append(rows->index(row, 0).data(role).toString());
        return titles;
    }
    [[nodiscard]] bool isConfirmed(int row) {
        return screen->confirmActions()->index(row, 0).data(ConfirmActions::IsOn).toBool();
    }

    QStringList picked;
    std::function<void(const QStringList &)> later;
    bool isLater = false;
    std::unique_ptr<BrainScreen> screen = std::make_unique<BrainScreen>(
        model(), u"/home/ana"_s,
        [this](std::function<void(const QStringList &)> answer) {
            if (isLater)
                later = std::move(answer);
            else if (!picked.isEmpty())
                answer(picked);
        },
        [] {});
    ChoiceSetting *brainModel = setting<ChoiceSetting>(*screen, "brain.model");
    ChoiceSetting *claude = setting<ChoiceSetting>(*screen, "Claude Code");
};

} // namespace

TEST_F(BrainScreenTest, ShowsTheSettings) {
    setFull();
    offer();
    EXPECT_EQ(brainModel->value(), u"Haiku 5.5"_s);
    EXPECT_EQ(brainModel->selected(), u"claude-haiku-5-5"_s);
    EXPECT_EQ(ids(*brainModel), words("claude-haiku-5-5 claude-sonnet-5-5"));
    EXPECT_EQ(titles(*brainModel), (QStringList{u"Haiku 5.5"_s, u"Sonnet 5.5"_s}));
    EXPECT_EQ(claude->title(), u"Claude Code"_s);
    EXPECT_EQ(claude->value(), u"2.1.0 · /home/ana/.local/bin/claude"_s);
    EXPECT_EQ(claude->selected(), u"/home/ana/.local/bin/claude"_s);
    EXPECT_EQ(titles(*claude), QStringList{u"2.1.0 · /home/ana/.local/bin/claude"_s});
    EXPECT_EQ(screen->workingFolder(), u"/code"_s);
    EXPECT_EQ(titlesOf(screen->folders(), FolderRows::Title), words("/code /code/website"));
    EXPECT_EQ(titlesOf(screen->confirmActions(), ConfirmActions::Label),
              (QStringList{u"Send a message"_s, u"Delete files"_s}));
    EXPECT_TRUE(isConfirmed(0));
    EXPECT_FALSE(isConfirmed(1));
}

TEST_F(BrainScreenTest, HasNoExecutablesToChooseFromWithoutAny) {
    setFull();
    EXPECT_TRUE(claude->choices().isEmpty());
    EXPECT_EQ(claude->value(), u"/home/ana/.local/bin/claude"_s);
    model().setOptions(Options());
    EXPECT_TRUE(claude->choices().isEmpty());
    EXPECT_TRUE(brainModel->choices().isEmpty());
    EXPECT_EQ(screen->confirmActions()->rowCount(), 0);
}

TEST_F(BrainScreenTest, ShowsTheExecutableInUseWhileTheBackendChooses) {
    setFull([](Snapshot &snapshot) { snapshot.settings.claudePath.reset(); });
    EXPECT_EQ(claude->value(), u"2.1.0 · /home/ana/.local/bin/claude"_s);
    EXPECT_EQ(claude->selected(), QString());
}

TEST_F(BrainScreenTest, ShowsADashWhileTheBackendUsesNoExecutable) {
    setFull([](Snapshot &snapshot) {
        snapshot.settings.claudePath.reset();
        snapshot.session.claudePath.clear();
        snapshot.session.claudeVersion.clear();
    });
    EXPECT_EQ(claude->value(), u"—"_s);
}

TEST_F(BrainScreenTest, ShowsDashesWithoutASnapshot) {
    offer();
    EXPECT_EQ(brainModel->value(), u"—"_s);
    EXPECT_EQ(claude->value(), u"—"_s);
    EXPECT_EQ(screen->workingFolder(), u"—"_s);
    EXPECT_EQ(screen->folders()->rowCount(), 0);
    EXPECT_FALSE(isConfirmed(0));
}

TEST_F(BrainScreenTest, SendsWhatIsPicked) {
    brainModel->pick(u"claude-sonnet-5-5"_s);
    EXPECT_EQ(toldSetting(), R"({"brainModel":"claude-sonnet-5-5"})");
    claude->pick(u"/usr/bin/claude"_s);
    EXPECT_EQ(toldSetting(), R"({"claudePath":"/usr/bin/claude"})");
}

TEST_F(BrainScreenTest, IsBusyWhileTheModelIsBeingApplied) {
    backend().hang("/settings");
    setFull();
    brainModel->pick(u"claude-sonnet-5-5"_s);
    EXPECT_TRUE(brainModel->isBusy());
    EXPECT_FALSE(claude->isBusy());
    EXPECT_EQ(brainModel->value(), u"Haiku 5.5"_s);
}

TEST_F(BrainScreenTest, AppendsAConfirmationThatIsSwitchedOn) {
    setFull();
    screen->setConfirmed(u"delete"_s, true);
    EXPECT_EQ(toldSetting(), R"({"confirmActions":["message","purchase","delete"]})");
}

TEST_F(BrainScreenTest, RemovesAConfirmationThatIsSwitchedOffWhereverItStands) {
    setFull([](Snapshot &snapshot) { snapshot.settings.confirmActions = {u"message"_s, u"purchase"_s, u"message"_s}; });
    screen->setConfirmed(u"message"_s, false);
    EXPECT_EQ(toldSetting(), R"({"confirmActions":["purchase"]})");
}

TEST_F(BrainScreenTest, RemovesAFolder) {
    setFull();
    screen->removeFolder(u"/code/website"_s);
    EXPECT_EQ(toldSetting(), R"({"folders":["/code"]})");
}

TEST_F(BrainScreenTest, AddsThePickedFoldersInTheirOrder) {
    setFull();
    picked = words("/b /a /code /b");
    screen->addFolder();
    EXPECT_EQ(toldSetting(), R"({"folders":["/code","/code/website","/b","/a"]})");
}

TEST_F(BrainScreenTest, SendsTheListAlsoWhenTheFolderIsInItAlready) {
    setFull();
    picked = words("/code/website");
    screen->addFolder();
    EXPECT_EQ(toldSetting(), R"({"folders":["/code","/code/website"]})");
}

TEST_F(BrainScreenTest, SendsNothingWhenNothingIsPickedOrNothingIsKnown) {
    setFull();
    screen->addFolder();
    model().setSnapshot(nullptr);
    picked = words("/a");
    screen->addFolder();
    screen->removeFolder(u"/code"_s);
    screen->setConfirmed(u"message"_s, true);
    EXPECT_EQ(model().applying(), std::nullopt);
    EXPECT_EQ(backend().count("/settings"), 0);
}

TEST_F(BrainScreenTest, AddsToTheFoldersThatThereAreWhenThePickerIsAnswered) {
    setFull();
    isLater = true;
    screen->addFolder();
    setFull([](Snapshot &snapshot) { snapshot.settings.folders = {u"/new"_s}; });
    later(words("/a"));
    EXPECT_EQ(toldSetting(), R"({"folders":["/new","/a"]})");
}

TEST_F(BrainScreenTest, IgnoresAPickerThatIsAnsweredAfterItsEnd) {
    setFull();
    isLater = true;
    screen->addFolder();
    screen.reset();
    later(words("/a"));
    EXPECT_EQ(model().applying(), std::nullopt);
}

TEST_F(BrainScreenTest, AbbreviatesTheHomeFolderAndNothingElse) {
    const auto home = u"/home/ana"_s;
    const auto abbreviated = [&](const char *path) { return BrainScreen::abbreviated(QString::fromUtf8(path), home); };
    EXPECT_EQ(abbreviated("/home/ana/code"), u"~/code"_s);
    EXPECT_EQ(abbreviated("/home/ana"), u"~"_s);
    EXPECT_EQ(abbreviated("/code"), u"/code"_s);
    EXPECT_EQ(abbreviated("/home/anabela/code"), u"/home/anabela/code"_s);
    EXPECT_EQ(BrainScreen::abbreviated(u"/code"_s, QString()), u"/code"_s);
    setFull([](Snapshot &snapshot) {
        snapshot.settings.workingFolder = u"/home/ana/code"_s;
        snapshot.settings.folders = {u"/home/ana/site"_s, u"/srv"_s};
    });
    EXPECT_EQ(screen->workingFolder(), u"~/code"_s);
    EXPECT_EQ(titlesOf(screen->folders(), FolderRows::Title), words("~/site /srv"));
    EXPECT_EQ(titlesOf(screen->folders(), FolderRows::Folder), words("/home/ana/site /srv"));
}

TEST_F(BrainScreenTest, NamesWhatItKnowsOfAnExecutableWithoutAVersionOrAPath) {
    Options options;
    options.claudePaths = {{.path = u"/usr/bin/claude"_s, .version = {}}, {.path = {}, .version = u"2.1.0"_s}};
    model().setOptions(options);
    setFull([](Snapshot &snapshot) { snapshot.settings.claudePath = u"/usr/bin/claude"_s; });
    EXPECT_EQ(titles(*claude), (QStringList{u"/usr/bin/claude"_s, u"2.1.0"_s}));
    EXPECT_EQ(claude->value(), u"/usr/bin/claude"_s);
}
