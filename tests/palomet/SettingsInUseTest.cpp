#include "tests/palomet/WindowInUse.h"

#include <QStandardPaths>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class SettingsInUse : public test::WindowInUse {
protected:
    /// The list that a press opens. Until the engine has said what there is to choose, a press opens none.
    [[nodiscard]] std::vector<Node> choices(const QString &name) {
        std::vector<Node> found;
        const auto isListed = [&] {
            found = tree.all(u"list item"_s);
            return !found.empty();
        };
        EXPECT_TRUE(eventually([&] {
            press("combo box", name);
            return eventually(isListed, 2s);
        })) << qPrintable(name);
        return found;
    }

    /// Chooses something else; the engine has another value and the box says what was chosen.
    void choose(const QString &name, const char *key) {
        const auto before = setting(key);
        QString chosen;
        for (const auto &choice : choices(name)) {
            if (tree.isSelected(choice))
                continue;
            chosen = tree.name(choice);
            EXPECT_TRUE(tree.press(choice));
            break;
        }
        ASSERT_FALSE(chosen.isEmpty()) << qPrintable(name) << " has one choice only";
        EXPECT_TRUE(eventually([&] { return setting(key) != before; })) << key;
        const auto box = node("combo box", name);
        EXPECT_TRUE(eventually([&] { return tree.description(box).startsWith(chosen); }))
            << qPrintable(name) << " says " << qPrintable(tree.description(box)) << ", not " << qPrintable(chosen);
    }

    /// Writes a text; the engine has the value.
    void write(const QString &name, const QString &text, const char *key, const QJsonValue &value) {
        focus(node("text", name));
        this->key("ctrl+a");
        type(text);
        this->key("Return");
        EXPECT_TRUE(becomes(key, value)) << key << " is " << qPrintable(setting(key).toString());
    }

    [[nodiscard]] QJsonArray folders() const { return setting("folders").toArray(); }
};

} // namespace

TEST_F(SettingsInUse, ChangeEverythingOfTheListeningPane) {
    open("listening");
    turn(u"Echo cancellation"_s, "isEchoCancelOn");
    choose(u"Microphone"_s, "inputDevice");
    choose(u"Transcription model"_s, "whisperModel");
    turn(u"Only when spoken to"_s, "isDirectedOn");
    turn(u"Dictate before acting"_s, "isDraftOn");
    write(u"Action phrase"_s, u"make it so,, off you go "_s, "actionPhrases",
          QJsonArray{u"make it so"_s, u"off you go"_s});
    choose(u"A draft lasts"_s, "draftMaxAgeMs");
    write(u"Names"_s, u"alma, hey alma"_s, "wakeWords", QJsonArray{u"alma"_s, u"hey alma"_s});
    choose(u"End of speech"_s, "endSilenceMs");
    choose(u"Follow-up"_s, "followUpMs");
    choose(u"After the name"_s, "summonMs");
    choose(u"Echo guard"_s, "echoGuardMs");
}

TEST_F(SettingsInUse, ChangeEverythingOfTheVoicePane) {
    open("voice");
    write(u"Voice"_s, u"f00d-cafe"_s, "voiceId", u"f00d-cafe"_s);
    write(u"Name"_s, u"Alma"_s, "voiceName", u"Alma"_s);
    choose(u"Speed"_s, "voiceSpeed");
    choose(u"System voice"_s, "fallbackVoice");
    choose(u"Speech model"_s, "fishModel");
}

TEST_F(SettingsInUse, ChangeEverythingOfTheSessionOnTheBrainPane) {
    open("brain");
    choose(u"Model"_s, "brainModel");
    choose(u"Claude Code"_s, "claudePath");
}

TEST_F(SettingsInUse, ToggleEveryConfirmation) {
    open("brain");
    const auto actions = setting("confirmActions").toArray();
    const auto names = {u"Run commands"_s,
                        u"Change files"_s,
                        u"Look things up on the web"_s,
                        u"Write notes and lists"_s,
                        u"Open applications, folders and pages"_s,
                        u"Lock the screen"_s,
                        u"Take screenshots"_s,
                        u"Forget conversations"_s};
    ASSERT_EQ(actions.size(), qsizetype(names.size()));
    for (const auto &name : names) {
        const auto button = node("check box", name);
        EXPECT_TRUE(eventually([&] { return tree.isChecked(button); })) << qPrintable(name);
        const auto before = setting("confirmActions").toArray().size();
        EXPECT_TRUE(tree.press(button));
        EXPECT_TRUE(eventually([&] { return setting("confirmActions").toArray().size() == before - 1; }));
        EXPECT_TRUE(eventually([&] { return !tree.isChecked(button); }));
    }
    press("check box", u"Change files"_s);
    EXPECT_TRUE(becomes("confirmActions", QJsonArray{u"files"_s}));
}

TEST_F(SettingsInUse, AddFoldersByThePickerAndRemoveThem) {
    const auto folder = desktop.home.filePath(u"projects"_s);
    QDir().mkpath(folder);
    open("brain");
    press("push button", u"Add folder"_s);
    focus(node("text", u"Directory:"_s));
    key("ctrl+a");
    type(folder);
    key("Return");
    EXPECT_TRUE(becomes("folders", QJsonArray{folder})) << QJsonDocument(folders()).toJson().toStdString();
    press("push button", u"Remove ~/projects"_s);
    EXPECT_TRUE(becomes("folders", QJsonArray()));
    EXPECT_TRUE(eventually([this] {
        const auto buttons = tree.all(u"push button"_s);
        return std::none_of(buttons.begin(), buttons.end(),
                            [this](const auto &button) { return tree.name(button) == u"Remove ~/projects"_s; });
    }));
}

TEST_F(SettingsInUse, CommitATextWithReturnAndDropItWithEscape) {
    open("voice");
    write(u"Name"_s, u"Alma"_s, "voiceName", u"Alma"_s);
    focus(node("text", u"Name"_s));
    type(u" Nova"_s);
    key("Escape");
    write(u"Voice"_s, u"f00d"_s, "voiceId", u"f00d"_s);
    EXPECT_EQ(setting("voiceName"), u"Alma"_s);
}

TEST_F(SettingsInUse, AreScrolledIntoViewByTheFocus) {
    open("listening");
    const auto last = node("combo box", u"Echo guard"_s);
    EXPECT_FALSE(tree.isShowing(last));
    focus(last);
    const auto first = node("check box", u"Echo cancellation"_s);
    EXPECT_FALSE(tree.isShowing(first));
    focus(first);
}
