#pragma once

#include "tests/palomet/AccessibleTree.h"
#include "tests/palomet/Desktop.h"
#include "tests/palomet/WindowManager.h"
#include "tests/support/PrivateSoundServer.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The program with its own engine on a desktop with a window manager and a sound server, used through what a screen
/// reader sees and by the keyboard. Two command-line tools are installed there.
class WindowInUse : public ::testing::Test {
protected:
    using Node = AccessibleTree::Node;

    WindowInUse();
    ~WindowInUse() override;

    /// The engine's document.
    [[nodiscard]] QJsonObject state() const;
    [[nodiscard]] QJsonValue setting(const char *key) const;
    [[nodiscard]] bool becomes(const char *key, const QJsonValue &value) const;

    /// The output of a second start of the program with those arguments.
    QByteArray command(const QStringList &arguments) const;
    /// Shows that pane, as a second start of the program does.
    void open(const char *pane) const { command({u"--open"_s, QString::fromLatin1(pane)}); }
    /// That node, once it is there.
    [[nodiscard]] Node node(const char *role, const QString &name);
    void press(const char *role, const QString &name);
    /// Turns a switch, until the engine has the new value and the switch stands where it says.
    void turn(const QString &name, const char *key);
    /// Gives it the keyboard's focus and waits until it has it and shows.
    void focus(const Node &node);
    void type(const QString &text) const { desktop.display.run(u"xdotool"_s, {u"type"_s, text}); }
    void key(const char *keys) const { desktop.display.key(QString::fromLatin1(keys)); }
    /// Somebody says that into the microphone.
    void hear(const QString &words);

    Desktop desktop;
    PrivateSoundServer sound{PrivateSoundServer::Kind::PulseAudio};
    QProcessEnvironment environment = desktop.environment();
    WindowManager windowManager;
    QProcess program;
    AccessibleTree tree{desktop.bus, environment};

private:
    /// Whether the display sends the keys to one of its windows: a node has the focus before its window has it.
    [[nodiscard]] bool hasKeyboard() const;
    void installScript(const QString &name, const QByteArray &commands) const;
    void installTools();

    std::vector<OwnedProcess> m_voices;
};

} // namespace palomet::test
