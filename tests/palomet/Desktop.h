#pragma once

#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TrayHostDouble.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace palomet::test {

/// A desktop of the test's own: display, session bus, tray (which is not there before `tray.appear`) and a home.
class Desktop {
public:
    Desktop() {
        QDir(home.path()).mkpath(QStringLiteral("run"));
        QFile::setPermissions(home.filePath(QStringLiteral("run")),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// The environment of a program that runs there.
    [[nodiscard]] QProcessEnvironment environment() const {
        auto environment = display.environment();
        const auto set = [&](const char *name, const QString &value) {
            environment.insert(QString::fromLatin1(name), value);
        };
        set("HOME", home.path());
        set("XDG_CONFIG_HOME", home.filePath(QStringLiteral(".config")));
        set("XDG_RUNTIME_DIR", home.filePath(QStringLiteral("run")));
        set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        set("XDG_SESSION_TYPE", QStringLiteral("x11"));
        set("XDG_CURRENT_DESKTOP", QStringLiteral("XFCE"));
        set("LANGUAGE", QStringLiteral("en"));
        // Nobody's microphone.
        set("PULSE_SERVER", QStringLiteral("unix:") + home.filePath(QStringLiteral("run/no-sound")));
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
        environment.remove(QStringLiteral("SESSION_MANAGER"));
        return environment;
    }

    QTemporaryDir home;
    PrivateDisplay display;
    PrivateBus bus;
    TrayHostDouble tray{bus.connect()};
};

} // namespace palomet::test
