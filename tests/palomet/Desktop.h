#pragma once

#include "tests/support/Eventually.h"
#include "tests/support/PrivateBus.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/TrayHostDouble.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// A desktop of the test's own: display, session bus, tray (which is not there before `tray.appear`) and a home.
class Desktop {
public:
    Desktop() {
        QDir(home.path()).mkpath(u"run"_s);
        QFile::setPermissions(home.filePath(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    /// The environment of a program that runs there.
    [[nodiscard]] QProcessEnvironment environment() const {
        auto environment = display.environment();
        const auto set = [&](const char *name, const QString &value) {
            environment.insert(QString::fromLatin1(name), value);
        };
        set("HOME", home.path());
        set("XDG_CONFIG_HOME", home.filePath(u".config"_s));
        set("XDG_RUNTIME_DIR", home.filePath(u"run"_s));
        set("DBUS_SESSION_BUS_ADDRESS", bus.address());
        set("XDG_SESSION_TYPE", u"x11"_s);
        set("XDG_CURRENT_DESKTOP", u"XFCE"_s);
        set("LANGUAGE", u"en"_s);
        // Nobody's microphone.
        set("PULSE_SERVER", u"unix:"_s + home.filePath(u"run/no-sound"_s));
        environment.remove(u"QT_QPA_PLATFORM"_s);
        environment.remove(u"SESSION_MANAGER"_s);
        return environment;
    }

    QTemporaryDir home;
    PrivateDisplay display;
    PrivateBus bus;
    TrayHostDouble tray{bus.connect()};
};

} // namespace palomet::test
