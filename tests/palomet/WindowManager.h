#pragma once

#include "tests/palomet/Desktop.h"

#include <QFile>

#include <gtest/gtest.h>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// A window manager on the test's desktop, which it outlives; it ends with this object.
class WindowManager {
public:
    WindowManager() = default;
    WindowManager(const WindowManager &) = delete;
    WindowManager &operator=(const WindowManager &) = delete;
    ~WindowManager() {
        m_process.terminate();
        m_process.waitForFinished();
    }

    /// Starts it and waits until it manages windows. It keeps to itself only these keys, as its settings have them.
    void start(const Desktop &desktop, const QByteArray &keys = {}) {
        const auto path = desktop.home.filePath(u"window-manager.xml"_s);
        QFile settings(path);
        ASSERT_TRUE(settings.open(QFile::WriteOnly));
        settings.write("<?xml version=\"1.0\"?><openbox_config xmlns=\"http://openbox.org/3.4/rc\"><keyboard>" + keys +
                       "</keyboard></openbox_config>");
        settings.close();
        m_process.setProcessEnvironment(desktop.environment());
        // It holds its keys before it does what is asked for at its startup.
        const auto isUp = desktop.home.filePath(u"window-manager-is-up"_s);
        m_process.start(u"openbox"_s, {u"--config-file"_s, path, u"--startup"_s, u"touch "_s + isUp});
        ASSERT_TRUE(eventually([&] { return QFile::exists(isUp); }));
    }

private:
    QProcess m_process;
};

} // namespace palomet::test
