#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// An X server of the test's own, without a screen to look at; it ends with this object.
class PrivateDisplay {
public:
    explicit PrivateDisplay(const QString &screen = u"1280x800x24"_s);
    ~PrivateDisplay();

    /// Ends the server, before this object's end.
    void end();

    /// As `DISPLAY` has it, ":42"; empty when the server could not be started.
    [[nodiscard]] const QByteArray &name() const { return m_name; }

    /// The environment for a program that shall run there.
    [[nodiscard]] QProcessEnvironment environment() const;

    /// Runs a program there to its end, the event loop going on meanwhile; its output, or nothing when it failed.
    QByteArray run(const QString &program, const QStringList &arguments) const;

    /// Presses and releases keys as `xdotool key` takes them: "alt+space".
    void key(const QString &keys) const { run(u"xdotool"_s, {u"key"_s, keys}); }

private:
    QProcess m_server;
    QByteArray m_name;
};

} // namespace palomet::test
