#include "tests/palomet/AccessibleTree.h"
#include "tests/palomet/Desktop.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

/// The program with its own engine on a desktop with a window manager, used through what a screen reader sees and by
/// the keyboard.
class WindowInUseTest : public ::testing::Test {
protected:
    WindowInUseTest() {
        environment.insert(u"PALOMET_RESOURCES"_s, QStringLiteral(PALOMET_BINARY_DIR "/resources"));
        environment.insert(u"XDG_STATE_HOME"_s, desktop.home.filePath(u"state"_s));
        environment.insert(u"QT_LINUX_ACCESSIBILITY_ALWAYS_ON"_s, u"1"_s);
        windowManager.setProcessEnvironment(environment);
        windowManager.start(u"openbox"_s, {u"--config-file"_s, u"/dev/null"_s});
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(PALOMET_EXECUTABLE));
        EXPECT_TRUE(eventually([this] { return !state().isEmpty(); })) << "no engine";
    }
    ~WindowInUseTest() override {
        program.terminate();
        eventually([this] { return program.state() == QProcess::NotRunning; });
        windowManager.terminate();
        windowManager.waitForFinished();
    }

    /// The engine's document.
    [[nodiscard]] QJsonObject state() const {
        const auto bytes = desktop.display.run(u"curl"_s, {u"-s"_s, u"http://127.0.0.1:4780/state"_s});
        return QJsonDocument::fromJson(bytes).object();
    }
    [[nodiscard]] QJsonValue setting(const char *key) const {
        return state()[u"settings"_s].toObject()[QString::fromLatin1(key)];
    }

    void open(const char *pane) {
        QProcess command;
        command.setProcessEnvironment(environment);
        command.start(QStringLiteral(PALOMET_EXECUTABLE), {u"--open"_s, QString::fromLatin1(pane)});
        EXPECT_TRUE(eventually([&] { return command.state() == QProcess::NotRunning; }));
        EXPECT_EQ(command.exitCode(), 0);
    }
    [[nodiscard]] test::AccessibleTree::Node node(const char *role, const char *name) {
        const auto found = tree.find(QString::fromLatin1(role), QString::fromUtf8(name));
        QStringList others;
        if (!found) {
            for (const auto &other : tree.all(QString::fromLatin1(role)))
                others.append(tree.name(other));
        }
        EXPECT_TRUE(found) << "no " << role << ' ' << name << " among " << others.join(u", "_s).toStdString();
        return found.value_or(test::AccessibleTree::Node());
    }
    void press(const char *role, const char *name) { EXPECT_TRUE(tree.press(node(role, name))) << name; }
    void type(const QString &text) const { desktop.display.run(u"xdotool"_s, {u"type"_s, text}); }
    void key(const QString &keys) const { desktop.display.key(keys); }
    /// What the settings file holds of a shortcut.
    [[nodiscard]] QByteArray saved() const {
        QFile file(desktop.home.filePath(u".config/palomet/palomet.conf"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    test::Desktop desktop;
    QProcessEnvironment environment = desktop.environment();
    QProcess windowManager;
    QProcess program;
    test::AccessibleTree tree{desktop.bus, environment};
};

} // namespace

TEST_F(WindowInUseTest, ChangesEverySwitchAtTheEngine) {
    open("listening");
    for (const auto &[name, key] :
         {std::pair{"Echo cancellation", "isEchoCancelOn"}, std::pair{"Only when spoken to", "isDirectedOn"},
          std::pair{"Dictate before acting", "isDraftOn"}}) {
        const auto before = setting(key);
        const auto button = node("check box", name);
        EXPECT_EQ(tree.isChecked(button), before.toBool()) << name;
        EXPECT_TRUE(tree.press(button));
        EXPECT_TRUE(eventually([&] { return setting(key) == !before.toBool(); })) << name;
        EXPECT_TRUE(eventually([&] { return tree.isChecked(button) != before.toBool(); })) << name;
    }
}

TEST_F(WindowInUseTest, ChoosesAnotherValueInASelectOfEachPane) {
    const std::array selects{
        std::tuple{"listening", "A draft lasts", "draftMaxAgeMs"},
        std::tuple{"voice", "Speed", "voiceSpeed"},
        std::tuple{"brain", "Model", "brainModel"},
    };
    for (const auto &[pane, name, key] : selects) {
        open(pane);
        const auto before = setting(key);
        press("combo box", name);
        std::optional<test::AccessibleTree::Node> other;
        eventually([&] {
            for (const auto &choice : tree.all(u"list item"_s)) {
                if (!tree.isSelected(choice))
                    other = choice;
            }
            return other.has_value();
        });
        ASSERT_TRUE(other) << name;
        EXPECT_TRUE(tree.press(*other));
        EXPECT_TRUE(eventually([&] { return setting(key) != before; })) << name;
    }
}

TEST_F(WindowInUseTest, CommitsATextWithReturnAndDropsItWithEscape) {
    open("voice");
    EXPECT_TRUE(tree.focus(node("text", "Name")));
    key(u"ctrl+a"_s);
    type(u"Alma"_s);
    key(u"Return"_s);
    EXPECT_TRUE(eventually([this] { return setting("voiceName") == u"Alma"_s; }));
    EXPECT_TRUE(tree.focus(node("text", "Name")));
    type(u" Nova"_s);
    key(u"Escape"_s);
    EXPECT_EQ(setting("voiceName"), u"Alma"_s);
}

TEST_F(WindowInUseTest, SendsATypedRequest) {
    open("now");
    const auto fields = tree.all(u"text"_s);
    ASSERT_FALSE(fields.empty());
    EXPECT_TRUE(tree.focus(fields.front()));
    type(u"What time is it?"_s);
    key(u"Return"_s);
    EXPECT_TRUE(eventually([this] {
        const auto rows = state()[u"conversation"_s].toObject()[u"rows"_s].toArray();
        return !rows.isEmpty() && rows.at(0).toObject()[u"text"_s] == u"What time is it?"_s;
    }));
}

TEST_F(WindowInUseTest, RecordsAShortcutAndRefusesAKeyAlone) {
    open("listening");
    // What is scrolled away is not in the tree; the keyboard brings it into view.
    EXPECT_TRUE(tree.focus(node("combo box", "A draft lasts")));
    key(u"Tab"_s);
    key(u"Tab"_s);
    press("push button", "Listen");
    key(u"j"_s);
    EXPECT_TRUE(eventually(
        [this] { return tree.description(node("push button", "Listen")).contains(u"Add Ctrl, Alt or Super."_s); }));
    key(u"ctrl+alt+j"_s);
    EXPECT_TRUE(eventually([this] { return saved().contains("\\\"keyCode\\\":38"); })) << saved().toStdString();
    // What it records, it then hears.
    key(u"ctrl+alt+j"_s);
    EXPECT_TRUE(eventually([this] { return state()[u"state"_s] == u"listening"_s; }));
}

TEST_F(WindowInUseTest, ChangesThePaneByKeyboard) {
    open("now");
    EXPECT_TRUE(tree.focus(node("page tab", "Now")));
    key(u"Tab"_s);
    key(u"space"_s);
    EXPECT_TRUE(eventually([this] { return tree.isSelected(node("page tab", "History")); }));
}
