#include "tests/palomet/WindowInUse.h"

namespace palomet::test {

using namespace Qt::StringLiterals;

WindowInUse::WindowInUse() {
    sound.start();
    sound.addSpeakers(u"speakers"_s);
    sound.addMicrophone(u"desk"_s, u"Desk microphone"_s);
    sound.addMicrophone(u"headset"_s, u"Headset microphone"_s);
    sound.control({u"set-default-sink"_s, u"speakers"_s});
    sound.setDefaultInput(u"desk"_s);
    installTools();
    const auto set = [this](const char *name, const QString &value) {
        environment.insert(QString::fromLatin1(name), value);
    };
    set("PULSE_SERVER", QString::fromStdString(sound.address()));
    set("PULSE_COOKIE", sound.environment().value(u"PULSE_COOKIE"_s));
    set("PALOMET_RESOURCES", u"" PALOMET_BINARY_DIR "/resources"_s);
    set("XDG_STATE_HOME", desktop.home.filePath(u"state"_s));
    set("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", u"1"_s);
    desktop.tray.appear();
    windowManager.start(desktop);
    program.setProcessEnvironment(environment);
    program.start(u"" PALOMET_EXECUTABLE ""_s);
    EXPECT_TRUE(eventually([this] { return !state().isEmpty(); })) << "no engine";
    EXPECT_TRUE(eventually([this] { return !command({u"--status"_s}).startsWith("offline"); }));
}

WindowInUse::~WindowInUse() {
    program.terminate();
    eventually([this] { return program.state() == QProcess::NotRunning; });
}

void WindowInUse::installScript(const QString &name, const QByteArray &commands) const {
    const auto path = desktop.home.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("#!/bin/sh\n" + commands + '\n');
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void WindowInUse::installTools() {
    installScript(u".local/bin/claude"_s, "echo 2.1.0");
    installScript(u".npm-global/bin/claude"_s, "echo 2.0.5");
}

QJsonObject WindowInUse::state() const {
    const auto bytes = desktop.display.run(u"curl"_s, {u"-s"_s, u"http://127.0.0.1:4780/state"_s});
    return QJsonDocument::fromJson(bytes).object();
}

QJsonValue WindowInUse::setting(const char *key) const {
    return state()[u"settings"_s].toObject()[QString::fromLatin1(key)];
}

bool WindowInUse::becomes(const char *key, const QJsonValue &value) const {
    return eventually([&] { return setting(key) == value; });
}

QByteArray WindowInUse::command(const QStringList &arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(u"" PALOMET_EXECUTABLE ""_s, arguments);
    EXPECT_TRUE(eventually([&] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitCode(), 0) << qPrintable(arguments.join(u' '));
    return process.readAllStandardOutput();
}

WindowInUse::Node WindowInUse::node(const char *role, const QString &name) {
    const auto found = tree.find(QString::fromLatin1(role), name);
    QStringList others;
    if (!found) {
        for (const auto &other : tree.all(QString::fromLatin1(role)))
            others.append(tree.name(other));
    }
    EXPECT_TRUE(found) << "no " << role << ' ' << qPrintable(name) << " among " << qPrintable(others.join(u", "_s));
    return found.value_or(Node());
}

void WindowInUse::press(const char *role, const QString &name) {
    EXPECT_TRUE(tree.press(node(role, name))) << qPrintable(name);
}

void WindowInUse::turn(const QString &name, const char *key) {
    const auto before = setting(key).toBool();
    const auto button = node("check box", name);
    EXPECT_TRUE(eventually([&] { return tree.isChecked(button) == before; })) << qPrintable(name);
    EXPECT_TRUE(tree.press(button));
    EXPECT_TRUE(becomes(key, !before)) << key;
    EXPECT_TRUE(eventually([&] { return tree.isChecked(button) != before; })) << qPrintable(name);
}

void WindowInUse::focus(const Node &node) {
    EXPECT_TRUE(tree.focus(node));
    const auto name = tree.name(node).toStdString();
    EXPECT_TRUE(eventually([&] { return tree.isFocused(node); })) << name << " has no focus";
    EXPECT_TRUE(eventually([&] { return tree.isShowing(node); })) << name << " is not in view";
    EXPECT_TRUE(eventually([&] { return hasKeyboard(); })) << name << " is in a window without the keyboard";
}

bool WindowInUse::hasKeyboard() const {
    const auto owner = desktop.display.run(u"xdotool"_s, {u"getwindowfocus"_s, u"getwindowpid"_s});
    return owner.trimmed() == QByteArray::number(program.processId());
}

void WindowInUse::hear(const QString &words) {
    const auto said = desktop.home.filePath(u"said.wav"_s);
    desktop.display.run(u"espeak-ng"_s, {u"-v"_s, u"en-us"_s, u"-s"_s, u"145"_s, u"-w"_s, said, words});
    m_voices.push_back(sound.playFile(u"desk-feed"_s, said));
}

} // namespace palomet::test
