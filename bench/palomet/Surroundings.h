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

} // namespace palomet::bench
