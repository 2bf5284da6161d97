#pragma once

#include "tests/palomet/Desktop.h"

#include <QDir>
#include <QFile>

namespace palomet::bench {

/// The environment of the program on this desktop, with a backend process that does nothing.
inline QProcessEnvironment surroundingsOn(const test::Desktop &desktop) {
    auto environment = desktop.environment();
    const QDir resources(desktop.home.filePath(QStringLiteral("resources")));
    resources.mkpath(QStringLiteral("engine"));
    QFile::link(QStringLiteral(PALOMET_FAKE_BACKEND), resources.filePath(QStringLiteral("bun")));
    environment.insert(QStringLiteral("PALOMET_RESOURCES"), resources.path());
    return environment;
}

} // namespace palomet::bench
