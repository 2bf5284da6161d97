#include "ui/screens/BrainScreen.h"

#include "tests/ui/screens/Choices.h"
#include "tests/ui/support/UiTest.h"

using namespace palomet;
using namespace palomet::test;

namespace {

class BrainScreenTest : public UiTest {
protected:
    BrainScreenTest() { screen->setActive(true); }

    void offer() {
        Options options;
        options.models = {QStringLiteral("claude-haiku-5-5"), QStringLiteral("claude-sonnet-5-5")};
        options.claudePaths = {
            {.path = QStringLiteral("/home/ana/.local/bin/claude"), .version = QStringLiteral("2.1.0")}};
        options.confirmActions = {{.id = QStringLiteral("message"), .label = QStringLiteral("Send a message")},
                                  {.id = QStringLiteral("delete"), .label = QStringLiteral("Delete files")}};
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
        model(), QStringLiteral("/home/ana"),
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
    EXPECT_EQ(brainModel->value(), QStringLiteral("Haiku 5.5"));
    EXPECT_EQ(brainModel->selected(), QStringLiteral("claude-haiku-5-5"));
    EXPECT_EQ(ids(*brainModel), words("claude-haiku-5-5 claude-sonnet-5-5"));
    EXPECT_EQ(titles(*brainModel), (QStringList{QStringLiteral("Haiku 5.5"), QStringLiteral("Sonnet 5.5")}));
    EXPECT_EQ(claude->title(), QStringLiteral("Claude Code"));
    EXPECT_EQ(claude->value(), QStringLiteral("2.1.0 · /home/ana/.local/bin/claude"));
    EXPECT_EQ(claude->selected(), QStringLiteral("/home/ana/.local/bin/claude"));
    EXPECT_EQ(titles(*claude), QStringList{QStringLiteral("2.1.0 · /home/ana/.local/bin/claude")});
    EXPECT_EQ(screen->workingFolder(), QStringLiteral("/code"));
    EXPECT_EQ(titlesOf(screen->folders(), FolderRows::Title), words("/code /code/website"));
    EXPECT_EQ(titlesOf(screen->confirmActions(), ConfirmActions::Label),
              (QStringList{QStringLiteral("Send a message"), QStringLiteral("Delete files")}));
    EXPECT_TRUE(isConfirmed(0));
    EXPECT_FALSE(isConfirmed(1));
}

TEST_F(BrainScreenTest, HasNoExecutablesToChooseFromWithoutAny) {
    setFull();
    EXPECT_TRUE(claude->choices().isEmpty());
    EXPECT_EQ(claude->value(), QStringLiteral("/home/ana/.local/bin/claude"));
    model().setOptions(Options());
    EXPECT_TRUE(claude->choices().isEmpty());
    EXPECT_TRUE(brainModel->choices().isEmpty());
    EXPECT_EQ(screen->confirmActions()->rowCount(), 0);
}

TEST_F(BrainScreenTest, ShowsTheExecutableInUseWhileTheBackendChooses) {
    setFull([](Snapshot &snapshot) { snapshot.settings.claudePath.reset(); });
    EXPECT_EQ(claude->value(), QStringLiteral("2.1.0 · /home/ana/.local/bin/claude"));
    EXPECT_EQ(claude->selected(), QString());
}

TEST_F(BrainScreenTest, ShowsADashWhileTheBackendUsesNoExecutable) {
    setFull([](Snapshot &snapshot) {
        snapshot.settings.claudePath.reset();
        snapshot.session.claudePath.clear();
        snapshot.session.claudeVersion.clear();
    });
    EXPECT_EQ(claude->value(), QStringLiteral("—"));
}

TEST_F(BrainScreenTest, ShowsDashesWithoutASnapshot) {
    offer();
    EXPECT_EQ(brainModel->value(), QStringLiteral("—"));
    EXPECT_EQ(claude->value(), QStringLiteral("—"));
    EXPECT_EQ(screen->workingFolder(), QStringLiteral("—"));
    EXPECT_EQ(screen->folders()->rowCount(), 0);
    EXPECT_FALSE(isConfirmed(0));
}

TEST_F(BrainScreenTest, SendsWhatIsPicked) {
    brainModel->pick(QStringLiteral("claude-sonnet-5-5"));
    EXPECT_EQ(toldSetting(), R"({"brainModel":"claude-sonnet-5-5"})");
    claude->pick(QStringLiteral("/usr/bin/claude"));
    EXPECT_EQ(toldSetting(), R"({"claudePath":"/usr/bin/claude"})");
}

TEST_F(BrainScreenTest, IsBusyWhileTheModelIsBeingApplied) {
    backend().hang("/settings");
    setFull();
    brainModel->pick(QStringLiteral("claude-sonnet-5-5"));
    EXPECT_TRUE(brainModel->isBusy());
    EXPECT_FALSE(claude->isBusy());
    EXPECT_EQ(brainModel->value(), QStringLiteral("Haiku 5.5"));
}

TEST_F(BrainScreenTest, AppendsAConfirmationThatIsSwitchedOn) {
    setFull();
    screen->setConfirmed(QStringLiteral("delete"), true);
    EXPECT_EQ(toldSetting(), R"({"confirmActions":["message","purchase","delete"]})");
}

TEST_F(BrainScreenTest, RemovesAConfirmationThatIsSwitchedOffWhereverItStands) {
    setFull([](Snapshot &snapshot) {
        snapshot.settings.confirmActions = {QStringLiteral("message"), QStringLiteral("purchase"),
                                            QStringLiteral("message")};
    });
    screen->setConfirmed(QStringLiteral("message"), false);
    EXPECT_EQ(toldSetting(), R"({"confirmActions":["purchase"]})");
}

TEST_F(BrainScreenTest, RemovesAFolder) {
    setFull();
    screen->removeFolder(QStringLiteral("/code/website"));
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
    screen->removeFolder(QStringLiteral("/code"));
    screen->setConfirmed(QStringLiteral("message"), true);
    EXPECT_EQ(model().applying(), std::nullopt);
    EXPECT_EQ(backend().count("/settings"), 0);
}

TEST_F(BrainScreenTest, AddsToTheFoldersThatThereAreWhenThePickerIsAnswered) {
    setFull();
    isLater = true;
    screen->addFolder();
    setFull([](Snapshot &snapshot) { snapshot.settings.folders = {QStringLiteral("/new")}; });
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
    const auto home = QStringLiteral("/home/ana");
    const auto abbreviated = [&](const char *path) { return BrainScreen::abbreviated(QString::fromUtf8(path), home); };
    EXPECT_EQ(abbreviated("/home/ana/code"), QStringLiteral("~/code"));
    EXPECT_EQ(abbreviated("/home/ana"), QStringLiteral("~"));
    EXPECT_EQ(abbreviated("/code"), QStringLiteral("/code"));
    EXPECT_EQ(abbreviated("/home/anabela/code"), QStringLiteral("/home/anabela/code"));
    EXPECT_EQ(BrainScreen::abbreviated(QStringLiteral("/code"), QString()), QStringLiteral("/code"));
    setFull([](Snapshot &snapshot) {
        snapshot.settings.workingFolder = QStringLiteral("/home/ana/code");
        snapshot.settings.folders = {QStringLiteral("/home/ana/site"), QStringLiteral("/srv")};
    });
    EXPECT_EQ(screen->workingFolder(), QStringLiteral("~/code"));
    EXPECT_EQ(titlesOf(screen->folders(), FolderRows::Title), words("~/site /srv"));
    EXPECT_EQ(titlesOf(screen->folders(), FolderRows::Folder), words("/home/ana/site /srv"));
}

TEST_F(BrainScreenTest, NamesWhatItKnowsOfAnExecutableWithoutAVersionOrAPath) {
    Options options;
    options.claudePaths = {{.path = QStringLiteral("/usr/bin/claude"), .version = {}},
                           {.path = {}, .version = QStringLiteral("2.1.0")}};
    model().setOptions(options);
    setFull([](Snapshot &snapshot) { snapshot.settings.claudePath = QStringLiteral("/usr/bin/claude"); });
    EXPECT_EQ(titles(*claude), (QStringList{QStringLiteral("/usr/bin/claude"), QStringLiteral("2.1.0")}));
    EXPECT_EQ(claude->value(), QStringLiteral("/usr/bin/claude"));
}
