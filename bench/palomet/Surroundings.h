#pragma once

#include "tests/palomet/Desktop.h"

#include <QDir>
#include <QFile>

namespace palomet::bench {

using namespace Qt::StringLiterals;

/// The environment of the program on this desktop, with a backend process that does nothing.
inline QProcessEnvironment surroundingsOn(const test::Desktop &desktop) {
    auto environment = desktop.environment();
    const QDir resources(desktop.home.filePath(u"resources"_s));
    resources.mkpath(u"engine"_s);
    QFile::link(u"" PALOMET_FAKE_BACKEND ""_s, resources.filePath(u"bun"_s));
    environment.insert(u"PALOMET_RESOURCES"_s, resources.path());
    return environment;
}

/// The program itself.
class Program {
public:
    explicit Program(const QProcessEnvironment &environment) {
        m_process.setProcessEnvironment(environment);
        m_process.start(u"" PALOMET_EXECUTABLE ""_s, {});
    }

    void end() {
        m_process.terminate();
        test::eventually([this] { return m_process.state() == QProcess::NotRunning; });
    }

private:
    QProcess m_process;
};

} // namespace palomet::bench
